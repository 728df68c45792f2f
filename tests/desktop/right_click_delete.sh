#!/usr/bin/env bash
# A record is deleted from the menu that the right mouse button opens. No is the answer that Enter
# gives.
. "$(dirname "$0")/desk.sh"

code=$(row_1 5)
count() { query "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 5 And CTeCodigo = $code"; }

measure_view 5
open_view 5 Escrituras
measure_rows
delete_first_row() {
    click_at 3 $((grid_left + 150)) "$first_row"
    sleep 0.5
    take_picture menu
    press Up Return
    until_true question_shown
}
delete_first_row
take_picture question
press Return
until_true has_keys
[ "$(count)" = '[[1]]' ] || fail "Enter deleted the record"
delete_first_row
press Right Return
until_true has_keys
wait_query "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 5 And CTeCodigo = $code" '[[0]]'
take_picture deleted
press alt+F4
end_view
