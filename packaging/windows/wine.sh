# Sourced: a Wine prefix of its own in the build folder, and its end.
# shellcheck shell=bash

# start_wine FOLDER: what runs under Wine from here on lives in that folder
start_wine() {
    export WINEPREFIX=$1 WINEARCH=${2:-win64}
    # No question whether to download what these programs do not need, and only real errors.
    export WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=${WINEDEBUG:--all}
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        echo "== making a Wine prefix"
        mkdir -p "$WINEPREFIX"
        wineboot --init >/dev/null 2>&1
    fi
    # Programs start faster while the server stays.
    wineserver -p
}

# Ends what runs in this prefix, and nothing else.
stop_wine() {
    [ -n "${WINEPREFIX:-}" ] || return 0
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}
