#!/usr/bin/env bash
# The sample hosts open the screen, and tell what was saved when it is closed.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine_tests.sh"
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
. "$here/desktop.sh"
database=$CATALOGADOR_TEST_FOLDER/samples.db
log=$CATALOGADOR_TEST_FOLDER/samples.log
trap 'end_hosts; rm -f "$database" "$database"-*' EXIT
cp "$CATALOGADOR_TEST_DEMO" "$database"
connection="DRIVER={SQLite3};Database=$database;Timeout=5000"

# opened_by NAME COMMAND...: the host's screen is used and closed; the host tells that nothing was saved
opened_by() {
    local name=$1
    shift
    "$@" "$connection" 5 >"$log" 2>&1 &
    hosts=($!)
    until_true windows_are 1
    use_window "$(newest)"
    picture "sample-$name"
    close_window "$(newest)"
    wait "${hosts[0]}" || fail "the host $name ends with status $?: $(cat "$log")"
    hosts=()
    tr -d '\r' <"$log" | grep -qx 'Last code saved or deleted: 0' || fail "$name tells: $(cat "$log")"
}
opened_by compiled wine sample_host.exe
opened_by script run_script "$(windows_path "$(realpath "$here/../../docs/samples/host.vbs")")"

# What goes wrong is told.
status=0
wine sample_host.exe "$connection" >"$log" 2>&1 || status=$?
[ "$status" -eq 2 ] || fail "without a view, the compiled host ends with status $status"
status=0
wine sample_host.exe "DRIVER={no such driver}" 5 >"$log" 2>&1 || status=$?
[ "$status" -eq 1 ] || fail "without a database, the compiled host ends with status $status"
grep -q '^EstablishConnection: ' "$log" || fail "without a database it tells: $(cat "$log")"
