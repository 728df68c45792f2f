#!/usr/bin/env bash
# The clipboard, the selection of the desktop and a drop in the real text boxes: one line, cut to
# what fits, and a field is never emptied by it. Ctrl+Z takes back what was typed.
. "$(dirname "$0")/desk.sh"

# hold SELECTION TEXT: what another program would have put there (clipboard or primary)
hold() {
    printf '%b' "$2" >"$work/held"
    xclip -selection "$1" -quiet <"$work/held" >/dev/null 2>&1 &
    until_true holds "$1"
}
holds() { xclip -selection "$1" -o | cmp -s - "$work/held"; }
copy() { hold clipboard "$1"; }
save_and_ask() {
    press ctrl+g
    until_true question_shown
    press Return
    wait_focus grdGrilla
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
press alt+F4
end_view
