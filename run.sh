#!/usr/bin/env bash
# Builds the program and opens the maintenance screen on the demonstration database. What is given
# is handed to "catalogador open", for instance: ./run.sh --view 4 --language 2
#
# Without a display the screen opens on a virtual one, a picture of it is taken and it is closed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/dependencies.sh
. tools/build.sh
. tools/virtual_display.sh

program=build/release/catalogador
demo=build/demo/demo.db
picture=build/screenshot.png

install_missing "${build_packages[@]}"
build release catalogador
if [ ! -f "$demo" ] || [ "$program" -nt "$demo" ]; then
    echo "== making the demonstration database"
    "$program" demo build/demo
fi

open=("$program" open)
case " $*" in
    *" --database"* | *" --connect"*) ;;
    *) open+=(--database "$demo") ;;
esac
case " $*" in
    *" --view"*) ;;
    *) open+=(--view 1) ;;
esac
open+=("$@")

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "== opening the screen"
    exec "${open[@]}"
fi

install_missing "${screen_packages[@]}"

find_window() {
    window=$(xdotool search --onlyvisible --pid "$opened" --name '.+' 2>/dev/null | tail -n 1)
    # Waiting is over, too, when the program has ended.
    [ -n "$window" ] || has_ended
}

has_ended() { ! kill -0 "$opened" 2>/dev/null; }

# A window that is still being drawn differs from one picture to the next.
is_drawn() {
    local before=${signature:-}
    sleep 0.5
    import -silent -window root "$picture"
    signature=$(identify -format '%#' "$picture")
    [ "$signature" = "$before" ]
}

end() {
    kill "${opened:-}" 2>/dev/null || true
    stop_display
}

echo "== opening the screen on a virtual display"
trap end EXIT
start_display
"${open[@]}" &
opened=$!
if ! wait_for 30 find_window || [ -z "$window" ]; then
    echo "No window appeared" >&2
    exit 1
fi
wait_for 20 is_drawn || echo "The screen kept changing; the picture may be of half of it"
echo "Picture of the screen: $PWD/$picture"

xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4
if ! wait_for 20 has_ended; then
    echo "The screen did not close" >&2
    exit 1
fi
wait "$opened"
