#!/usr/bin/env bash
# The window of a user makes use of the screen and never grows beyond it; the columns that do not fit
# are reached by the list's scroll bar. The size that the user gives it comes back the next time, for
# that user and view only, and neither with --fresh nor under a script.
. "$(dirname "$0")/desk.sh"

# frame: left, top, width and height of the window with its borders
frame() {
    local about borders
    about=$(xwininfo -id "$window")
    number() { sed -n "s/.*$1: *//p" <<<"$about"; }
    borders=$(xprop -id "$window" _NET_FRAME_EXTENTS | sed 's/.*= //; s/,//g')
    # shellcheck disable=SC2086
    set -- $borders
    frame_left=$(($(number 'Absolute upper-left X') - $1))
    frame_top=$(($(number 'Absolute upper-left Y') - $3))
    frame_width=$(($(number Width) + $1 + $2))
    frame_height=$(($(number Height) + $3 + $4))
}
# leave_view: closes the window
leave_view() {
    press alt+F4
    end_view
}
read -r screen_width screen_height < <(xdotool getdisplaygeometry)
near() { [ $(($1 - $2)) -le 4 ] && [ $(($2 - $1)) -le 4 ]; }

open_view 4 Idiomas
frame
tall=$((screen_height * 3 / 4))
[ "$tall" -le 666 ] || tall=666
near "$frame_height" "$tall" || fail "a new window is $frame_height pixels high, not $tall"
designed="$frame_width $frame_height"
xdotool windowsize --sync "$window" 800 500
sleep 0.5
frame
given="$frame_width $frame_height"
leave_view
[ -s "$work/catalogador/window-sizes.ini" ] || fail "the size is not kept"

# size_of OPTION...: the size that the window of view 4 comes up with
size_of() {
    "$program" open --trace --database "$work/desk.db" --view 4 "$@" >"$work/trace" &
    window_process=$!
    wait_window Idiomas
    wait_focus grdGrilla
    sleep 0.3
    frame
    leave_view
    [ "$frame_width $frame_height" = "$wanted" ] ||
        fail "with '$*' the window has $frame_width $frame_height, not $wanted"
}
wanted=$given size_of
wanted=$designed size_of --fresh
wanted=$designed size_of --user otra
wanted=$given size_of
"$program" run --database "$work/desk.db" --view 4 --surface wx <<<state >"$work/with"
XDG_CONFIG_HOME="$work/nothing" "$program" run --database "$work/desk.db" --view 4 --surface wx \
    <<<state >"$work/without"
cmp "$work/with" "$work/without" || fail "a script has the size that a user gave the window"

# As large as no screen: kept within it.
sed -i 's/^4 = .*/4 = 90000 x 90000/' "$work/catalogador/window-sizes.ini"
open_view 4 Idiomas
frame
near "$frame_width" "$screen_width" && near "$frame_height" "$screen_height" ||
    fail "a size from a larger screen gives $frame_width x $frame_height"
leave_view

query "Update Catalogador Set ABMColumnasAncho = '9000|9000|9000|9000|9000' Where ABMIDFormVista = 4" >/dev/null
open_view 4 Idiomas
frame
[ "$frame_left" -ge 0 ] && [ $((frame_left + frame_width)) -le "$screen_width" ] &&
    [ "$frame_top" -ge 0 ] && [ $((frame_top + frame_height)) -le "$screen_height" ] ||
    fail "the window stands at $frame_left, $frame_top, $frame_width x $frame_height"
take_picture wide
before=$(import -window "$window" -crop 400x100+5+300 png:- | md5sum)
press ctrl+End
sleep 0.5
take_picture scrolled
after=$(import -window "$window" -crop 400x100+5+300 png:- | md5sum)
[ "$before" != "$after" ] || fail "the columns on the right are not reached"
leave_view
