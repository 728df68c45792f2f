#!/usr/bin/env bash
# Runs the tests.
#
#   test.sh           all of them on this system, the real window included, and once more with the
#                     sanitizers
#   test.sh quick     the inner loop: what needs no display, on the release build
#   test.sh windows   the Windows component, of 64 and of 32 bits
#   test.sh all       as without an argument, and the Windows component
#   test.sh lint      clang-tidy over src
#   test.sh fuzz [N]  the fuzzers, N seconds each (60 when it is left out), each time with others of
#                     their random inputs; as a part of test.sh they try the same inputs each time
#   test.sh coverage  how much of src the tests run, by line and branch
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/dependencies.sh
. tools/build.sh
. tools/virtual_display.sh
. tools/database_servers.sh

passed=0
failed=0
skipped=0

# run_tests PRESET CTEST-OPTION...: adds to the counts and shows what failed
run_tests() {
    local preset=$1 log=build/$1-tests.log shown=/dev/null total bad left
    shift
    echo "== testing: $preset $*"
    [ -t 1 ] && shown=/dev/stdout
    ctest --test-dir "build/$preset" --output-on-failure --timeout 300 "$@" 2>&1 |
        tee "$log" >"$shown" || true
    total=$(sed -n 's/^[0-9]*% tests passed.* tests failed out of \([0-9]*\)$/\1/p' "$log")
    bad=$(sed -n 's/^[0-9]*% tests passed, \([0-9]*\) tests failed out of.*/\1/p' "$log")
    if [ -z "$total" ]; then
        tail -n 40 "$log" >&2
        echo "No test ran" >&2
        return 1
    fi
    left=$(grep -cE '^ *[0-9]+/[0-9]+ Test .*\*\*\*(Skipped|Not Run \(Disabled\))' "$log" || true)
    passed=$((passed + total - bad - left))
    failed=$((failed + bad))
    skipped=$((skipped + left))
    if [ "$bad" -gt 0 ]; then
        grep -vE '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test .* Passed )' "$log" | tail -n 300
    fi
    echo "$((total - bad - left)) of $total passed, $left skipped; the whole of it is in $log"
}

quick() {
    install_missing "${build_packages[@]}" "${check_packages[@]}"
    build release
    run_tests release -L quick -j "$(nproc)"
}

this_system() {
    install_missing "${build_packages[@]}" "${check_packages[@]}" "${screen_packages[@]}" \
        "${server_packages[@]}"
    build release
    trap 'stop_display; stop_servers' EXIT
    echo "== starting PostgreSQL and MariaDB"
    start_servers
    run_tests release -LE window -j "$(nproc)"
    stop_servers
    start_display
    # One after the other: two windows on one display would fight for the focus.
    run_tests release -L window
    stop_display
    build asan
    run_tests asan -LE 'window|check|servers' -j "$(nproc)"
    rm -rf build/fuzz/corpus
    fuzz 60 1
}

# fuzz SECONDS [SEED]: each harness for so long, on all processors; the corpora are grown and kept in
# build/fuzz/corpus, their seeds in tests/fuzz/corpus. Without a corpus of its own a harness repeats
# with the same SEED what it did with it before.
fuzz() {
    local seconds=$1 seed=${2:-0} harness bad=0 total=0
    install_missing "${build_packages[@]}" "${fuzz_packages[@]}"
    build fuzz fuzzers
    echo "== fuzzing: $seconds s each"
    find build/fuzz -maxdepth 1 -name 'fuzz_*' -type f -perm -u+x -print0 | sort -z |
        xargs -0 -P "$(nproc)" -n 1 tests/fuzz/run.sh "$seconds" "$seed" build/fuzz/corpus || true
    for harness in build/fuzz/fuzz_*; do
        [ -x "$harness" ] || continue
        total=$((total + 1))
        if ! grep -q '^DONE' "build/fuzz/corpus/$(basename "$harness").log"; then
            bad=$((bad + 1))
            grep -vE '^#[0-9]|NEW_FUNC' "build/fuzz/corpus/$(basename "$harness").log" | tail -n 60
        fi
    done
    passed=$((passed + total - bad))
    failed=$((failed + bad))
    echo "$((total - bad)) of $total harnesses found nothing"
}

coverage() {
    install_missing "${build_packages[@]}" "${check_packages[@]}" "${server_packages[@]}" \
        "${coverage_packages[@]}"
    build coverage
    find build/coverage -name '*.gcda' -delete
    trap stop_servers EXIT
    start_servers
    run_tests coverage -LE 'window|check' -j "$(nproc)"
    stop_servers
    mkdir -p build/coverage/report
    # What only checks an exception's way out is no branch that anyone wrote.
    gcovr --root . --filter src/ --object-directory build/coverage --exclude-throw-branches \
        --exclude-unreachable-branches --print-summary --html-details build/coverage/report/index.html \
        --txt build/coverage/report/summary.txt
    echo "The pages are in build/coverage/report"
}

windows() {
    . tools/windows/dependencies.sh
    . tools/windows/wine.sh
    install_missing "${windows_packages[@]}" "${wine_packages[@]}"
    windows_of x64
    install_missing "${tree_maker_packages[@]}"
    local tree status=0
    tree=$(tools/windows/tree32.sh) || status=$?
    case $status in
        0) windows_of x86 ;;
        77)
            echo "windows, 32 bits: skipped: $tree"
            skipped=$((skipped + 1))
            ;;
        *) return "$status" ;;
    esac
}

# windows_of x64|x86
windows_of() {
    tools/windows/build.sh "$1"
    # What runs in the prefix holds on to the display, so it ends before that.
    trap 'stop_wine || true; stop_display; stop_servers' EXIT
    start_display
    start_wine "$1"
    run_tests "windows-$1" -L quick -j "$(nproc)"
    run_tests "windows-$1" -LE quick
    stop_wine || failed=$((failed + 1))
    stop_display
}

lint() {
    install_missing "${build_packages[@]}" "${lint_packages[@]}"
    build debug
    echo "== clang-tidy"
    find src -name '*.cpp' -print0 | sort -z |
        xargs -0 -P "$(nproc)" -n 4 clang-tidy -p build/debug --quiet \
            --extra-arg=-Wno-unknown-warning-option
}

case "${1:-}" in
    quick | windows) "$1" ;;
    "") this_system ;;
    all)
        this_system
        windows
        ;;
    fuzz) fuzz "${2:-60}" ;;
    coverage) coverage ;;
    lint)
        lint
        exit
        ;;
    *)
        sed -n '2,/^set/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
        exit 2
        ;;
esac
echo "Time taken: $SECONDS s"
echo "$passed passed, $failed failed, $skipped skipped"
[ "$failed" -eq 0 ]
