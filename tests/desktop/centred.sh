#!/usr/bin/env bash
# A screen comes up in the middle of the whole monitor, also where a bar of the desktop keeps a part
# of it for itself.
. "$(dirname "$0")/desk.sh"

read -r screen_width screen_height < <(xdotool getdisplaygeometry)
# The bar: another screen, which tells the window manager to leave the upper part free.
open_view 1 Países
xprop -id "$window" -f _NET_WM_STRUT 32c -set _NET_WM_STRUT '0, 0, 200, 0'
kept_free() { xprop -root _NET_WORKAREA | grep -q '= 0, 200,'; }
until_true kept_free

state=$(echo state | "$program" run --database "$work/desk.db" --view 5 --surface wx |
    grep '"event":"state"')
number() { sed -E "s/.*\"$1\":(-?[0-9]+),.*/\1/" <<<"${state%%\"window\":*}"; }
middle_across=$(($(number left) * 2 + $(number width)))
middle_down=$(($(number top) * 2 + $(number height)))
near() { [ $(($1 - $2)) -le 60 ] && [ $(($2 - $1)) -le 60 ]; }
near "$middle_across" $((screen_width * twips_per_pixel)) || fail "it is not centred across: $state"
near "$middle_down" $((screen_height * twips_per_pixel)) || fail "it is not centred down: $state"
press alt+F4
end_view
