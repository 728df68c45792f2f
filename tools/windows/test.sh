#!/usr/bin/env bash
# Runs the tests of what build.sh has made, under Wine and a virtual display.
#
#   test.sh [x64|x86] CTEST-OPTION...
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. tools/virtual_display.sh
. tools/windows/wine.sh
which=x64
case ${1:-} in
    x64 | x86)
        which=$1
        shift
        ;;
esac
# The programs of the prefix hold on to the display, so they end before it.
trap 'stop_wine || true; stop_display' EXIT
start_display
start_wine "$which"
ctest --test-dir "build/windows-$which" --output-on-failure --timeout 300 "$@"
