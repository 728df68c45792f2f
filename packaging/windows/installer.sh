#!/usr/bin/env bash
# Makes the installer of what build.sh has built, beside it: catalogador-setup.exe
#
#   installer.sh [BUILD-FOLDER]     default: build/windows-x64
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
files=$(cd "${1:-$here/../../build/windows-x64}" && pwd)
version=$(sed -n 's/^project(catalogador VERSION \([0-9.]*\).*/\1/p' "$here/../../CMakeLists.txt")
cp "$here/vemCatalogador.manifest" "$files"
makensis -V2 -DFILES="$files" -DVERSION="$version" -DOUTPUT="$files/catalogador-setup.exe" \
    "$here/installer.nsi"
echo "Installer: $files/catalogador-setup.exe"
