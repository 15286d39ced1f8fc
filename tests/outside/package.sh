# shellcheck shell=bash
# The packages as somebody gets them: what is in them, and what can be done with them in a folder with spaces, in a Windows
# that knows nothing of the library yet. Sourced by ./quorel after outside.sh, whose helpers it uses.

package_names() { printf 'quorel-%s-%s ' "$(package_version)" x64 "$(package_version)" x86; }

build_again() { # FOLDER
    [[ -f $1/build.ninja ]] || cmake --preset windows-x86 -B "$1" || return 1
    CCACHE_DISABLE=1 nice -n 10 ninja -C "$1" quorel_repository_component
}

# Twice from the same build, and a library from another folder without any cache.
packing_tests() {
    local name first=$package_dir/first again=$top/build/again/windows-x86
    rm -rf "$first"
    mkdir -p "$first"
    pack_all
    for name in $(package_names); do mv "$package_dir/$name.zip" "$first/"; done
    pack_all
    for name in $(package_names); do
        expect "$name: packed again it has the same bytes" cmp "$first/$name.zip" "$package_dir/$name.zip"
    done
    expect "a library is built elsewhere, without a cache" build_again "$again"
    expect "a library that is built elsewhere has the same bytes" cmp {"$again",build/windows-x86}/bin/QuorelRepository.dll
}

binary_tests() {
    local preset result
    for preset in windows:x86_64 windows-x86:i686; do
        result=$(tools/check-binaries "build/${preset%:*}/bin" "${preset#*:}") || printf '%s\n' "$result"
        outside_passed=$((outside_passed + $(grep -oP '^\d+(?= passed)' <<<"$result" || echo 0)))
        outside_failed=$((outside_failed + $(grep -oP '\d+(?= failed$)' <<<"$result" || echo 1)))
    done
    expect "nothing asks for a library by its name" loads_nothing_by_name
    expect "the x86 library carries the published contract" carries_contract build/windows-x86/bin/QuorelUtility.dll
    for preset in $(package_names); do
        expect "$preset: the type library is the published contract" carries_contract "$package_dir/$preset/QuorelUtility.tlb"
    done
}

loads_nothing_by_name() { ! grep -rnE 'LoadLibrary|LoadPackagedLibrary|LoadModule' src; }

carries_contract() {
    cmp <(run_windows 60 build/windows/bin/server_test.exe --list-contract "$(windows_path "$1")" | tr -d '\r') \
        tests/server/contract.txt
}

is_whole() { (cd "$1" && sha256sum --quiet --strict -c FILES.sha256 && cmp <(cut -c67- FILES.sha256) <(files_here)); }
files_here() { find . -type f ! -name FILES.sha256 -printf '%P\n' | LC_ALL=C sort; }

unpacking_tests() { # FOLDER
    local name file
    rm -rf "$1"
    mkdir -p "$1"
    for name in $(package_names); do
        python3 -m zipfile -e "$package_dir/$name.zip" "$1"
        expect "$name: the list of files is right" is_whole "$1/$name"
        for file in "${package_programs[@]}" "${package_data[@]}" QuorelUtility.tlb {register,unregister}.cmd README.md \
            samples/library.jsonl docs/getting-started.md docs/security.md licences/{README,sqlite,gcc-runtime}.txt; do
            expect "$name: holds $file" test -s "$1/$name/$file"
        done
    done
}

# list_user_classes FILE: all their entries; the key that holds those of every program stays when it has been made.
list_user_classes() {
    run_windows 60 reg query 'HKCU\Software\Classes' /s | tr -d '\r' | LC_ALL=C sort -u | sed -E '/^$|\\CLSID$/d' >"$1"
}
command_file() { run_windows 60 cmd /c "$(windows_path "$1")"; }
# shellcheck disable=SC2120
makes_identifiers() { # WORD...: before the script
    run_windows 60 build/windows/bin/quorelscript.exe "$@" "$(windows_path "$unpacked/samples/vbscript/identifiers.vbs")" Garden
}

# Where Windows shows a user's classes among everybody's, this Wine does not: they are put there for it.
mirror_user_classes() {
    local file=$outside_dir/classes.reg
    rm -f "$file"
    run_windows 60 reg export 'HKCU\Software\Classes' "$(windows_path "$file")" /y
    iconv -f UTF-16 -t UTF-8 "$file" | sed 's/^\[HKEY_CURRENT_USER/[HKEY_LOCAL_MACHINE/' | iconv -f UTF-8 -t UTF-16 >"$file.machine"
    iconv -f UTF-16 -t UTF-8 "$file.machine" | sed 's/^\[/[-/; /^["@]/d' | grep -vE '(Classes|CLSID|TypeLib|Interface)\]' | iconv -f UTF-8 -t UTF-16 >"$file.gone"
    run_windows 60 reg import "$(windows_path "$file.machine")"
}
unmirror_user_classes() { run_windows 60 reg import "$(windows_path "$outside_dir/classes.reg.gone")"; }

# shellcheck disable=SC2119
has_no_class() { ! makes_identifiers; }
tells_of_registering() { command_file "$unpacked/register.cmd" | grep -q '^Registered for this user'; }
is_registered_here() { grep -qF "$(windows_path "$unpacked/QuorelUtility.dll")" "$1"; }
fails_alone() { ! command_file "$outside_dir/register.cmd"; }
tells_version() { run_windows 60 "$unpacked/navigator.exe" --version | grep -qF "$(package_version)"; }

registration_tests() {
    local classes=$outside_dir/user-classes log=$logs/package-registration.log
    expect "a user has a place for classes" run_windows 60 reg add 'HKCU\Software\Classes' /f
    expect "what is there can be listed" list_user_classes "$classes.before"
    expect "unregistered, a script has no class" has_no_class
    expect "register.cmd ends with 0" command_file "$unpacked/register.cmd"
    expect "register.cmd says what it did" tells_of_registering
    expect "the user's classes can be listed" list_user_classes "$classes.registered"
    expect "the library is registered where it lies" is_registered_here "$classes.registered"
    mirror_user_classes >>"$log" 2>&1
    expect "registered, a script has the class" makes_identifiers
    unmirror_user_classes >>"$log" 2>&1
    expect "unregister.cmd ends with 0" command_file "$unpacked/unregister.cmd"
    expect "they can be listed again" list_user_classes "$classes.after"
    expect "unregister.cmd leaves nothing" cmp "$classes.before" "$classes.after"
    expect "unregister.cmd does no harm when nothing is there" command_file "$unpacked/unregister.cmd"
    cp "$unpacked/register.cmd" "$outside_dir/"
    expect "register.cmd alone ends with 1" fails_alone
    expect "unregistered again, a script has no class" has_no_class
}

# A host with a manifest of its own that names the library in the words of its documentation.
make_own_host() { # FOLDER
    rm -rf "$1"
    cp -r "$unpacked" "$1"
    chmod -R u+w "$1"
    cp build/windows/bin/quorelscript.exe "$1/host.exe"
    {
        echo '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">'
        echo '<assemblyIdentity type="win32" name="Host" version="1.0.0.0" processorArchitecture="amd64"/>'
        sed -n '/^```xml/,/^```$/p' docs/getting-started.md | sed '1d;$d'
        echo '</assembly>'
    } >"$1/host.exe.manifest"
}

# What the programs do here is done without registration, and nothing of it is written beside them.
program_tests() {
    local data=$outside_dir/package-data
    rm -rf "$data"
    mkdir -p "$data"
    expect "a script has the class by its manifest" makes_identifiers --manifest "$(windows_path "$unpacked/QuorelUtility.manifest")"
    make_own_host "$data/own host"
    expect "a host has the class by its own manifest" run_windows 60 "$data/own host/host.exe" \
        "$(windows_path "$unpacked/samples/vbscript/identifiers.vbs")" Garden
    expect "navigator tells its version" tells_version
    expect "quorelimport imports the sample" run_windows 60 "$unpacked/quorelimport.exe" --jsonl \
        "$(windows_path "$unpacked/samples/library.jsonl")" "$(windows_path "$data/library.quorel")"
    expect "the repository is there" test -s "$data/library.quorel"
    expect "navigator imports it, too" run_windows 60 "$unpacked/navigator.exe" --import \
        "$(windows_path "$unpacked/samples/library.jsonl")" "$(windows_path "$data/navigated.quorel")"
    expect "navigator draws its metamodel by components that are not registered" run_windows 60 "$unpacked/navigator.exe" \
        --diagram "$(windows_path "$data/library.svg")" "$(windows_path "$data/navigated.quorel")"
    expect "the drawing is there" grep -q '</svg>' "$data/library.svg"
    expect "nothing was written into the program's folder" is_whole "$unpacked"
}

# Libraries under the names of the system's that are loaded, each of which leaves a mark, in the current folder and along the
# search path.
planted_names() {
    printf '%s\n' cryptbase.dll dwmapi.dll profapi.dll propsys.dll shcore.dll sspicli.dll userenv.dll version.dll wtsapi32.dll \
        quorelutility.dll quorelrepository.dll
    for file in "${package_programs[@]}"; do
        x86_64-w64-mingw32-objdump -p "$unpacked/$file" | awk '/DLL Name:/ { print tolower($3) }'
    done
}

in_trap() (
    cd "$trap_folder" || exit 1
    WINEPATH=$(windows_path "$trap_folder") QUOREL_PLANTED=$(windows_path "$trap_folder/mark") run_windows 60 "$@"
)

refuses_to_register() { ! in_trap regsvr32 /s "$(windows_path "$trap_folder/quorelutility.dll")"; }

planted_tests() {
    local trap_folder=$outside_dir/trap name
    rm -rf "$trap_folder"
    mkdir -p "$trap_folder"
    for name in $(planted_names | sort -u); do cp build/windows/bin/planted.dll "$trap_folder/$name"; done
    expect "navigator runs among planted libraries" in_trap "$unpacked/navigator.exe" --version
    expect "quorelimport runs among them" in_trap "$unpacked/quorelimport.exe" --help
    expect "the script host runs among them" in_trap "$top/build/windows/bin/quorelscript.exe" --manifest \
        "$(windows_path "$unpacked/QuorelUtility.manifest")" "$(windows_path "$unpacked/samples/vbscript/identifiers.vbs")" Garden
    expect "none of them was loaded" test ! -e "$trap_folder/mark"
    expect "one that is named with its path is loaded, and registers nothing" refuses_to_register
    expect "one that is loaded leaves its mark" test -e "$trap_folder/mark"
}

package_tests() {
    local started=$SECONDS unpacked="$outside_dir/unpacked with spaces"
    local -x WINEPREFIX=$top/build/wine-package
    say "Testing the packages"
    outside_passed=0 outside_failed=0
    mkdir -p "$outside_dir"
    setup_prefix
    graphics null
    packing_tests
    binary_tests
    unpacking_tests "$unpacked"
    unpacked+="/quorel-$(package_version)-x64"
    chmod -R a-w "$unpacked"
    registration_tests
    program_tests
    planted_tests
    chmod -R u+w "$unpacked"
    wineserver_stop
    tally "packages" "$outside_passed" "$outside_failed" $((SECONDS - started))
}
