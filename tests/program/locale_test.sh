#!/usr/bin/env bash
# Numbers and dates are written as a locale that the system has installed says, by option or by the
# environment; one that it lacks is taken from what the program knows.
#
#   locale_test.sh PROGRAM
set -euo pipefail
program=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LOCPATH=$work
unset LC_ALL LC_NUMERIC LANG
for name in nl_NL sv_SE lt_LT; do
    localedef -i "$name" -f UTF-8 "$work/$name.UTF-8" >/dev/null 2>&1 || [ -d "$work/$name.UTF-8" ]
done
"$program" demo "$work/demo" >/dev/null
cat >"$work/script" <<'SCRIPT'
sql "Update genCodigoTexto Set Modificado = '2024-02-29 00:00:00', CTeValor1 = 1234.5 Where CTeIDTipoVista = 1 And CTeCodigo = 4"
sql "Update Catalogador Set ABMConsulta = 'Select CTeCodigo, CTeTextoCorto, CTeValor1, Modificado From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo = 4', ABMColumnasNombre = 'A|B|C' Where ABMIDFormVista = 1"
close
activate 1
rows 1 1
state
close
SCRIPT
failed=0

# expect OPTION-OR-"" ENVIRONMENT NUMBER DATE DECIMAL THOUSANDS
expect() {
    local found option=()
    [ -z "$1" ] || option=(--locale "$1")
    found=$(env ${2:+"$2"} "$program" run --database "$work/demo/demo.db" --view 1 "${option[@]}" --script "$work/script")
    for wanted in "\"$3\",\"$4\"" "\"decimal\":\"$5\",\"thousands\":\"$6\""; do
        if ! grep -qF "$wanted" <<<"$found"; then
            echo "$1 $2: there is no $wanted in" >&2
            grep -oE '"cells":\[[^]]*\]|"decimal":"[^"]*","thousands":"[^"]*"' <<<"$found" >&2
            failed=1
        fi
    done
}
expect nl_NL "" 1234,5 29-02-2024 , .
expect sv_SE.UTF-8 "" 1234,5 2024-02-29 , .
expect "" LANG=lt_LT.UTF-8 1234,5 2024-02-29 , .
expect "" LC_ALL=nl_NL.UTF-8 1234,5 29-02-2024 , .
expect "" LANG=C.UTF-8 1234.5 29/02/2024 . ,
expect de_CH "" 1234.5 29.02.2024 . ,
expect "" LANG=de_CH.UTF-8 1234.5 29.02.2024 . ,
# A language that neither knows is no reason not to start, unless it was asked for.
expect "" LANG=xx_XX.UTF-8 1234.5 29/02/2024 . ,
if "$program" run --database "$work/demo/demo.db" --view 1 --locale xx_XX </dev/null >"$work/out" 2>&1; then
    echo "An unknown locale was taken" >&2
    failed=1
fi
grep -q "xx_XX is not known" "$work/out" || failed=1
exit "$failed"
