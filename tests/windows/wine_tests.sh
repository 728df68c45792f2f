# Sourced with the build folder as the first argument: what the tests under Wine share.
# shellcheck shell=bash

build_folder=$1
libraries=(vemCatalogador vemDatos LNG_QTX_001 LNG_QTX_002 LNG_QTX_003)

if [ -z "${WINEPREFIX:-}" ]; then
    echo "skipped: WINEPREFIX names no Wine prefix; tools/windows/test.sh makes one"
    exit 77
fi
if [ -z "${DISPLAY:-}" ]; then
    echo "skipped: there is no display; tools/windows/test.sh starts one"
    exit 77
fi
export CATALOGADOR_TEST_FOLDER=$build_folder/tests/windows/work
export CATALOGADOR_TEST_DEMO=$build_folder/tests/journeys/demo/demo.db
mkdir -p "$CATALOGADOR_TEST_FOLDER"
cd "$build_folder"

fail() {
    echo "$*" >&2
    exit 1
}

# The name by which programs under Wine know a file of this system.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

register() { wine 'C:\windows\system32\regsvr32.exe' /s "$(windows_path "$build_folder/$1.dll")"; }
unregister() { wine 'C:\windows\system32\regsvr32.exe' /u /s "$(windows_path "$build_folder/$1.dll")"; }
register_all() {
    local library
    for library in "${libraries[@]}"; do
        register "$library" || fail "$library.dll does not register"
    done
}

# What a host in VBScript prints; its status is that of the script.
run_script() { wine 'C:\windows\system32\cscript.exe' //nologo "$@" | sed -u 's/\r//'; }
