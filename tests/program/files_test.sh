#!/bin/sh
# Files that the program makes: never through a link, and what a killed program leaves behind goes
# away with the next one.
#
#   files_test.sh PROGRAM
set -u

program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
cd "$work" || exit 1
failures=0
fail() {
    echo "FAILED: $1"
    ls -la out
    failures=$((failures + 1))
}
# only FILE...: what is in the folder of exports, hidden files too
only() {
    [ "$(ls -A out)" = "$(printf '%s\n' "$@")" ] || fail "$title: other files are there"
}

mkdir out
echo mine >theirs
ln -s ../theirs out/demo.db
title="the demonstration in the place of a link"
"$program" demo out >/dev/null || fail "$title: it failed"
[ ! -L out/demo.db ] || fail "$title: the link is still there"
[ "$(cat theirs)" = mine ] || fail "$title: it was written through the link"
only demo.db
mv out/demo.db .

export_to() {
    printf 'dialog save "%s" %s\naction 14\nclose\n' "$1" "$2" |
        "$program" run --database demo.db --view 2 >transcript
}
for index in 1 2; do
    title="export in format $index in the place of a link"
    ln -s ../theirs out/list
    export_to out/list $index
    [ ! -L out/list ] || fail "$title: the link is still there"
    [ "$(cat theirs)" = mine ] || fail "$title: it was written through the link"
    only list
    [ "$(stat -c %a out/list)" = 600 ] || fail "$title: others can read it"
    chmod 640 out/list
    export_to out/list $index
    [ "$(stat -c %a out/list)" = 640 ] || fail "$title: it is no longer open to whom it was"
    rm out/list
done
title="a printed document"
printf 'printer "out/list.pdf"\ndialog print ok\naction 15\nclose\n' |
    "$program" run --database demo.db --view 5 >transcript
only list.pdf
[ "$(stat -c %a out/list.pdf)" = 600 ] || fail "$title: others can read it"
rm out/list.pdf

title="an export that is killed"
printf 'sql "%s"\n' "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto) \
With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < 300000) \
Select 2, 100000 + i, 'Fila ' || i From n" |
    "$program" run --database demo.db --view 0 >transcript
export_to out/list 1 &
export=$!
tries=600
until [ -n "$(find out -name '.catalogador-*' -size +0 -path '*/*' 2>/dev/null)" ]; do
    tries=$((tries - 1))
    [ "$tries" -gt 0 ] || break
    sleep 0.02
done
# It is still at work, however long the other takes.
running=$(ps -o pid= --ppid "$export")
kill -STOP $running
title="two exports into one folder"
export_to out/other 2
[ -n "$(find out -name '.catalogador-*')" ] || fail "$title: the folder of the one that runs is gone"
title="an export that is killed"
kill -9 $running
wait "$export" 2>/dev/null
[ -n "$(find out -name '.catalogador-*')" ] || fail "$title: it was over before"
mkdir out/.catalogador-note
ln -s ../theirs out/.catalogador-link
export_to out/third 2
only .catalogador-link other third
[ "$(cat theirs)" = mine ] || fail "$title: it cleared away what a link leads to"

[ "$failures" -eq 0 ]
