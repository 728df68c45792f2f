#!/usr/bin/env bash
# The screen inside of a host in VBScript: a record is entered with the keyboard and saved; the screen
# is opened again in the same process; two hosts have it open at once.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine_tests.sh"
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
. "$here/desktop.sh"
database=$CATALOGADOR_TEST_FOLDER/screen.db
cp "$CATALOGADOR_TEST_DEMO" "$database"

trap 'end_hosts; rm -f "$database" "$database"-*' EXIT

# start_host NUMBER TIMES
start_host() {
    run_script "$(windows_path "$here/screen.vbs")" "$database" "$2" \
        >"$CATALOGADOR_TEST_FOLDER/screen-$1.log" 2>&1 &
    hosts+=($!)
}
said() { grep -qx "$2" "$CATALOGADOR_TEST_FOLDER/screen-$1.log"; }
stored() { sqlite3 "$database" "$1"; }

# One host: a record by the keyboard, each field ended with Enter.
start_host one 2
until_true windows_are 1
use_window "$(newest)"
picture screen-opened
xdotool key ctrl+n
sleep 1
xdotool type --delay 30 'Qxqx'
xdotool key Return
xdotool type --delay 30 'Prueba de hosts'
xdotool key Return
xdotool type --delay 30 '987'
sleep 0.5
picture screen-entered
xdotool key Return
saved() { [ "$(stored "Select Count(*) From genCodigoTexto Where CTeIDTipoVista = 5
    And CTeTextoCorto = 'Qxqx'")" = 1 ]; }
until_true saved
code=$(stored "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 5
    And CTeTextoCorto = 'Qxqx'")
[ "$(stored "Select CTeTextoLargo || ' ' || CAST(CTeValor1 AS INTEGER) From genCodigoTexto Where CTeCodigo = $code
    And CTeIDTipoVista = 5")" = 'Prueba de hosts 987' ] || fail "the record has other values"
sleep 1
picture screen-saved
close_window "$(newest)"
until_true said one "shown True code $code"

# The same process opens it again; nothing is saved this time.
until_true windows_are 1
use_window "$(newest)"
picture screen-again

# Another host beside it.
start_host two 1
until_true windows_are 2
picture screen-two
close_window "$(newest)"
until_true windows_are 1
close_window "$(newest)"
until_true said one "shown True code 0"
until_true said two "shown True code 0"
for host in "${hosts[@]}"; do wait "$host" || fail "a host ended with status $?"; done
hosts=()
