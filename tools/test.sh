# shellcheck shell=bash
# Running every test and saying how it went. Sourced by ./quorel.

passed=0
failed=0
summary=()

# tally NAME PASSED FAILED SECONDS: into the summary, or into the file that a part run in the background keeps.
tally_file=
tally() {
    if [[ -n $tally_file ]]; then
        note "$1: $2 passed, $3 failed, $4 s"
        printf '%s\t%s\t%s\t%s\n' "$@" >>"$tally_file"
        return
    fi
    passed=$((passed + $2))
    failed=$((failed + $3))
    summary+=("$(printf '%-28s %6d passed %4d failed %5d s' "$1" "$2" "$3" "$4")")
    note "${summary[-1]}"
}

# count_in FILE ATTRIBUTE: of the test suite in a JUnit file; nothing when there is no such file.
count_in() { grep -zoP "<testsuite[^>]*?\\b$2=\"\\K[0-9]+" "$1" 2>/dev/null | tr -d '\0' | head -n 1 || true; }

# The results of a ctest run are in its JUnit file.
run_ctest() { # PRESET
    local preset=$1 started=$SECONDS results=$top/build/$1/results.xml total bad status=0
    say "Testing $preset"
    rm -f "$results"
    ctest --preset "$preset" --output-junit "$results" >"$logs/$preset-test.log" 2>&1 || status=$?
    total=$(count_in "$results" tests)
    bad=$(count_in "$results" failures)
    if [[ -z $total || $total == 0 ]]; then
        tail -n 30 "$logs/$preset-test.log"
        total=1 bad=1
    fi
    # Tests that could not be run are no failures to ctest's file, but to its exit code.
    if [[ $status != 0 && $bad == 0 ]]; then bad=1; fi
    [[ $bad == 0 ]] || sed -n '/Failure$/,/^$/p; /tests FAILED:/,$p' "$logs/$preset-test.log" | head -n 80
    tally "$preset" $((total - bad)) "$bad" $((SECONDS - started))
}

# run_google_test NAME SECONDS PROGRAM ARGUMENT...: a GoogleTest program under Wine.
run_google_test() {
    local name=$1 limit=$2 started=$SECONDS log=$logs/windows-$1.log good bad status=0
    shift 2
    run_windows "$limit" "$@" >"$log" 2>&1 || status=$?
    good=$(grep -aoP '^\[  PASSED  \] \K[0-9]+' "$log" | tail -n 1 || true)
    bad=$(grep -aoP '^\s*\K[0-9]+(?= FAILED TESTS?)' "$log" | tail -n 1 || true)
    good=${good:-0} bad=${bad:-0}
    # A program that crashed, hung or ran nothing has failed, whatever it counted.
    if [[ $status != 0 && $bad == 0 || $good == 0 ]]; then bad=$((bad + 1)); fi
    [[ $bad == 0 ]] || { grep -aE '^\[  FAILED|Failure$|rror' "$log" | head -n 40 || true; tail -n 5 "$log"; }
    tally "windows: $name" "$good" "$bad" $((SECONDS - started))
}

# run_program NAME PROGRAM ARGUMENT...: a host under Wine; it must end with code 0.
run_program() {
    local name=$1 started=$SECONDS log=$logs/host-$1.log status=0
    shift
    run_windows 120 "$@" >"$log" 2>&1 || status=$?
    if [[ $status == 0 ]]; then
        tally "host: $name" 1 0 $((SECONDS - started))
    else
        tail -n 20 "$log"
        note "it ended with code $status"
        tally "host: $name" 0 1 $((SECONDS - started))
    fi
}

# run_script NAME FILE ARGUMENT...
run_script() {
    run_program "$1" build/windows/bin/quorelscript.exe "$(windows_path "$2")" "${@:3}"
}

run_tests() {
    local started=$SECONDS
    setup
    run_checks
    build native
    build windows
    # Programs under Wine wait more than they work: they run beside the build that is left.
    begin_windows_tests
    build native-asan
    build_shipped windows-x86
    check_headers
    run_ctest native
    run_ctest native-asan
    end_windows_tests
    package_tests
    say "Summary ($((SECONDS - started)) s)"
    printf '   %s\n' "${summary[@]}"
    printf '\n%d passed, %d failed\n' "$passed" "$failed"
    [[ $failed == 0 ]]
}

# Runs the tests under Wine in the background; what they say is kept for the end.
begin_windows_tests() {
    say "Testing under Wine, meanwhile"
    windows_tallies=$logs/windows-tallies.txt
    : >"$windows_tallies"
    (
        tally_file=$windows_tallies
        test_windows
    ) >"$logs/windows-tests.log" 2>&1 &
    windows_tests=$!
    # Nothing outlives this run, however it ends.
    trap 'wait "$windows_tests" || true' EXIT
}

end_windows_tests() {
    local status=0 name good bad seconds
    wait "$windows_tests" || status=$?
    trap - EXIT
    cat "$logs/windows-tests.log"
    while IFS=$'\t' read -r name good bad seconds; do tally "$name" "$good" "$bad" "$seconds"; done <"$windows_tallies"
    [[ $status == 0 ]] || tally "windows: ended early" 0 1 0
}

test_windows() {
    local program script
    setup_prefix
    register_components
    say "Testing under Wine"
    graphics null
    for program in build/windows/bin/*_test.exe build/windows/bin/*_tests.exe; do
        run_google_test "$(basename "$program" .exe)" 600 "$program"
    done
    for script in tests/hosts/*.vbs tests/hosts/*.js; do run_script "$(basename "$script")" "$script"; done
    test_samples
    graphics x11
    outside_tests
}

# The samples that open no window; those that do are driven by tests/outside.
test_samples() {
    local repository made=$outside_dir/made
    import_sample
    repository=$(windows_path "$sample_repository")
    rm -f "$made"-by-*
    run_script sample-report samples/vbscript/report.vbs "$repository"
    run_script sample-progress samples/vbscript/progress.vbs "$repository"
    run_script sample-progressbar samples/vbscript/progressbar.vbs "$repository"
    run_script sample-identifiers samples/vbscript/identifiers.vbs Garden
    run_script sample-settings samples/vbscript/settings.vbs "$(windows_path "$made-by-settings.quorel")"
    run_script sample-repository.vbs samples/vbscript/repository.vbs "$(windows_path "$made-by-vbscript.quorel")"
    run_script sample-repository.js samples/jscript/repository.js "$(windows_path "$made-by-jscript.quorel")"
    run_program sample-repository.cpp build/windows/bin/sample_repository.exe "$repository"
}

# The layout of real metamodels' diagrams.
bench_metamodels() {
    local from=build/third_party/metamodels out=build/metamodels import=build/native/bin/quorel-import
    say "Diagrams of real metamodels"
    tools/fetch-metamodels >"$logs/metamodels.log" 2>&1 || { note "they cannot be fetched; see $logs/metamodels.log"; return; }
    mkdir -p "$out"
    rm -f "$out"/*.quorel
    "$import" --ecore "$from/XSD.ecore" "$out/xsd.quorel"
    "$import" --ecore "$from/UIElements.ecore" "$from/ModelFragment.ecore" "$out/ui.quorel"
    if [[ -f $from/bpmn.json ]]; then
        "$import" --moddle "$from"/{bpmn,bpmndi,dc,di}.json "$out/bpmn.quorel"
    else
        note "without the one of BPMN, as npm is not installed"
    fi
    build/native/bin/diagram_layout_bench "$out"/*.quorel
}

run_benchmarks() {
    local program
    setup
    build native
    build windows all benchmarks
    setup_prefix
    graphics null
    say "Benchmarks, natively"
    for program in build/native/bin/*_bench; do "$program"; done
    bench_metamodels
    say "Benchmarks, under Wine"
    for program in build/windows/bin/*_bench.exe; do run_windows 600 "$program"; done
}
