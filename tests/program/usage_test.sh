#!/bin/sh
# Calls the program in every way that ends in a status of its own.
#
#   usage_test.sh PROGRAM
. "$(dirname "$0")/command_line.sh"

one_line_of_complaint() {
    [ "$(wc -l <err)" -eq 1 ] || fail "$title: not one line on the standard error"
    [ ! -s out ] || fail "$title: something on the standard output"
}

ends 0 "demo" demo made/here
says out made/here/demo.db
[ "$(ls made/here)" = demo.db ] || fail "demo leaves another file behind"
[ "$(stat -c %a made/here/demo.db)" = 600 ] || fail "others can read the demonstration database"
ends 0 "demo over an older one" demo made/here
database=made/here/demo.db
echo text >file
ends 2 "demo in a file" demo file
one_line_of_complaint

for time in soon -1 1.5 86401 ''; do
    ends 2 "a time limit of '$time'" run --database $database --view 1 --setting "LockTimeout=$time"
    one_line_of_complaint
    says err "a whole number of seconds"
done
ends 0 "no time limit" run --database $database --view 1 --setting StatementTimeout=0

ends 0 "help" --help
says out run
ends 0 "help of a command" run --help
says out --keep-going
ends 0 "version" --version
for dialect in sqlite postgresql mariadb; do
    ends 0 "schema" schema --dialect $dialect
    says out genCodigoTexto
done
ends 2 "schema of an unknown dialect" schema --dialect other

# The files that it made are there, but nobody was told.
for command in "schema --dialect sqlite" "demo made/full" "--help" "--version" \
    "run --database $database --view 1" "add --database $database --view 5 --name Escrituras --value x" \
    "check --database $database" "check --database $database --format json" \
    "check --database $database --format github"; do
    title="$command to a full disk"
    "$program" $command <script >/dev/full 2>err
    [ $? -eq 2 ] || fail "$title: the status is not 2"
    says err "the output could not be written"
    title="$command to a closed output"
    "$program" $command <script >&- 2>err
    [ $? -eq 2 ] || fail "$title: the status is not 2"
    says err "the output could not be written"
done
title="a script whose reader has gone"
printf 'sql "Update accUsuarios Set UsuNombre = UsuNombre"\n%.0s' $(seq 2000) >script
{
    "$program" run --database "$database" --view 0 --script script 2>err
    echo $? >status
} | head -n 1 >out
[ "$(cat status)" = 2 ] || fail "$title: status $(cat status)"
says err "the output could not be written"
: >script
title="every standard stream closed"
"$program" run --database "$database" --view 1 <&- >&- 2>&-
[ $? -eq 2 ] || fail "$title: the status is not 2"

ends 2 "no command"
ends 2 "unknown command" play
ends 2 "no view" run --database "$database"
ends 2 "no connection" run --view 1
ends 2 "two connections" run --database "$database" --connect x --view 1
ends 2 "view out of range" run --database "$database" --view 32768
says err 32768
ends 2 "view that is no number" run --database "$database" --view 1x
ends 2 "code out of range" run --database "$database" --view 1 --code 2147483648
ends 2 "company out of range" run --database "$database" --view 1 --company -32769
ends 2 "language out of range" run --database "$database" --view 1 --language 99999
ends 2 "setting without value" run --database "$database" --view 1 --setting Idioma
ends 2 "unknown option" run --database "$database" --view 1 --nada
ends 2 "unknown surface" run --database "$database" --view 1 --surface paper
ends 2 "unknown locale" run --database "$database" --view 1 --locale xx_YY
ends 2 "add without a name" add --database "$database" --view 5 --value x
ends 2 "add without a value" add --database "$database" --view 5 --name Escrituras

ends 2 "database that does not exist" run --database nada.db --view 1
one_line_of_complaint
[ ! -e nada.db ] || fail "a database was created by opening it"
ends 2 "folder as a database" run --database made --view 1
one_line_of_complaint
ends 2 "file that is no database" run --database file --view 1
one_line_of_complaint
ends 2 "script that does not exist" run --database "$database" --view 1 --script nada
one_line_of_complaint
ends 2 "driver that does not exist" \
    run --connect "Driver={Nada};UID=ana;PWD={hid den}" --view 1
one_line_of_complaint
! grep -q "hid" err || fail "a password is shown"
ends 2 "no catalogues" run --database "$database" --view 1 --messages .
says out '{"event":"failed","number":9000,"source":"ObjetoLenguaje"'

ends 0 "no line at all" run --database "$database" --view 1
says out '{"event":"closed","view":1,"depth":1,"idModificado":0}'
ends 0 "view 0" run --database "$database" --view 0 --company -1 --code -1
says out '{"event":"result","activarABM":false,"idModificado":0}'
ends 0 "language of the call" run --database "$database" --view 1 --language 2
says out '"language":"LNG_QTX_002"'
ends 0 "language of a setting" run --database "$database" --view 1 --setting Idioma=3
says out '"language":"LNG_QTX_003"'
mkdir -p .config/catalogador catalogador made/home/.config/catalogador
for file in .config/catalogador catalogador made/home/.config/catalogador; do
    printf '[VEM04]\nIdioma=3\n' >$file/catalogador.ini
done
for home in "" HOME= HOME=made/home "XDG_CONFIG_HOME=. HOME="; do
    title="settings of the current folder with '$home'"
    env -u HOME -u XDG_CONFIG_HOME $home "$program" run --database "$database" --view 1 \
        <script >out 2>err || fail "$title: status $?"
    says out '"language":"LNG_QTX_001"'
done
rm -r catalogador
mkdir catalogador && printf '[VEM04]\nIdioma=2\n' >catalogador/catalogador.ini
ends 0 "language of the settings file" run --database "$database" --view 1
says out '"language":"LNG_QTX_002"'

# A listing that never ends keeps nobody waiting longer than the setting says.
cp "$database" endless.db
cat >script <<'SCRIPT'
sql "Update Catalogador Set ABMConsulta = 'With Recursive n(i) As (Select 1 Union All Select i + 1 From n) Select Count(*) From n' Where ABMIDFormVista = 1"
activate 1
SCRIPT
start=$(date +%s)
ends 0 "a listing without end" run --database endless.db --view 0 --setting StatementTimeout=1
says out "took longer than 1 s"
[ $(($(date +%s) - start)) -lt 30 ] || fail "$title: it took too long"
# Nor anybody else out of the database.
echo 'sql "Update accUsuarios Set UsuNombre = UsuNombre"' >script
ends 0 "the database after a listing without end" run --database endless.db --view 0
says out '"affected":'
rm endless.db

printf 'state\naction 6\nstate\n' >script
ends 1 "refused line" run --database "$database" --view 1
says out '{"event":"refused","line":2,"reason":"action 6 is disabled"}'
[ "$(grep -c '"event":"state"' out)" -eq 1 ] || fail "lines after a refused one are played"
says out '"event":"closed"'
ends 0 "refused line, going on" run --database "$database" --view 1 --keep-going
[ "$(grep -c '"event":"state"' out)" -eq 2 ] || fail "lines after a refused one are not played"
cp script saved.script
: >script
ends 1 "script from a file" run --database "$database" --view 1 --script saved.script
ends 0 "add" add --database "$database" --view 5 --name Escrituras --value "[a,b] -x"
says out '{"event":"result","addNew":1,'
ends 0 "add of a text that is there" \
    add --database "$database" --view 5 --name Escrituras --value "[a,b] -x"
says out '{"event":"result","addNew":0,"idModificado":0}'
ends 0 "add of nothing" add --database "$database" --view 5 --name Escrituras --value ""
says out '{"event":"result","addNew":9,"idModificado":0}'

[ "$failures" -eq 0 ]
