#!/usr/bin/env bash
# Makes the pictures of the help from the program itself, on a virtual display.
#
#   docs/make_pictures.sh [PROGRAM]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/virtual_display.sh

program=$(realpath "${1:-build/release/catalogador}")
pictures=$PWD/help/images
work=$(mktemp -d)

end() {
    kill "${opened:-}" 2>/dev/null || true
    stop_display
    rm -rf "$work"
}
trap end EXIT

start_display
export HOME=$work XDG_CONFIG_HOME=$work LANG=C.UTF-8
"$program" demo "$work" >"$work/log"

# open_screen LANGUAGE: the currencies, with the focus in the list
open_screen() {
    "$program" open --database "$work/demo.db" --view 3 --language "$1" &
    opened=$!
    wait_for 20 find_window
    xdotool windowactivate --sync "$window"
    sleep 1
}

find_window() {
    window=$(xdotool search --onlyvisible --pid "$opened" --name '.+' 2>/dev/null | tail -n 1)
    [ -n "$window" ]
}

close_screen() {
    xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
    wait "$opened"
}

press() { xdotool key --clearmodifiers --delay 120 "$@"; }

# picture NAME: of the window with its frame left out, few colours to keep it small
picture() {
    sleep 0.7
    import -silent -window "$window" -crop "x292+0+0" +repage -strip +dither -colors 128 \
        "png8:$pictures/$1.png"
}

for icon in src/adapters/wx/icons/*.svg; do
    rsvg-convert --width 16 --height 16 "$icon" >"$pictures/icon-$(basename "$icon" .svg).png"
done
rm "$pictures/icon-18.png"

for language in es:1 en:2 pt:3; do
    IFS=: read -r name number <<<"$language"
    open_screen "$number"
    picture "screen-$name"
    press Down Down Down Return
    picture "edit-$name"
    press Escape
    press ctrl+f
    xdotool type --delay 60 'peso*a'
    press Return
    xdotool mousemove 1270 890
    picture "filter-$name"
    close_screen
done
