# shellcheck shell=bash
# The packages: what somebody on Windows unpacks and uses, one for each processor. Sourced by ./quorel.

package_dir=$top/build/package
package_programs=(QuorelUtility.dll QuorelRepository.dll navigator.exe quorelimport.exe)
package_data=(QuorelUtility.manifest QuorelRepository.manifest Node.ico Link.ico ReposHeader.wmf)

package_version() { sed -nE 's/^project\(QuorelUtility VERSION ([0-9.]+).*/\1/p' CMakeLists.txt; }

# build_shipped PRESET: what of it goes into a package.
build_shipped() { build "$1" quorel_utility quorel_repository_component quorelimport navigator; }

# with_line_ends FILE TO: as Windows' own programs want them.
with_line_ends() { sed 's/\r*$/\r/' "$1" >"$2"; }

# copy_tracked FOLDER TO: what belongs to the sources, without build files.
copy_tracked() {
    local file
    while read -r file; do
        [[ -f $file && $file != *CMakeLists.txt ]] || continue
        mkdir -p "$2/$(dirname "$file")"
        cp "$file" "$2/$file"
    done < <(git ls-files "$1")
}

# The notes of what is linked into the programs, each as its package tells them.
stage_licences() { # FOLDER PROCESSOR
    local folder=$1/licences name package
    mkdir -p "$folder"
    {
        printf 'What is linked into the programs and libraries, and under which terms. The versions are those of\n'
        printf 'Debian packages, and the files beside this one are what these packages say themselves.\n\n'
        while read -r name package; do
            cp "/usr/share/doc/$package/copyright" "$folder/$name.txt"
            printf '%-20s %s %s\n' "$name.txt" "$package" "$(dpkg-query -W -f '${source:Version}' "$package")"
        done < <(linked_packages "$2")
        printf '\nGPL-3.txt is the licence that gcc-runtime.txt grants its exception to.\n'
    } >"$folder/README.txt"
    cp /usr/share/common-licenses/GPL-3 "$folder/GPL-3.txt"
}

linked_packages() { # PROCESSOR
    cat <<LINKED
sqlite libsqlite3-dev
expat libexpat1-dev
json nlohmann-json3-dev
gcc-runtime gcc-mingw-w64-${1//_/-}-posix-runtime
mingw-w64-runtime mingw-w64-${1//_/-}-dev
LINKED
}

# stage PRESET PROCESSOR FOLDER
stage() {
    local from=build/$1 folder=$3 file
    rm -rf "$folder"
    mkdir -p "$folder"
    for file in "${package_programs[@]}" "${package_data[@]}"; do cp "$from/bin/$file" "$folder/"; done
    cp "$from/src/server/generated/QuorelUtility.tlb" "$folder/"
    for file in package/*; do with_line_ends "$file" "$folder/${file#package/}"; done
    copy_tracked samples "$folder"
    copy_tracked docs "$folder"
    stage_licences "$folder" "$2"
}

# pack PRESET PROCESSOR NAME: build/package/NAME.zip, and the folder that it holds beside it.
pack() {
    stage "$1" "$2" "$package_dir/$3"
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct) tools/pack "$package_dir/$3" "$package_dir/$3.zip"
}

pack_all() {
    local version
    version=$(package_version)
    mkdir -p "$package_dir"
    pack windows x86_64 "quorel-$version-x64"
    pack windows-x86 i686 "quorel-$version-x86"
}

run_package() {
    local archive
    setup
    build_shipped windows
    build_shipped windows-x86
    say "Packing"
    pack_all
    for archive in "$package_dir"/*.zip; do note "$(sha256sum "$archive" | cut -c1-64)  ${archive#"$top/"}"; done
}
