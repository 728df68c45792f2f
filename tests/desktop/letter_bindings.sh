#!/usr/bin/env bash
# Keys are bound by the first character of the language's text: a small letter binds no key of the
# keyboard, a letter beyond ASCII does, and no entry of a menu listens to a key of its own.
. "$(dirname "$0")/desk.sh"

languages=$(cd "$(dirname "$0")/../../languages" && pwd)
cp -r "$languages" "$work/texts"
# open_with TEXT: the view, with that text for the letter of "new"
open_with() {
    awk -v text="$1" '/^msgctxt "1246"$/ { found = 1 }
        found && /^msgstr/ { $0 = "msgstr \"" text "\""; found = 0 } { print }' \
        "$languages/LNG_QTX_001.po" >"$work/texts/LNG_QTX_001.po"
    "$program" open --trace --database "$work/desk.db" --view 5 --messages "$work/texts" \
        >"$work/trace" &
    window_process=$!
    wait_window Escrituras
    wait_focus grdGrilla
}
close_view() {
    press Escape alt+F4
    end_view
}

leave_keys() {
    setxkbmap us || true
    leave
}
trap leave_keys EXIT

open_with N
press ctrl+n
wait_focus txtTexto1
close_view

open_with n
press ctrl+n
# The key after it is answered, so that one was too.
press ctrl+m
until_true grep -q 'CteCodigo =' "$work/trace"
! grep -q '"control":"txtTexto1"' "$work/trace" || fail "a small letter is bound to a key"
close_view

setxkbmap es
open_with Ñ
press ctrl+ntilde
wait_focus txtTexto1
close_view
