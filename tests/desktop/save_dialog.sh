#!/usr/bin/env bash
# The dialog of an export asks before it replaces a file, also one that is there under the name with
# the extension that was left out; without the answer Yes the file stays.
. "$(dirname "$0")/desk.sh"

dialog_shown() { window_named 'Exportar la lista'; }
# The box that asks has the dialog's title; its second button, No, is the one that Enter presses.
asked() { question_shown && ! dialog_has_keys; }
dialog_has_keys() { focused_size && [ "$width" -gt 800 ]; }
# Its button Save; a first click may only close the list of names that the dialog proposes.
save() {
    sleep 0.5
    # What the dialog has completed by itself is selected.
    press Delete
    local dialog width height
    dialog=$(window_named 'Exportar la lista' | tail -n 1)
    eval "$(xdotool getwindowgeometry --shell "$dialog" | sed -n 's/^WIDTH=/width=/p; s/^HEIGHT=/height=/p')"
    for _ in 1 2; do
        dialog_has_keys || break
        xdotool mousemove --window "$dialog" $((width - 50)) $((height - 25)) sleep 0.2 click 1 sleep 0.3
    done
}
focused_size() { eval "$(xdotool getwindowgeometry --shell "$(xdotool getwindowfocus)" | sed -n 's/^WIDTH=/width=/p')"; }
replaced() { ! grep -qx kept "$work/list.xlsx"; }
stays() { [ "$(cat "$work/list.xlsx")" = kept ] || fail "$1"; }

echo kept >"$work/list.xlsx"
open_view 5 Escrituras
press ctrl+shift+s
until_true dialog_shown
until_true dialog_has_keys
sleep 0.5
for name in list.xlsx list; do
    press ctrl+a
    write "$work/$name"
    save
    until_true asked
    take_picture "asks-$name"
    press Return
    until_true dialog_has_keys
    stays "$name was replaced without a yes"
done
press ctrl+a
write "$work/other"
save
until_true test -s "$work/other.xlsx"
until_true question_shown
press n
wait_focus grdGrilla
press ctrl+shift+s
until_true dialog_has_keys
sleep 0.5
press ctrl+a
write "$work/list.xlsx"
save
until_true asked
press s
until_true replaced
until_true question_shown
press n alt+F4
end_view
