# Sourced by the tests of this folder: a person at a desk, with the real window, its keys and mouse.
# Without a display it starts a virtual one.
# shellcheck shell=bash
set -euo pipefail

program=$1
demo=$2
# Pictures of the window go there, for people to look at.
pictures=$3
# Prints a colour of the desktop.
system_colour=$4

. "$(dirname "${BASH_SOURCE[0]}")/../../tools/virtual_display.sh"
own_display=""
if [ -z "${DISPLAY:-}" ]; then
    start_display
    own_display=yes
fi

work=$(mktemp -d)
window_process=""
leave() {
    [ -z "$window_process" ] || kill "$window_process" 2>/dev/null || true
    rm -rf --one-file-system "$work"
    [ -z "$own_display" ] || stop_display
}
trap leave EXIT
cp "$demo" "$work/desk.db"
mkdir -p "$pictures"
# What the desk that the test runs at is set to must not show.
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8

fail() {
    echo "FAILED: $*" >&2
    take_picture failed || true
    tail -n 25 "$work/trace" >&2 || true
    exit 1
}

# until_true COMMAND...: fails when the command does not succeed within ten seconds
until_true() {
    local tries=100
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || fail "never came true: $*"
        sleep 0.1
    done
}

window_named() { xdotool search --onlyvisible --name "^$1\$"; }
no_window_named() { ! window_named "$1"; }
# Sets window. A search fails, too, when another window goes meanwhile.
find_window() { window=$(window_named "$1" | tail -n 1) && [ -n "$window" ]; }
has_keys() { [ "$(xdotool getwindowfocus)" = "$window" ]; }
# focus_is NAME: the control that the program gave the focus to last
focus_is() {
    [ "$(grep '"event":"focus"' "$work/trace" | tail -n 1)" = "{\"event\":\"focus\",\"control\":\"$1\"}" ]
}
wait_focus() { until_true focus_is "$1"; }

# open_view N: shows a view and waits until it takes input
open_view() {
    "$program" open --trace --database "$work/desk.db" --view "$1" >"$work/trace" &
    window_process=$!
    wait_window "$2"
    wait_focus grdGrilla
}
wait_window() {
    until_true find_window "$1"
    until_true has_keys
}
# A box in front of the view's window; the toolkit gives it the window's title or none.
question_shown() {
    local focused
    focused=$(xdotool getwindowfocus) && [ "$focused" != "$window" ] && [ "$focused" != 1 ]
}
end_view() {
    wait "$window_process" || fail "the program ended with status $?"
    window_process=""
}

press() { xdotool key --delay 2 "$@"; }
write() { xdotool type --delay 2 "$1"; }
take_picture() { import -window root "$pictures/$(basename "$0" .sh)-$1.png"; }

# What a query on the records gives, one JSON row a line.
query() {
    printf 'sql "%s"\n' "$1" |
        "$program" run --database "$work/desk.db" --view 0 --surface script |
        sed -n 's/.*"event":"sql".*"rows":\(.*\),"affected".*/\1/p'
}
wait_query() {
    local tries=50
    until [ "$(query "$1")" = "$2" ]; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || fail "$1 gives $(query "$1"), not $2"
        sleep 0.1
    done
}

# Where the panel begins under the bars: the first pixel of its colour down the left edge.
bars_height() {
    import -window "$window" png:- | convert png:- -crop 1x400+1+0 txt:- |
        awk -F'[,:]' '/#CECFDE/ && !found { print $2; found = 1 }'
}
# measure_view VIEW: sets grid_left (pixels in the window), grid_below (under the bars)
measure_view() {
    local state grid
    state=$(echo state | "$program" run --database "$work/desk.db" --view "$1" --surface wx |
        grep '"event":"state"')
    grid=$(sed -E 's/.*"grid":(.*)"appearance".*/\1/' <<<"$state")
    grid_left=$(($(sed -E 's/.*"left":([0-9]+),.*/\1/' <<<"$grid") / twips_per_pixel))
    grid_below=$(($(sed -E 's/.*"top":([0-9]+),.*/\1/' <<<"$grid") / twips_per_pixel))
}
twips_per_pixel=15
# Sets header_middle and first_row (pixels in the window) of the view that is shown and measured.
measure_rows() {
    local grid_top
    grid_top=$(($(bars_height) + grid_below))
    header_middle=$((grid_top + 10))
    first_row=$((grid_top + 32))
}
click_at() { xdotool mousemove --window "$window" "$2" "$3" sleep 0.1 click "$1"; }
drag() {
    xdotool mousemove --window "$window" "$1" "$2" sleep 0.1 mousedown 1 sleep 0.1 \
        mousemove_relative -- "$3" 0 sleep 0.1 mousemove_relative -- "$3" 0 sleep 0.1 mouseup 1
}

# row_1 VIEW LINE...: code of the first row after the lines of a script
row_1() {
    local view=$1
    shift
    printf '%s\n' "$@" 'rows 1 1' |
        "$program" run --database "$work/desk.db" --view "$view" --surface script |
        sed -n 's/.*"event":"rows".*"code":"\([0-9]*\)".*/\1/p'
}
loaded() { grep '"event":"statement"' "$work/trace" | tail -n 1 | grep -q "CteCodigo =$1\""; }
