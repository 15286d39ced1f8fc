# shellcheck shell=bash
# An apt of our own beside the machine's, from the archives that the machine's apt already uses: its lists and caches
# stand in a folder that the caller makes and removes, so nothing of the machine's changes and no root is needed.
# Sourced by the tools/fetch-* scripts. After `own_apt WORK KIND` the array `apt_options` goes to apt-get and apt-cache.

codename=$(. /etc/os-release && echo "$VERSION_CODENAME")

# One-line sources of this release's main component, as sources of the kind $1.
one_line_sources() {
    { cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null || true; } | awk -v codename="$codename" -v kind="$1" '
        $1 == "deb" || $1 == "deb-src" {
            suite = 3
            if ($2 ~ /^\[/) { suite = 2; while ($suite !~ /\]$/) suite++; suite += 2 }
            name = $suite; sub(/\/.*/, "", name)
            if ((name == codename || index(name, codename "-") == 1) && / main( |$)/) { sub(/^deb(-src)? /, kind " "); print }
        }' | sort -u
}

# The same of deb822 files: the paragraphs that name a suite of this release and main.
deb822_sources() {
    local file
    for file in /etc/apt/sources.list.d/*.sources; do
        [[ -f $file ]] || continue
        grep -v '^#' "$file" | awk -v codename="$codename" -v kind="$1" '
            BEGIN { RS = ""; FS = "\n" }
            /\n?Enabled: *no/ { next }
            {
                wanted = 0; main = 0
                for (i = 1; i <= NF; i++) {
                    if ($i ~ /^Suites:/) { n = split($i, suite, /[ \t]+/); for (j = 2; j <= n; j++) if (suite[j] == codename || index(suite[j], codename "-") == 1) wanted = 1 }
                    if ($i ~ /^Components:/ && $i ~ /[ \t]main([ \t]|$)/) main = 1
                }
                if (!wanted || !main) next
                for (i = 1; i <= NF; i++) { if ($i ~ /^Types:/) $i = "Types: " kind; print $i }
                print ""
            }'
    done
}

# Sets it up in the folder $1, for the kind $2 of packages: deb or deb-src.
own_apt() {
    local work=$1 kind=$2
    mkdir -p "$work"/{parts,lists/partial,cache/archives/partial}
    one_line_sources "$kind" >"$work/parts/quorel.list"
    deb822_sources "$kind" >"$work/parts/quorel.sources"
    if [[ ! -s $work/parts/quorel.list && ! -s $work/parts/quorel.sources ]]; then
        echo "apt has no source for the main component of $codename; nothing can be fetched" >&2
        exit 1
    fi
    apt_options=(-q -o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$work/parts" -o "Dir::State::Lists=$work/lists"
        -o "Dir::Cache=$work/cache" -o Debug::NoLocking=1 -o APT::Sandbox::User="$(id -un)")
    apt-get "${apt_options[@]}" update
}

# Unpacks the source package $1 of the pinned version $2 into the folder $3, or, when the archive has moved on, the
# newest revision of the same upstream version.
own_apt_source() {
    local package=$1 version=$2 folder=$3 upstream=${2%-*} candidate chosen=
    while read -r candidate; do
        [[ $candidate == "$version" ]] && { chosen=$candidate; break; }
        [[ ${candidate%-*} == "$upstream" ]] || continue
        if [[ -z $chosen ]] || dpkg --compare-versions "$candidate" gt "$chosen"; then chosen=$candidate; fi
    done < <(apt-cache "${apt_options[@]}" showsrc "$package" | awk '/^Version: /{print $2}' | sort -u)
    [[ -n $chosen ]] || { echo "the archive has no source package $package of version $upstream" >&2; exit 1; }
    mkdir -p "$folder.files"
    (cd "$folder.files" && apt-get "${apt_options[@]}" source --download-only "$package=$chosen")
    dpkg-source --no-check -x "$folder.files/${package}"_*.dsc "$folder"
    echo "$package $chosen is fetched"
}
