#!/usr/bin/env bash
# The installer installs, registers and takes everything away again; without either, the manifest is
# enough for a host.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine_tests.sh"
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
packaging=$here/../../packaging/windows
log=$CATALOGADOR_TEST_FOLDER/installer.log
installed=$WINEPREFIX/drive_c/Catalogador
if ! command -v makensis >/dev/null; then
    echo "skipped: nsis is not installed"
    exit 77
fi

trap register_all EXIT
for library in "${libraries[@]}"; do unregister "$library"; done
"$packaging/installer.sh" "${build_folder##*-}" >"$log" || fail "$(cat "$log")"
wine test_windows.exe --gtest_filter='Manifest.*' >"$log" 2>&1 || fail "$(cat "$log")"

wine catalogador-setup.exe /S '/D=C:\Catalogador' || fail "the installer failed"
for file in vemCatalogador.dll vemDatos.dll LNG_QTX_001.dll catalogador.exe uninstall.exe \
    help/es/index.html languages/LNG_QTX_003.po; do
    [ -f "$installed/$file" ] || fail "$file is not installed"
done
cp "$CATALOGADOR_TEST_DEMO" "$CATALOGADOR_TEST_FOLDER/installed.db"
run_script "$(windows_path "$here/calls.vbs")" "$CATALOGADOR_TEST_FOLDER/installed.db" Escrituras \
    >"$log" || fail "$(cat "$log")"
wine 'C:\windows\system32\reg.exe' query 'HKCR\CLSID\{592A528B-62D8-484D-BC6F-2ED557844700}\InprocServer32' /ve |
    grep -qi 'C:\\Catalogador\\vemCatalogador.dll' || fail "another library is registered"

wine "C:\\Catalogador\\uninstall.exe" /S '_?=C:\Catalogador' || fail "the uninstaller failed"
if wine 'C:\windows\system32\reg.exe' query 'HKCR\Catalogador.clsCatalogador' >/dev/null 2>&1; then
    fail "the class stays registered"
fi
# Started in its own place, the uninstaller cannot remove itself.
left=$(find "$installed" -type f ! -name uninstall.exe 2>/dev/null || true)
[ -z "$left" ] || fail "these files stay: $left"
rm -rf --one-file-system "$installed" "$CATALOGADOR_TEST_FOLDER"/installed.db*
