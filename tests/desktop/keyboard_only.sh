#!/usr/bin/env bash
# The keyboard does everything: a record is modified by typing from the list, menus, the context
# menu, the toolbar and questions are worked by keys, and an open menu has all keys.
. "$(dirname "$0")/desk.sh"


open_view 1 Países
# Letters find the record; Modify, and what is typed next is in its first field.
write peru
press ctrl+m
write PE
wait_focus txtTexto1
press Return
wait_focus txtTexto2
write "Peru y Lima"
take_picture typed
# Escape asks first, and No is what Enter answers.
press Escape
until_true question_shown
take_picture escape
press Return
until_true has_keys
wait_focus txtTexto2
press ctrl+g
until_true question_shown
# The letter of the button alone.
press s
until_true has_keys
wait_focus grdGrilla
wait_query "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoCorto = 'PE'" '[["Peru y Lima"]]'

# A menu opened from the list has the keys: the letter is its own, Escape closes nothing else.
press alt+e
sleep 0.5
take_picture menu
press Escape Escape
press F10
sleep 0.5
press Escape Escape
press alt+e
sleep 0.5
press Down Return
wait_focus grdGrilla
until_true grep -q CteCodigo "$work/trace"
press Escape

# The context menu at the selected row.
press shift+F10
sleep 0.5
take_picture context
press Escape

# The toolbar: the fourth of the buttons that are enabled opens the filter.
press F6
wait_focus toolbar
press Right Right Right
sleep 0.3
take_picture toolbar
press Return
wait_focus filter
write lima
press Return
wait_focus grdGrilla
take_picture filtered
press ctrl+f
wait_focus filter
press Escape
wait_focus grdGrilla

# The delete question names the record and leaves its row in sight; N alone says no.
press End Delete
until_true question_shown
take_picture delete
press n
until_true has_keys
[ "$(query "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoCorto = 'ZW'")" = '[[1]]' ] ||
    fail "N deleted the record"
press alt+F4
end_view
