#!/usr/bin/env bash
# Runs a test as a screen reader would run: with the desktop's interface for that switched on.
#
#   with_reader.sh TEST PROGRAM DATABASE
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
cp "$3" "$work/desk.db"
export HOME="$work" XDG_CONFIG_HOME="$work" XDG_RUNTIME_DIR="$work" LC_ALL=C.UTF-8 NO_AT_BRIDGE=0
export PYTHONDONTWRITEBYTECODE=1
# The machine's own python has the interface's module.
dbus-run-session -- timeout 240 /usr/bin/python3 "$1" "$2" "$work/desk.db"
