#!/bin/sh
# Calls `catalogador views` in every way: what is written, what differs, what is applied, what is
# refused, and the exit status of each.
#
#   commands_test.sh PROGRAM
. "$(dirname "$0")/../program/command_line.sh"

"$program" demo . >/dev/null || exit 1
cp demo.db clean.db

ends 0 "export" views export --database demo.db --to files
is out "10 files written, 0 unchanged"
[ "$(ls files | wc -l)" -eq 10 ] || fail "export: not ten files"
cmp -s demo.db clean.db || fail "export: the database has changed"
ends 0 "export again" views export --database demo.db --to files
is out "0 files written, 10 unchanged"
ends 0 "nothing differs" views diff --database demo.db --from files
[ ! -s out ] || fail "nothing differs: something is said"
ends 0 "nothing to apply" views apply --database demo.db --from files
says out "changed: 0"
cmp -s demo.db clean.db || fail "nothing to apply: the database has changed"
ends 0 "one view" views export --database demo.db --to one --view 3
[ "$(ls one)" = view-3.toml ] || fail "one view: not its file alone"
ends 2 "a view that is not there" views export --database demo.db --to one --view 99

# A file that has another name and comments keeps both.
mv files/view-3.toml files/monedas.toml
sed -i '1i # Currencies.' files/monedas.toml
change "Update Catalogador Set ABMTitulo = 'Divisas' Where ABMIDFormVista = 3"
ends 1 "a title differs" views diff --database demo.db --from files
is out 'view 3: Catalogador.ABMTitulo: "Divisas" -> "Monedas"'
ends 0 "export of a changed view" views export --database demo.db --to files
is out "1 file written, 9 unchanged"
[ "$(head -n 1 files/monedas.toml)" = "# Currencies." ] || fail "the comment is gone"
[ ! -e files/view-3.toml ] || fail "a second file of the view"
grep -q 'ABMTitulo = "Divisas"' files/monedas.toml || fail "the title is not in the file"

sed -i 's/"Divisas"/"Dinero"/' files/monedas.toml
cp demo.db before.db
ends 0 "dry run" views apply --database demo.db --from files --dry-run
says out 'view 3: Catalogador.ABMTitulo: "Divisas" -> "Dinero"'
says out 'would be changed: 1'
cmp -s demo.db before.db || fail "dry run: the database has changed"
ends 0 "apply" views apply --database demo.db --from files
says out 'view 3: Catalogador.ABMTitulo: "Divisas" -> "Dinero"'
says out 'changed: 1'
ends 0 "apply again" views apply --database demo.db --from files
says out 'changed: 0'

# Nothing is applied while there is an error, also in another file.
cp -r files broken
sed -i 's/"Dinero"/"Plata"/' broken/monedas.toml
sed -i 's/Select CTeCodigo, CTeTextoCorto, CTeTextoLargo/Selct CTeCodigo, CTeTextoCorto, CTeTextoLargo/' broken/view-1.toml
cp demo.db before.db
ends 1 "a listing that fails" views apply --database demo.db --from broken
says out "CAT032 error: view 1, Catalogador.ABMConsulta"
says out "nothing is changed"
cmp -s demo.db before.db || fail "a listing that fails: the database has changed"
printf '\n[check]\nignore = ["CAT032"]\n' >>broken/view-1.toml
ends 0 "a finding that is silenced" views apply --database demo.db --from broken
says out "1 ignored"
ends 0 "back again" views apply --database demo.db --from files

# Widths that a user dragged.
change "Update Catalogador Set ABMColumnasAncho = '1|2' Where ABMIDFormVista = 1"
ends 1 "widths differ" views diff --database demo.db --from files
says out 'view 1: Catalogador.ABMColumnasAncho: "1|2" -> "1000|6000"'
ends 0 "widths stay" views apply --database demo.db --from files
says out "changed: 0"
ends 0 "widths of the files" views apply --database demo.db --from files --widths
says out "changed: 1"

rm files/view-22.toml
ends 1 "a view without a file" views diff --database demo.db --from files
is out "view 22: no file describes it"
ends 0 "views without a file stay" views apply --database demo.db --from files
says out "changed: 0"
ends 0 "views without a file go" views apply --database demo.db --from files --delete-missing
says out 'view 22: removed'
ends 0 "nothing differs any more" views diff --database demo.db --from files

# Mistakes.
cp -r files wrong
printf 'ABMTitel = "x"\n' >>wrong/view-1.toml
printf '[view\n' >wrong/view-2.toml
cp wrong/view-4.toml wrong/view-44.toml
for call in "diff --from wrong" "apply --from wrong" "export --to wrong"; do
    ends 2 "broken files: $call" views $call --database demo.db
    says err "wrong/view-1.toml:"
    says err "there is no key ABMTitel in"
    says err "wrong/view-2.toml:1: "
    says err "wrong/view-44.toml:1: view 4 is described by wrong/view-4.toml too"
done
ends 2 "no such folder" views diff --database demo.db --from nowhere
ends 2 "no folder" views diff --database demo.db
ends 2 "no connection" views diff --from files
ends 2 "no database" views diff --database nothing.db --from files
ends 2 "no action" views
ends 2 "unknown action" views import
ends 0 "help" views apply --help
says out --delete-missing
"$program" views export --database demo.db --to other >/dev/full 2>err
[ $? -eq 2 ] || fail "a full disk: the status is not 2"

[ "$failures" -eq 0 ]
