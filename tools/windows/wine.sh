# Sourced: a Wine prefix of its own in the build folder, and its end.
# shellcheck shell=bash

# start_wine x64|x86: what runs under Wine from here on lives in a prefix for such programs; that for
# 32 bits is in the tree of tree32.sh.
start_wine() {
    local top
    # shellcheck source=tools/windows/dependencies.sh
    . "$(dirname "${BASH_SOURCE[0]}")/dependencies.sh"
    top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
    export WINEPREFIX=$top/build/wine-$1 WINEARCH=win64
    path_without_wine=$PATH
    if [ "$1" = x86 ]; then
        export WINEARCH=win32 PATH=$top/tools/windows/wine32:$PATH
        export CATALOGADOR_TREE=$windows_cache/i386
    fi
    # No question whether to download what these programs do not need, and only real errors.
    export WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=${WINEDEBUG:--all}
    mkdir -p "$WINEPREFIX"
    # Two runs in one prefix would end each other's server.
    exec 7>"$WINEPREFIX.lock"
    flock -n 7 || {
        echo "== waiting for another run in $WINEPREFIX"
        flock 7
    }
    # What an earlier run that was broken off has left.
    wineserver -k 2>/dev/null || true
    # A server that stays, where Debian's would end with its last program, and whose end this shell sees.
    rm -f "$(server_socket)"
    wineserver -f -p >"$WINEPREFIX.server.log" 2>&1 7>&- 8>&- &
    wine_server=$!
    local tries=100
    until [ -S "$(server_socket)" ]; do
        tries=$((tries - 1))
        if [ "$tries" -eq 0 ]; then
            echo "Wine's server did not start" >&2
            return 1
        fi
        sleep 0.1
    done
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        echo "== making a Wine prefix"
        wineboot --init >/dev/null 2>&1 7>&-
    fi
    # A program that waits, so that the system's own processes stay: those that another program starts
    # hold on to its output, and who reads that would wait for them.
    rm -f "$WINEPREFIX/waiting"
    mkfifo "$WINEPREFIX/waiting"
    exec 8<>"$WINEPREFIX/waiting"
    wine cmd <&8 >/dev/null 2>&1 7>&- 8>&- &
    wine cmd /c exit >/dev/null 2>&1 7>&-
}

# Ends what runs in this prefix, and nothing else. Fails when the server had ended before.
stop_wine() {
    local process survived=0
    [ -n "${wine_server:-}" ] || return 0
    exec 8>&-
    if kill -0 "$wine_server" 2>/dev/null; then
        wineserver -k 2>/dev/null || true
        wait "$wine_server" 2>/dev/null || true
    else
        wait "$wine_server" || survived=$?
        echo "Wine's server had ended by itself, with status $survived:" >&2
        tail -n 20 "$WINEPREFIX.server.log" >&2
        survived=1
    fi
    # Programs notice a moment later that the server is gone.
    for _ in $(seq 50); do
        [ -n "$(wine_processes)" ] || break
        sleep 0.1
    done
    for process in $(wine_processes); do kill -KILL "$process" 2>/dev/null || true; done
    exec 7>&-
    PATH=$path_without_wine
    unset WINEPREFIX WINEARCH wine_server
    return "$survived"
}

# Where the server of this prefix listens: Debian's Wine notes the folder in the prefix.
server_socket() {
    echo "/tmp/$(cat "$WINEPREFIX/wineserver" 2>/dev/null)"/server-*/socket
}

# The programs for Windows that run in this prefix, and its server.
wine_processes() {
    local file
    for file in $(grep -slzxF "WINEPREFIX=$WINEPREFIX" /proc/[0-9]*/environ); do
        # The name of such a program is that of a file of Windows.
        if tr '\0' '\n' 2>/dev/null <"${file%environ}cmdline" | head -n 1 |
            grep -qiE '\.exe$|/wineserver'; then
            basename "${file%/environ}"
        fi
    done
}
