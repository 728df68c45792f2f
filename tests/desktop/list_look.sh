#!/usr/bin/env bash
# How the list is drawn: the selected row is gold without a rectangle round it, the list as a whole
# shows that it has the focus, lines have the colour of the desktop's shadows; a click on a column's
# edge changes nothing, and the right button below the last row opens the menu.
. "$(dirname "$0")/desk.sh"

query "Delete From genCodigoTexto Where CTeIDTipoVista = 5 And CTeCodigo > 5" >/dev/null
measure_view 5
open_view 5 Escrituras
measure_rows
grid_top=$((header_middle - 10))
# pixels X: the colours down the list at a pixel of the window, one a line
pixels() {
    import -window "$window" png:- | convert png:- -crop "1x400+$1+$grid_top" txt:- |
        sed -n 's/.*\(#[0-9A-F]\{6\}\).*/\1/p'
}
# runs X: the same as "COUNT COLOUR"
runs() { pixels "$1" | uniq -c | sed 's/^ *//'; }

click_at 1 "$((grid_left + 100))" "$first_row"
sleep 0.5
take_picture focused
focused=$(pixels "$grid_left" | sed -n 60p)
between=$(runs $((grid_left + 3)) | sed -n '/#FFD700/{p;n;p;n;p;}')
gold=$(sed -n '1s/ .*//p' <<<"$between")
line=$(sed -n '2p' <<<"$between")
next_row=$(sed -n '3s/ .*//p' <<<"$between")
[ "$gold" = "$next_row" ] || fail "the selected row is $gold pixels of gold, another one has $next_row"
case $line in
    '1 #'*) ;;
    *) fail "no line of one pixel is below the selected row: $line" ;;
esac
shadow=${line#1 }
[ "$shadow" = "$("$system_colour")" ] ||
    fail "lines are drawn in $shadow, the desktop's shadows in $("$system_colour")"
below=$(runs $((grid_left + 3)) | grep -c "^1 $shadow")
[ "$below" -gt 2 ] || fail "the line below the selected row has a colour of its own"

press ctrl+n
wait_focus txtTexto1
sleep 0.3
unfocused=$(pixels "$grid_left" | sed -n 60p)
[ "$focused" != "$unfocused" ] || fail "the list looks the same with and without the focus"
press Escape
wait_focus grdGrilla

edge=$((grid_left + 1000 / twips_per_pixel))
click_at 1 $((edge + 3)) "$header_middle"
click_at 1 $((edge - 3)) "$header_middle"

press Home Down Down
click_at 3 $((grid_left + 100)) $((first_row + 150))
take_picture menu
sleep 0.3
# The second entry of the menu opens the record that was selected before.
press Down Down Return
third=$(printf 'rows 3 1\n' | "$program" run --database "$work/desk.db" --view 5 --surface script |
    sed -n 's/.*"code":"\([0-9]*\)".*/\1/p')
until_true loaded "$third"
press Escape alt+F4
end_view
! grep -q 'GuardarAnchoColumnas\|"sql":"Select ABMColumnasAncho from' "$work/trace" ||
    fail "a click on an edge counts as a change of the widths"
