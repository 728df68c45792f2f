#!/usr/bin/env bash
# The libraries have the four exports of a COM library and no others, need nothing that Windows does
# not have, and say who they are.
set -euo pipefail
build_folder=$1
cd "$build_folder"
wanted="DllCanUnloadNow
DllGetClassObject
DllRegisterServer
DllUnregisterServer"
for library in vemCatalogador vemDatos LNG_QTX_001 LNG_QTX_002 LNG_QTX_003; do
    description=$(objdump -p "$library.dll" 2>/dev/null || x86_64-w64-mingw32-objdump -p "$library.dll")
    exports=$(sed -n '/Ordinal\/Name/,/^$/s/^[[:space:]]*\[ *[0-9]*\].* \([A-Za-z_@0-9]*\)$/\1/p' <<<"$description")
    if [ "$exports" != "$wanted" ]; then
        echo "$library.dll exports: $exports"
        exit 1
    fi
    imports=$(sed -n 's/.*DLL Name: \(.*\)/\L\1/p' <<<"$description" | sort -u)
    other=$(grep -vxE '(advapi32|comctl32|comdlg32|gdi32|kernel32|msvcrt|ole32|oleacc|oleaut32|shell32|shlwapi|user32|uxtheme|version|odbc32|windowscodecs|msimg32|winmm|rpcrt4)\.dll|winspool\.drv' <<<"$imports" || true)
    if [ -n "$other" ]; then
        echo "$library.dll needs: $other"
        exit 1
    fi
    # The version resource, in the UTF-16 that it is written in.
    if ! LC_ALL=C grep -qaP "O\0r\0i\0g\0i\0n\0a\0l\0F\0i\0l\0e\0n\0a\0m\0e\0" "$library.dll"; then
        echo "$library.dll has no version resource"
        exit 1
    fi
done
