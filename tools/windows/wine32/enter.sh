#!/usr/bin/env bash
# Runs the program of Wine by whose name it is called in the tree that tree32.sh has made. What that
# needs of this system is mounted for its own processes alone, so it is gone when they are.
set -euo pipefail
here=$(cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")" && pwd)
. "$here/../dependencies.sh"
# Who has started Wine says where the tree is: a test may have another home.
export CATALOGADOR_TREE=${CATALOGADOR_TREE:-$windows_cache/i386}
if [ ! -f "$CATALOGADOR_TREE/made-of" ]; then
    echo "There is no Wine of 32 bits in $CATALOGADOR_TREE; tools/windows/tree32.sh makes it" >&2
    exit 1
fi
CATALOGADOR_SOURCES=$(cd "$here/../../.." && pwd)
export CATALOGADOR_SOURCES
# The tree has no other locale, and its own programs.
export LC_ALL=C.UTF-8
# shellcheck disable=SC2016  # the variables are those of the inner shell
exec unshare --mount --propagation private -- sh -ec '
    for folder in /proc /dev /tmp "${TMPDIR:-/tmp}" "$CATALOGADOR_SOURCES"; do
        mkdir -p "$CATALOGADOR_TREE$folder"
        mount --rbind "$folder" "$CATALOGADOR_TREE$folder"
    done
    exec chroot "$CATALOGADOR_TREE" env --chdir="$PWD" PATH=/usr/bin:/bin "$@"' sh "$(basename "$0")" "$@"
