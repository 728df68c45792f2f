# Sourced after wine_tests.sh: hosts whose screens are used with a keyboard.
# shellcheck shell=bash

. "$(dirname "${BASH_SOURCE[0]}")/../../tools/virtual_display.sh"
pictures=$build_folder/pictures
mkdir -p "$pictures"

hosts=()
end_hosts() {
    local host
    for host in "${hosts[@]}"; do kill "$host" 2>/dev/null || true; done
}
until_true() {
    wait_for 30 "$@" && return 0
    import -window root "$pictures/failed.png"
    fail "never came true: $*; $pictures/failed.png shows what was there"
}
windows() { xdotool search --onlyvisible --name '^Escrituras$' 2>/dev/null | wc -l; }
windows_are() { [ "$(windows)" -eq "$1" ]; }
# A window that goes away meanwhile ends the search.
newest() {
    until_true windows_are_found
    tail -n 1 <<<"$found"
}
windows_are_found() { found=$(xdotool search --onlyvisible --name '^Escrituras$') && [ -n "$found" ]; }
is_gone() { ! xdotool getwindowname "$1"; }
has_keys() { [ "$(xdotool getwindowfocus)" = "$1" ]; }
use_window() {
    xdotool windowactivate "$1"
    until_true has_keys "$1"
    # The keys go to a control once the window has settled.
    sleep 1
}
picture() { import -window root "$pictures/$1.png"; }
close_window() {
    use_window "$1"
    xdotool key alt+F4
    until_true is_gone "$1"
}
