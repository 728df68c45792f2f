# Sourced: a Wine prefix of its own in the build folder, and its end.
# shellcheck shell=bash

# start_wine FOLDER: what runs under Wine from here on lives in that folder
start_wine() {
    export WINEPREFIX=$1 WINEARCH=${2:-win64}
    # No question whether to download what these programs do not need, and only real errors.
    export WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=${WINEDEBUG:--all}
    mkdir -p "$WINEPREFIX"
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        echo "== making a Wine prefix"
        wineboot --init >/dev/null 2>&1
    fi
    # A program that waits, so that the system's own processes stay: those that another program starts
    # hold on to its output, and who reads that would wait for them.
    rm -f "$WINEPREFIX/waiting"
    mkfifo "$WINEPREFIX/waiting"
    exec 8<>"$WINEPREFIX/waiting"
    wine cmd <&8 >/dev/null 2>&1 8>&- &
    wine cmd /c exit >/dev/null 2>&1
}

# Ends what runs in this prefix, and nothing else.
stop_wine() {
    [ -n "${WINEPREFIX:-}" ] || return 0
    exec 8>&-
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}
