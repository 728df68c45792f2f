#!/usr/bin/env bash
# Builds everything for Windows from nothing: installs what is missing, builds the toolkit once, the
# program, the COM libraries and what goes with them.
#
#   build.sh [x64|x86] [--target TARGET]...
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/../.."
. tools/dependencies.sh
. tools/build.sh
. tools/windows/dependencies.sh
. tools/windows/wine.sh

which=x64
targets=()
while [ "$#" -gt 0 ]; do
    case $1 in
        x64 | x86) which=$1 ;;
        --target)
            targets+=("$2")
            shift
            ;;
        *)
            sed -n '2,/^set/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
            exit 2
            ;;
    esac
    shift
done
processor=x86_64
[ "$which" = x86 ] && processor=i686

install_missing "${windows_packages[@]}" "${wine_packages[@]}"
if [ "$which" = x86 ]; then
    install_missing "${tree_maker_packages[@]}"
    tools/windows/tree32.sh
fi
tools/windows/toolkit.sh "$processor"
# The type library is written by a program that runs under Wine.
trap 'stop_wine || true' EXIT
start_wine "$which"
build "windows-$which" "${targets[@]}"
if [ "${#targets[@]}" -eq 0 ]; then packaging/windows/installer.sh "$which"; fi
