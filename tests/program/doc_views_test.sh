#!/bin/sh
# The views that the pages describe work as they stand there: a record is saved in each.
#
#   doc_views_test.sh PROGRAM SOURCE-FOLDER
set -eu

program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
"$program" demo "$work" >/dev/null
# Each statement of the pages as one line of a script.
statements() {
    awk '/^```sql$/ { shown = 1; next } /^```$/ { shown = 0 } shown' "$1" |
        awk '{ line = line (line == "" ? "" : " ") $0 }
            /;$/ { gsub(/\\/, "\\\\", line); gsub(/"/, "\\\"", line)
                   sub(/;$/, "", line); print "sql \"" line "\""; line = "" }'
}
{
    statements "$2/README.md"
    statements "$2/docs/describing-a-view.md"
    echo 'activate 40'
    echo 'action 3'
    echo 'set txtTexto1 "Verde"'
    echo 'answer 6'
    echo 'action 6'
    echo 'rows'
    echo 'close'
    echo 'activate 41'
    echo 'state'
    echo 'close'
} >"$work/script"
"$program" run --database "$work/demo.db" --view 0 --language 2 --script "$work/script" \
    >"$work/transcript"
says() {
    grep -qF -- "$1" "$work/transcript" || {
        echo "FAILED: '$1' is missing"
        cat "$work/transcript"
        exit 1
    }
}
says '"caption":"Units of measure"'
says '"cells":["Verde"]'
! grep '"event":"error"' "$work/transcript"
! grep '"event":"refused"' "$work/transcript"
