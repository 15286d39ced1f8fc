# shellcheck shell=bash
# Packages and third-party sources. Sourced by ./quorel.

# Prints the packages of tools/packages.txt that are not installed, in the form apt-get takes.
missing_packages() {
    local line
    while read -r line; do
        [[ -z $line || $line == \#* ]] && continue
        dpkg-query -W -f '${db:Status-Abbrev}' "${line%%=*}" 2>/dev/null | grep -q '^ii' || echo "$line"
    done <tools/packages.txt
}

as_root() {
    if [[ $(id -u) == 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "packages must be installed as root, and there is no sudo: run  apt-get install ${*: -1}  as root first"
    fi
}

setup_packages() {
    local missing
    mapfile -t missing < <(missing_packages)
    [[ ${#missing[@]} == 0 ]] && return
    say "Installing ${#missing[@]} Debian packages: ${missing[*]%%=*}"
    as_root apt-get update -q >"$logs/apt.log" 2>&1 ||
        fail "apt-get update failed; its words are in $logs/apt.log"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}" \
        >>"$logs/apt.log" 2>&1 || fail "apt-get install failed; its words are in $logs/apt.log"
}

setup_sqlite() {
    [[ -f build/third_party/sqlite/sqlite3.c ]] || say "Making SQLite's sources for Windows from Debian's source package"
    tools/fetch-sqlite >"$logs/sqlite.log" 2>&1 || fail "SQLite's sources could not be made; see $logs/sqlite.log"
}

setup_expat() {
    [[ -f build/third_party/expat/xmlparse.c ]] || say "Taking Expat's sources for Windows from Debian's source package"
    tools/fetch-expat >"$logs/expat.log" 2>&1 || fail "Expat's sources could not be fetched; see $logs/expat.log"
}

# What only the native builds need, and what the Windows build needs besides.
setup() {
    setup_packages
    setup_sqlite
    setup_expat
}
