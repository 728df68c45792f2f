#!/usr/bin/env bash
# A dead key has begun a letter: Enter ends that and does not move on, and a letter makes it whole.
. "$(dirname "$0")/desk.sh"

keys_as_before() { setxkbmap us; }
# A keyboard with dead keys, for this test alone.
setxkbmap us -variant intl
trap 'keys_as_before; leave' EXIT

open_view 1 Países
press ctrl+n
wait_focus txtTexto1
write QX
press Return
wait_focus txtTexto2
press P e r
# The key beside Enter is a dead acute accent there.
press dead_acute
press Return
sleep 0.5
! question_shown || fail "Enter has saved in the middle of a letter"
take_picture ended
press ctrl+a
press P e r
press dead_acute
press u
press Return
until_true question_shown
press Return
wait_focus grdGrilla
wait_query "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoCorto = 'QX'" '[["Perú"]]'
press alt+F4
end_view
