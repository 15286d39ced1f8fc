# shellcheck shell=bash
# What is checked without running anything. Sourced by ./quorel.

our_sources() { git ls-files --cached --others --exclude-standard '*.h' '*.cpp'; }

format_sources() { our_sources | xargs clang-format -i; }

check_format() {
    our_sources | xargs clang-format --dry-run --Werror >"$logs/format.log" 2>&1 ||
        { grep -E 'error:' "$logs/format.log" | head -n 20; fail "formatting: run ./quorel format"; }
}

check_layers() { python3 tools/check-layers src || fail "an include points up"; }

check_headers() { tools/check-headers "$logs/headers.log" || fail "a header does not compile alone; see $logs/headers.log"; }

run_checks() {
    say "Checking formatting, include directions, headers"
    check_format
    check_layers
    check_headers
    note "all hold"
}
