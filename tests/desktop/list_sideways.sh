#!/usr/bin/env bash
# A list that is wider than its window: Left and Right, Shift and the wheel and a horizontal wheel go
# sideways, Ctrl+Home and Ctrl+End to its corners; a double click on a column's edge fits the column
# and sorts nothing; Ctrl+C copies the row, Ctrl+Shift+C the cell.
. "$(dirname "$0")/desk.sh"

query "Update Catalogador Set ABMColumnasAncho = '6000|9000|9000|9000|9000' Where ABMIDFormVista = 4" >/dev/null
measure_view 4
open_view 4 Idiomas
measure_rows
# What the headers show, without the pointer.
headers() {
    import -window "$window" -crop "600x20+$((grid_left + 2))+$((header_middle - 10))" png:- | md5sum
}
looks() { [ "$(headers)" = "$1" ]; }
looks_otherwise() { [ "$(headers)" != "$1" ]; }
until_true looks "$(headers)"
left_end=$(headers)

press Right
until_true looks_otherwise "$left_end"
press Left
until_true looks "$left_end"
press ctrl+End
until_true looks_otherwise "$left_end"
right_end=$(headers)
take_picture corner
press ctrl+c
press ctrl+Home
until_true looks "$left_end"

xdotool mousemove --window "$window" $((grid_left + 200)) $((first_row + 60))
xdotool keydown Shift_L click 5 click 5 keyup Shift_L
until_true looks_otherwise "$left_end"
xdotool keydown Shift_L click 4 click 4 keyup Shift_L
until_true looks "$left_end"
xdotool click 7 click 7
until_true looks_otherwise "$left_end"
xdotool click 6 click 6
until_true looks "$left_end"
[ "$right_end" != "$left_end" ] || fail "both ends look the same"

# The last row was copied with Ctrl+End, now the first one and its first cell.
clipboard_is() { [ "$(timeout 5 xclip -o -selection clipboard)" = "$1" ]; }
press ctrl+c
until_true clipboard_is $'aaa\tGhotuo\tIndividual\tViva\t0'
press ctrl+shift+c
until_true clipboard_is aaa

first=$(row_1 4)
edge=$((grid_left + 6000 / twips_per_pixel))
xdotool mousemove --window "$window" "$edge" "$header_middle" sleep 0.1 click --repeat 2 --delay 60 1
until_true looks_otherwise "$left_end"
take_picture fitted
press Home Return
until_true loaded "$first"
press Escape
wait_focus grdGrilla
press alt+F4
end_view
width=$(query "Select ABMColumnasAncho From Catalogador Where ABMIDFormVista = 4" | sed -n 's/^\[\["\([0-9]*\)|.*/\1/p')
[ "$width" -gt 300 ] && [ "$width" -lt 3000 ] || fail "the fitted column is $width twips wide"
