#!/usr/bin/env bash
# A text that is dropped into a field becomes one line and is cut to what fits.
. "$(dirname "$0")/desk.sh"

echo 'sql "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeTextoLargo) Values (1, 9000, '"'1', '\\nDos'"')"' |
    "$program" run --database "$work/desk.db" --view 0 --surface script >/dev/null

open_view 1 Países
press Return
wait_focus grdGrilla
until_true loaded 9000
first_field=$(($(bars_height) + 17))
click_at 1 300 $((first_field + 27))
wait_focus txtTexto2
press ctrl+a
take_picture before
xdotool mousemove --window "$window" 150 $((first_field + 27)) sleep 0.2 mousedown 1 sleep 0.2 \
    mousemove_relative -- 4 -4 sleep 0.2 mousemove_relative -- 4 -6 sleep 0.2 \
    mousemove --window "$window" 150 "$first_field" sleep 0.5 \
    mousemove_relative -- 1 0 sleep 0.5 mouseup 1
sleep 0.5
take_picture after
press ctrl+g
until_true question_shown
press Return
wait_focus grdGrilla
wait_query "Select CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo = 9000" '[["1D"]]'
press alt+F4
end_view
