#!/bin/sh
# Calls `catalogador views test`: on tables without records, on a copy of a database, with a
# transcript that fits, one that does not, and one that is accepted.
#
#   test_command_test.sh PROGRAM
. "$(dirname "$0")/../program/command_line.sh"

mkdir files
cat >files/colours.toml <<'TOML'
[view]
ABMIDFormVista = 40
ABMTitulo = "Colours"
ABMNombreVista = "Colours"
ABMAnchoForm = 6000
ABMConsulta = "Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 40"
ABMColumnasNombre = "Colour"
ABMColumnasAncho = "4000"
ABMColumnasAlineacion = "1"

[sequence]
NumNombre = "Colours"

[[fields]]
ACoKeyControl = "TextoCorto"
ACoCaption = "&Colour:"
ACoLen = 30
ACoObligatorio = 1

[test]
script = "colours.script"
expected = "colours.expected"
language = 2
TOML
printf 'action 3\nset txtTexto1 "red"\nanswer 6\naction 6\nrows\n' >files/colours.script

ends 1 "no transcript yet" views test --scratch --from files
says out "view 40: cannot read the file"
ends 0 "accepted" views test --scratch --from files --accept
grep -q '"cells":\["red"\]' files/colours.expected || fail "the new record is not in the transcript"
ends 0 "as expected" views test --scratch --from files
says out "view 40: as expected"
says out "1 view, 1 tested, 0 failed"
cp files/colours.expected kept
sed -i 's/"red"/"green"/' files/colours.expected
ends 1 "another transcript" views test --scratch --from files
says out "view 40: another transcript"
says out "should be:"
cp kept files/colours.expected

# On a copy of a database, which stays as it is.
"$program" demo . >/dev/null || exit 1
cp demo.db clean.db
ends 0 "a copy" views test --database demo.db --from files
cmp -s demo.db clean.db || fail "a copy: the database has changed"
printf 'sql "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto) Values (40, 7, '"'blue'"')"\n' >blue.script
"$program" run --database demo.db --view 0 --script blue.script >/dev/null 2>&1
ends 1 "a copy with another record" views test --database demo.db --from files

sed -i 's/Select CTeCodigo/Selct CTeCodigo/' files/colours.toml
ends 1 "an error in a file" views test --scratch --from files
says out "CAT032"
ends 2 "neither database nor --scratch" views test --from files
ends 2 "both" views test --scratch --database demo.db --from files

[ "$failures" -eq 0 ]
