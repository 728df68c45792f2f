# Sourced by run.sh and test.sh, in the top folder: configures and builds.
# shellcheck shell=bash

# build PRESET [TARGET...]: into build/PRESET. On a terminal the build shows itself; elsewhere it
# goes to build/PRESET.log, of which the end is shown when it fails.
build() {
    local preset=$1 log=build/$1.log hardened=OFF
    shift
    # What may be handed to others. A build by hand is done sooner without it.
    case $preset in release | windows-*) hardened=ON ;; esac
    echo "== building: $preset${*:+ ($*)}"
    mkdir -p build
    if ! cmake --preset "$preset" -DCATALOGADOR_HARDENED=$hardened >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
    local command=(cmake --build "build/$preset" -j "$(nproc)")
    [ "$#" -gt 0 ] && command+=(--target "$@")
    if [ -t 1 ]; then
        "${command[@]}"
    elif ! "${command[@]}" >"$log" 2>&1; then
        grep -E -A 12 'FAILED|error' "$log" | tail -n 100 >&2
        echo "The whole of it is in $PWD/$log" >&2
        return 1
    fi
}
