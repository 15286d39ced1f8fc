# shellcheck shell=bash
# Configuring and building the presets. Sourced by ./quorel.

# build PRESET [TARGET...]
build() {
    local preset=$1 started=$SECONDS
    shift
    say "Building $preset"
    if [[ ! -f build/$preset/build.ninja ]]; then
        cmake --preset "$preset" >"$logs/$preset-configure.log" 2>&1 ||
            { tail -n 40 "$logs/$preset-configure.log"; fail "configuring $preset failed"; }
    fi
    # What tests at the same time has the machine first.
    nice -n 10 ninja -C "build/$preset" "$@" >"$logs/$preset-build.log" 2>&1 ||
        { grep -vE '^\[[0-9]+/[0-9]+\]' "$logs/$preset-build.log" | tail -n 60; fail "building $preset failed"; }
    note "$preset is built ($((SECONDS - started)) s)"
}
