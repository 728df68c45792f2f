#!/bin/sh
# Calls `catalogador check` in every way: formats, exit status, what is ignored, what is wrong usage.
#
#   check_test.sh PROGRAM
. "$(dirname "$0")/../program/command_line.sh"

"$program" demo . >/dev/null || exit 1
cp demo.db clean.db

ends 0 "the demonstration" check --database demo.db
is out "10 views checked: 0 errors, 0 warnings, 0 notes, 0 ignored"
ends 0 "the demonstration in JSON, strictly" check --database demo.db --format json --strict
is out '{"views":10,"errors":0,"warnings":0,"notes":0,"ignored":0}'
ends 0 "two views" check --database demo.db --view 3 --view 1 --format json
is out '{"views":2,"errors":0,"warnings":0,"notes":0,"ignored":0}'
cmp -s demo.db clean.db || fail "the database has changed"

change "Update CatalogadorControles Set ACoTipo = 7 Where ACoIDFormVista = 5 And ACoKeyControl = 'Valor1'"
cp demo.db changed.db
ends 0 "a warning" check --database demo.db --format json
is out '{"id":"CAT053","severity":"warning","view":5,"table":"CatalogadorControles","column":"ACoTipo","key":"Valor1","message":"7 is no kind of field","effect":"The field is not on the screen.","hint":"Write 1 for a number, 2 for a list, 3 or 4 for a check box."}
{"views":10,"errors":0,"warnings":1,"notes":0,"ignored":0}'
ends 1 "a warning, strictly" check --database demo.db --strict
says out "CAT053 warning: view 5, CatalogadorControles.ACoTipo, Valor1: 7 is no kind of field."
says out "10 views checked: 0 errors, 1 warning, 0 notes, 0 ignored"
ends 0 "a warning that is ignored" check --database demo.db --strict --ignore CAT053:5 --format json
is out '{"views":10,"errors":0,"warnings":0,"notes":0,"ignored":1}'
ends 1 "a warning that is ignored elsewhere" check --database demo.db --strict --ignore CAT053:4
ends 0 "another view" check --database demo.db --strict --view 4
ends 0 "a warning for a workflow" check --database demo.db --format github
says out "::warning title=CAT053 view 5%2C CatalogadorControles.ACoTipo%2C Valor1::view 5, CatalogadorControles.ACoTipo, Valor1: 7 is no kind of field. The field"

change "Delete From genNumeradores Where NumNombre = 'Monedas'"
ends 1 "an error" check --database demo.db --view 3 --format json --fix-hints
says out '"id":"CAT100","severity":"error","view":3,"table":"genNumeradores","column":null,"key":null,'
says out "\"fix\":\"Insert Into genNumeradores (NumNombre, NumUltimo) Values ('Monedas', "
says out '{"views":1,"errors":1,"warnings":0,"notes":0,"ignored":0}'
ends 1 "statements that mend" check --database demo.db --view 3 --fix-hints
says out "    Insert Into genNumeradores"
ends 0 "an error that is ignored" check --database demo.db --view 3 --ignore CAT100:3

change "Drop Table genForaneas"
ends 1 "a missing table" check --database demo.db --view 1 --format json
says out '{"id":"CAT001","severity":"error","view":null,"table":"genForaneas","column":null,"key":null,'
ends 0 "a missing table that is ignored" check --database demo.db --view 1 --ignore CAT001:0

ends 1 "a view that does not exist" check --database clean.db --view 99 --format json
says out '{"id":"CAT010","severity":"error","view":99,"table":"Catalogador","column":null,"key":null,'
says out '{"views":0,"errors":1,"warnings":0,"notes":0,"ignored":0}'
printf '' >empty.db
ends 1 "an empty database" check --database empty.db
says out "CAT001 error: Catalogador: The table Catalogador is missing."

ends 2 "no connection" check
ends 2 "two connections" check --database demo.db --connect x
ends 2 "a database that does not exist" check --database nada.db
ends 2 "a file that is no database" check --database script/none
ends 2 "a server that does not answer" check --connect "Driver={Nada}"
ends 2 "an unknown format" check --database demo.db --format xml
ends 2 "a view that is no number" check --database demo.db --view one
ends 2 "a view out of range" check --database demo.db --view 32768
for ignored in CAT053 CAT053: CAT999:1 5:CAT053 CAT053:x ''; do
    ends 2 "ignoring '$ignored'" check --database demo.db --ignore "$ignored"
    says err "--ignore"
done

for command in run; do
    ends 0 "$command of a view that does not exist" $command --database clean.db --view 99
    [ "$(wc -l <err)" -eq 1 ] || fail "$title: not one line on the standard error"
    says err "There is no view 99"
    says err "catalogador check"
    says out '{"event":"opened","view":99'
    ends 0 "$command without tables" $command --database empty.db --view 1
    [ "$(wc -l <err)" -eq 1 ] || fail "$title: not one line on the standard error"
    says err "catalogador check"
    ends 0 "$command of a view that is there" $command --database clean.db --view 1
    [ ! -s err ] || fail "$title: something on the standard error"
    ends 0 "$command of view 0" $command --database clean.db --view 0
    [ ! -s err ] || fail "$title: something on the standard error"
done

[ "$failures" -eq 0 ]
