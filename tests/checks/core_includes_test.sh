#!/usr/bin/env bash
# The check of the core's includes lets through what is allowed and finds what is not.
set -euo pipefail
check=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/core_includes.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# verdict FOLDER LINE: what the check says of a core with this line in a file of that folder
verdict() {
    rm -rf "$work/src"
    for folder in runtime platform/controls printing modules form/grid component; do
        mkdir -p "$work/src/$folder"
        echo '#include <string>' >"$work/src/$folder/file.cpp"
    done
    echo "$2" >>"$work/src/$1/file.cpp"
    if bash "$check" "$work/src" >/dev/null; then echo allowed; else echo refused; fi
}

failures=0
expect() {
    got=$(verdict "$2" "$3")
    if [ "$got" != "$1" ]; then
        echo "$3 in $2 is $got, not $1"
        failures=$((failures + 1))
    fi
}

expect allowed runtime '#include <unordered_map>'
expect allowed form/grid '#include "platform/controls/control.h"'
expect allowed modules '#include "runtime/text.h"  // a remark'
for folder in runtime platform/controls printing modules form/grid component; do
    expect refused "$folder" '#include <unistd.h>'
    expect refused "$folder" '#include <windows.h>'
    expect refused "$folder" '#  include <sql.h>'
    expect refused "$folder" '#include <wx/frame.h>'
    expect refused "$folder" '#include "adapters/odbc/odbc_connection.h"'
    expect refused "$folder" '#include "runtime/../adapters/odbc/odbc_connection.h"'
    expect refused "$folder" '#include HEADER'
    expect refused "$folder" '#include <string.h>'
    expect refused "$folder" '#include <filesystem>'
    expect refused "$folder" '#ifdef _WIN32'
    expect refused "$folder" '#if defined(__linux__)'
done
expect refused runtime '#include "platform/rdo.h"'
expect refused platform/controls '#include "modules/modIds.h"'
expect refused modules '#include "form/frmCatalogador.h"'
[ "$failures" -eq 0 ]
