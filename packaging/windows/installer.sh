#!/usr/bin/env bash
# Makes the installer of what build.sh has built, beside it: catalogador-setup.exe
#
#   installer.sh [x64|x86]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
processor=${1:-x64}
files=$(cd "$here/../../build/windows-$processor" && pwd)
version=$(sed -n 's/^project(catalogador VERSION \([0-9.]*\).*/\1/p' "$here/../../CMakeLists.txt")
named=amd64
[ "$processor" = x86 ] && named=x86
sed "s/processorArchitecture=\"[^\"]*\"/processorArchitecture=\"$named\"/" \
    "$here/vemCatalogador.manifest" >"$files/vemCatalogador.manifest"
makensis -V2 -DPROCESSOR="$processor" -DFILES="$files" -DVERSION="$version" -DOUTPUT="$files/catalogador-setup.exe" \
    "$here/installer.nsi"
echo "Installer: $files/catalogador-setup.exe"
