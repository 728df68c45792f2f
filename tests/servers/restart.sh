#!/usr/bin/env bash
# A server that is stopped while a record is being edited, and started again: the save ends in one
# message, what was typed is still there, and the same save succeeds once the server is back.
#
#   restart.sh PROGRAM postgresql|mariadb
set -euo pipefail
program=$(realpath "$1")
kind=$2
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/virtual_display.sh"
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/database_servers.sh"
for package in "${server_packages[@]}"; do
    dpkg-query -W "$package" >/dev/null 2>&1 || {
        echo "skipped: $package is not installed"
        exit 77
    }
done
work=$(mktemp -d)
leave() {
    kill "${keeper:-}" 2>/dev/null || true
    stop_servers
    rm -rf --one-file-system "$work"
}
trap leave EXIT
prepare_servers
"start_$kind"
variable=CATALOGADOR_TEST_${kind^^}
connection=${!variable}
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
"$program" demo --connect "$connection" >/dev/null

fail() {
    echo "FAILED: $*" >&2
    tail -n 5 "$work/out" >&2
    exit 1
}
lines() { wc -l <"$work/out"; }
# say LINE...: to the program; waits until it has answered the question of its state
say() {
    local before
    before=$(grep -c '"event":"state"' "$work/out" || true)
    printf '%s\n' "$@" state >"$work/in"
    for _ in $(seq 300); do
        [ "$(grep -c '"event":"state"' "$work/out" || true)" -gt "$before" ] && return
        sleep 0.1
    done
    fail "no answer to $*"
}
last_state() { grep '"event":"state"' "$work/out" | tail -n 1; }

mkfifo "$work/in"
: >"$work/out"
"$program" run --connect "$connection" --view 5 --code 1 <"$work/in" >"$work/out" &
running=$!
# Keeps the pipe open between the lines.
sleep 300 >"$work/in" &
keeper=$!
say 'set txtTexto2 "Escrita sin servidor"'
errors() { grep -c '"event":"error"' "$work/out" || true; }

pause_servers
say 'answer 6' 'action 6'
[ "$(errors)" -ge 1 ] || fail "a save without a server says nothing"
last_state | grep -q '"text":"Escrita sin servidor"' || fail "what was typed is gone"
last_state | grep -q '"mode":"2"' || fail "the record is no longer being edited"

resume_servers
before=$(errors)
say 'answer 6' 'action 6'
[ "$(errors)" -eq "$before" ] || fail "the save fails although the server is back"
last_state | grep -q '"mode":"0"' || fail "the record was not saved"

# Between two actions: the list is read again on a new connection, without a word.
pause_servers
resume_servers
say 'grid select 2' 'action 4'
[ "$(errors)" -eq "$before" ] || fail "a server that was away meanwhile is noticed"
last_state | grep -q '"mode":"2"' || fail "the record does not open"
kill "$keeper"
wait "$running" || fail "the program ended with status $?"
printf 'sql "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 5 And CTeCodigo = 1"\n' |
    "$program" run --connect "$connection" --view 0 | grep -q 'Escrita sin servidor' ||
    fail "the record is not in the database"
echo "$kind: saved after $(errors) errors"
