# Sourced by run.sh and test.sh: a virtual display with a window manager.
# shellcheck shell=bash

# Sets DISPLAY to a display of its own, which lives until stop_display.
start_display() {
    display_folder=$(mktemp -d)
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$display_folder/number" \
        >"$display_folder/log" 2>&1 &
    display_processes=$!
    if ! wait_for 10 test -s "$display_folder/number"; then
        echo "The virtual display did not start:" >&2
        cat "$display_folder/log" >&2
        return 1
    fi
    DISPLAY=":$(cat "$display_folder/number")"
    # Without this the toolkit looks for a desktop session that is not there.
    export DISPLAY GDK_BACKEND=x11 NO_AT_BRIDGE=1 LANG="${LANG:-C.UTF-8}"
    unset WAYLAND_DISPLAY
    openbox >>"$display_folder/log" 2>&1 &
    display_processes="$! $display_processes"
    # It answers this only once there is a window manager.
    if ! wait_for 10 xdotool get_desktop; then
        echo "The window manager did not start:" >&2
        cat "$display_folder/log" >&2
        return 1
    fi
}

stop_display() {
    local process
    for process in ${display_processes:-}; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    display_processes=""
    [ -n "${display_folder:-}" ] && rm -rf "$display_folder"
    return 0
}

# wait_for SECONDS COMMAND...: until the command succeeds
wait_for() {
    local tries=$(($1 * 10))
    shift
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ "$tries" -le 0 ] && return 1
        sleep 0.1
    done
}
