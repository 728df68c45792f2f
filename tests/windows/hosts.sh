#!/usr/bin/env bash
# A host in VBScript that calls everything without a screen.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine_tests.sh"
database=$CATALOGADOR_TEST_FOLDER/hosts.db
trap 'rm -f "$database" "$database"-*' EXIT
cp "$CATALOGADOR_TEST_DEMO" "$database"
run_script "$(windows_path "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/calls.vbs")" \
    "$database" Escrituras | tee "$CATALOGADOR_TEST_FOLDER/hosts.log"
grep -qx 'all calls as expected' "$CATALOGADOR_TEST_FOLDER/hosts.log" || fail "a call went wrong"
added=$(sqlite3 "$database" "Select CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 5
    And CTeTextoCorto = 'Nuevo ''uno'''")
[ "$added" = "Nuevo 'uno'" ] || fail "the record is not in the database: $added"
