#!/usr/bin/env bash
# A script's window lines wait for the window manager: what the screen says afterwards is the same
# with and without a window, minimised and brought back included.
. "$(dirname "$0")/desk.sh"

cat >"$work/sizes.script" <<'SCRIPT'
window 7005 8010
state
window 9000 6000
state
window minimize
state
window restore
state
window 7500 7500
state
close
SCRIPT
sizes() {
    "$program" run --database "$work/desk.db" --view 1 --surface "$1" --script "$work/sizes.script" |
        sed -n 's/.*"event":"state".*"caption":"[^"]*",.*"width":\([0-9]*\),"height":\([0-9]*\),"window":"\([a-z]*\)".*/\1 \2 \3/p'
}
sizes script >"$work/wanted"
[ "$(wc -l <"$work/wanted")" -eq 5 ] || fail "the script surface says $(cat "$work/wanted")"
for _ in 1 2 3 4 5; do
    sizes wx >"$work/got"
    diff "$work/wanted" "$work/got" || fail "the real window says otherwise"
done
