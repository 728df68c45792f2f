#!/usr/bin/env bash
# The letters of a box's buttons press them with Alt as well as alone, and Escape asks before it
# discards an edit only when something has changed in it.
. "$(dirname "$0")/desk.sh"

remaining() { query "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 1"; }

open_view 1 Países
before=$(remaining)
press Delete
until_true question_shown
press alt+n
until_true has_keys
[ "$(remaining)" = "$before" ] || fail "Alt+N deleted the record"
press Delete
until_true question_shown
press Escape
until_true has_keys
[ "$(remaining)" = "$before" ] || fail "Escape deleted the record"

# Nothing has changed: Escape cancels at once.
press ctrl+m
press Tab
wait_focus txtTexto1
press Escape
wait_focus grdGrilla
until_true has_keys
# What was changed and changed back is no change.
press ctrl+m
press Tab Tab
wait_focus txtTexto2
press End x BackSpace Escape
wait_focus grdGrilla
until_true has_keys
# Something has changed: it asks, and Alt with the letter of Yes discards it.
press ctrl+m
press Tab Tab
wait_focus txtTexto2
press End x Escape
until_true question_shown
press alt+s
wait_focus grdGrilla
until_true has_keys
press alt+F4
end_view
