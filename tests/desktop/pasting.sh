#!/usr/bin/env bash
# The clipboard, the selection of the desktop and a drop in the real text boxes: one line, cut to
# what fits, and a field is never emptied by it. Ctrl+Z takes back what was typed.
. "$(dirname "$0")/desk.sh"

owners=()
trap 'kill "${owners[@]}" 2>/dev/null || true; leave' EXIT
# hold SELECTION TEXT: what another program would have put there (clipboard or primary)
hold() {
    printf '%b' "$2" >"$work/held"
    until_true puts_there "$1"
}
puts_there() {
    xclip -selection "$1" -quiet <"$work/held" >/dev/null 2>&1 &
    owners+=($!)
    sleep 0.1
    timeout 2 xclip -selection "$1" -o | cmp -s - "$work/held"
}
copy() { hold clipboard "$1"; }
save_and_ask() {
    press ctrl+g
    until_true question_shown
    press Return
    wait_focus grdGrilla
}

# The second field stands under the first, right of the captions.
middle_click_into_second_field() {
    xdotool mousemove --window "$window" 250 $(($(bars_height) + 45)) sleep 0.2 click 2
}

open_view 1 Países
press ctrl+n
wait_focus txtTexto1
copy '  \n12345678901\r\n'
press ctrl+v
press Tab
wait_focus txtTexto2
copy '\tUno\r\ndos\ttres\n '
press ctrl+v ctrl+a
copy ' \n\t'
press ctrl+v
take_picture pasted
save_and_ask
wait_query "Select CTeTextoCorto, CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoLargo Like 'Uno%'" '[["12","Uno dos tres"]]'

# The desktop's selection comes with the middle button.
press ctrl+n
wait_focus txtTexto1
write 'QX'
press Tab
wait_focus txtTexto2
hold primary ' tres\ncuatro\n'
middle_click_into_second_field
save_and_ask
wait_query "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoCorto = 'QX'" '[["tres cuatro"]]'

# Ctrl+Z takes back what was typed, and brings it again.
press ctrl+n
wait_focus txtTexto1
write 'QY'
press Tab
wait_focus txtTexto2
write 'Otra'
press ctrl+z ctrl+z ctrl+z
write 'Cosa'
press ctrl+z
write 'Tercera'
press ctrl+z ctrl+z
save_and_ask
wait_query "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeTextoCorto = 'QY'" '[["Tercera"]]'
press alt+F4
end_view
