#!/usr/bin/env bash
# Workbooks of the demonstration lists, filtered and sorted, hold exactly the rows of the grid, read
# by two programs that are not ours.
set -euo pipefail
program=$1
demo=$2
here=$(cd "$(dirname "$0")" && pwd)

work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
cd "$work"
mkdir app

# export_view VIEW LINE...: the lines, then the rows that are shown, then the export
export_view() {
    local view=$1
    shift
    cp "$demo" desk.db
    {
        printf '%s\n' "$@"
        echo rows
        echo "dialog save \"$view.xlsx\" 1"
        echo 'answer 7'
        echo 'action 14'
    } | "$program" run --database desk.db --view "$view" --setting Ruta=app/program >"$view.transcript"
    soffice --headless --convert-to 'csv:Text - txt - csv (StarCalc):9,34,76,1,,0,false,true' \
        "$view.xlsx" >soffice.log 2>&1 || { cat soffice.log; exit 1; }
    /usr/bin/python3 "$here/compare_rows.py" "$view.transcript" "$view.xlsx" "$view.csv"
}

export_view 2 'action 10' 'set filter "an"' 'key Enter' 'grid header 1'
export_view 3 'grid header 2'
export_view 4
export_view 5 'action 10' 'set filter "no hay nada así"' 'key Enter'
