#!/usr/bin/env bash
# The mouse in the grid: a header is clicked twice, then a column's edge is dragged, and the width
# is kept with the view.
. "$(dirname "$0")/desk.sh"

once=$(row_1 5 'grid header 1')
twice=$(row_1 5 'grid header 1' 'grid header 1')
[ "$once" != "$twice" ] || fail "both directions begin with the same record"

measure_view 5
open_view 5 Escrituras
measure_rows
second_column=$((grid_left + 150))
first_opens() {
    press Home Return
    until_true loaded "$1"
    press Escape
}
click_at 1 "$second_column" "$header_middle"
first_opens "$once"
click_at 1 "$second_column" "$header_middle"
first_opens "$twice"
take_picture sorted

edge=$((grid_left + 1000 / twips_per_pixel))
drag "$edge" "$header_middle" 20
take_picture dragged
press alt+F4
end_view
widths=$(query "Select ABMColumnasAncho From Catalogador Where ABMIDFormVista = 5")
case $widths in
    '[["15'*'|5200|1200"]]' | '[["16'*'|5200|1200"]]') ;;
    *) fail "the widths are $widths" ;;
esac
