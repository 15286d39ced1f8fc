# shellcheck shell=bash
# What is checked without running anything. Sourced by ./quorel.

our_sources() { git ls-files --cached --others --exclude-standard '*.h' '*.cpp'; }

format_sources() { our_sources | xargs clang-format -i; }

check_format() {
    our_sources | xargs clang-format --dry-run --Werror >"$logs/format.log" 2>&1 ||
        { grep -E 'error:' "$logs/format.log" | head -n 20; fail "formatting: run ./quorel format"; }
}

check_layers() { python3 tools/check-layers src || fail "an include points up"; }

check_headers() {
    local started=$SECONDS
    say "Checking that headers compile alone"
    tools/check-headers "$logs/headers.log" || fail "a header does not compile alone; see $logs/headers.log"
    note "they do ($((SECONDS - started)) s)"
}

# What takes seconds; every header alone takes a minute.
run_checks() {
    say "Checking formatting and include directions"
    check_format
    check_layers
    note "all hold"
}
