#!/usr/bin/env bash
# A clerk's work by the keyboard alone: 30 subdivisions on an empty desk, a country that is missing
# entered on the way, a mistake of each kind, a filter, a delete. Every key is counted.
. "$(dirname "$0")/desk.sh"

keys=0
press() {
    keys=$((keys + $#))
    xdotool key --delay 2 "$@"
}
write() {
    keys=$((keys + ${#1}))
    xdotool type --delay 2 "$1"
}
confirm() {
    until_true question_shown
    press Return
    until_true has_keys
}
# enter CODE NAME: begins a record and fills its two texts
enter() {
    press ctrl+n
    wait_focus txtTexto1
    write "$1"
    press Return
    wait_focus txtTexto2
    write "$2"
    press Return
    wait_focus cmbValor1
}
# choose COUNTRY KIND: by their letters, then saves
choose() {
    write "$1"
    press Return
    wait_focus cmbValor2
    write "$2"
    press Return
    confirm
    wait_focus grdGrilla
}
# The box that follows on the one whose answer is pressed may leave the window no moment with the keys.
another_question() { question_shown && [ "$(xdotool getwindowfocus)" != "$question" ]; }

query "Delete From genCodigoTexto Where CTeIDTipoVista = 2" >/dev/null
open_view 2 Subdivisiones

# The first one's country is missing: F2 leads to the countries and brings it back.
enter ZZ-1 "Zona 1"
write per
press F2
wait_window Países
wait_focus txtTexto1
press Escape
wait_focus grdGrilla
press ctrl+n
wait_focus txtTexto1
write ZZ
press Return
wait_focus txtTexto2
write Zembla
press Return
confirm
press alt+F4
until_true no_window_named Países
wait_window Subdivisiones
press Return
wait_focus cmbValor2
write prov
press Return
confirm
wait_focus grdGrilla
wait_query "Select p.CTeTextoLargo From genCodigoTexto s Join genCodigoTexto p On p.CTeIDTipoVista = 1 And p.CTeCodigo = s.CTeValor1 Where s.CTeTextoCorto = 'ZZ-1'" '[["Zembla"]]'

# A code that is taken already: the box says so, the cursor stands there, and the code is mended.
enter ZZ-1 "Zona 2"
write peru
press Return
wait_focus cmbValor2
write prov
press Return
until_true question_shown
question=$(xdotool getwindowfocus)
press Return
until_true another_question
press Return
until_true has_keys
wait_focus txtTexto1
press ctrl+a
write ZZ-2
press ctrl+g
confirm
wait_focus grdGrilla
# Something required is missing: Enter stays there, and saving says so.
press ctrl+n
wait_focus txtTexto1
write ZZ-3
press Return
wait_focus txtTexto2
press Return
press ctrl+g
until_true question_shown
press Return
until_true has_keys
wait_focus txtTexto2
write "Zona 3"
press Return
wait_focus cmbValor1
choose peru prov

for number in $(seq 4 30); do
    enter "ZZ-$number" "Zona $number"
    choose peru prov
done
wait_query "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 2 And CTeTextoCorto Like 'ZZ-%'" '[[30]]'
take_picture entered

# An edit begun by mistake is discarded, a record is found by the filter and deleted.
press ctrl+m
write X
wait_focus txtTexto1
press Escape
until_true question_shown
press s
until_true has_keys
wait_focus grdGrilla
press ctrl+f
wait_focus filter
write "zona 30"
press Return
wait_focus grdGrilla
press Down Delete
until_true question_shown
take_picture delete
press s
until_true has_keys
wait_query "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 2 And CTeTextoCorto Like 'ZZ-%'" '[[29]]'
[ "$(query "Select Count(*) From genCodigoTexto Where CTeTextoCorto = 'ZZ-30'")" = '[[0]]' ] ||
    fail "another record was deleted"
press alt+F4
end_view
# A trained hand makes some 200 strokes a minute.
echo "$keys keys, $((keys * 60 / 200)) seconds at 200 keys a minute"
[ "$keys" -lt 1200 ] || fail "$keys keys are more than the work needs"
