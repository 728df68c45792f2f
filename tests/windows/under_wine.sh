#!/usr/bin/env bash
# Runs a program for Windows under Wine, in the build folder, where the libraries are.
#
#   under_wine.sh BUILD-FOLDER PROGRAM ARGUMENT...
#   under_wine.sh BUILD-FOLDER --register     registers the libraries first
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine_tests.sh"
shift
if [ "$1" = --register ]; then
    register_all
    exit
fi
exec wine "$@"
