#!/usr/bin/env python3
"""Hostile text in fields, filter, value argument, codes and names, and stored by somebody else, with
the server's own log of statements as the witness: it makes the server run what harmless text makes
it run, and nothing else. First where no check uses the text, then where every check does.

    statement_log.py PROGRAM sqlite|postgresql|mariadb

An SQLite file has no log; there only what is stored and told is looked at.
"""

import json
import os
import re
import sys

from screen import OwnDatabase, Screen, fail, require, skip, told

program = os.path.realpath(sys.argv[1])
kind = sys.argv[2]
LOG = "CATALOGADOR_TEST_%s_LOG" % kind.upper()

# A text with a semicolon is looked at more closely.
HARMLESS = ["Harmless", "Harm; less"]
HOSTILE = [
    "'); Drop Table canary; --",
    "'; Drop Table canary; --",
    "x' Or '1'='1",
    "\\' Or 1=1; Drop Table canary; -- ",
    "\\'; Delete From canary; #",
    "x'; Copy canary To Program 'true'; --",
    "x' Union Select CanCodigo From canary --",
    "x'/**/;/**/Drop/**/Table/**/canary;/*",
    "/*! Drop Table canary */",
    "$$; Drop Table canary; $$",
    '"; Drop Table canary; --',
    "`; Drop Table canary; --",
    "E'\\'; Drop Table canary; --",
    "[prmID] [prmIdEmpresa] ? :name %s {call x} {fn now()}",
    "\u2019; Drop Table canary; --",
    "\u02bc' ; Drop Table canary; --",
    "';\u0007Drop\tTable\u00a0canary;--",
    "0; Drop Table canary",
    "1) Or 1=1 --",
    "x' --\r; Delete From canary --",
    "x' --\n; Delete From canary --",
    "x' /*!99999 ' */ ; Delete From canary #",
    "x' /*!50000 ; Delete From canary */ -- ",
    "x' /*M!100100 ; Delete From canary */ -- ",
    "x' /* /* ' */ ; Delete From canary -- */",
    "'||set_config('standard_conforming_strings','0','0')--",
    "\\';Delete From canary--",
    "x'||E'a'\n'\\'; Delete From canary --",
    "U&'\\0027; Delete From canary --",
    '\'||U&"\\0027"; Delete From canary --',
    "$a$; Delete From canary; $a$",
    "'||$$'; Delete From canary --$$",
    "[canary]'; Delete From [canary] --",
    "' Or blob_export(x'41','canary')--",
    "' Or load_extension('canary')--",
    "' Or 1 In (With Recursive r(x) As (Select 1 Union All Select x+1 From r) Select x From r)--",
    "' Union Select 1 Into Outfile 'canary' -- ",
    "'; Copy (Select 1) To Stdout --",
    "' Or pg_sleep(100) Is Null --",
    "' Or sleep(100) -- ",
    "\uff07; Delete From canary --",
    "'",
    "''",
    "O'Brien",
    "O''Brien",
    "\\",
]
REFUSED = "40060 - "
RULE = (
    "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo <> [Codigo] And "
    "CTeTextoCorto = '[TextoCorto]' And CTeTextoLargo = '[TextoLargo]' And CTeValor1 = [Valor1]"
)


def lexer():
    """Texts of a statement as the server reads them in the sessions of the program."""
    texts = [r"'(?:[^']|'')*'"]
    if kind == "postgresql":
        texts = [r"\bE'(?:[^'\\]|''|\\.)*'", *texts]
    return re.compile("|".join(texts), re.S)


LITERAL = lexer()


def shape(statement):
    """The statement without its texts and numbers."""
    plain = LITERAL.sub("?", statement)
    plain = re.sub(r"\$\d+|0x[0-9a-f]+|\b\d+(\.\d+)?\b", "?", plain)
    # The driver tells the types of values or leaves them to the server.
    plain = re.sub(r"\?::\w+", "?", plain)
    return re.sub(r"\s+", " ", plain).strip().lower()


def postgresql_statements(text, database):
    entry = re.compile(r"^\d{4}-\d\d-\d\d \S+ \S+ \[\d+\] (\S*) (\w+):  (.*)$")
    statements = []
    current = None
    for line in text.split("\n"):
        match = entry.match(line)
        if match:
            current = None
            about = re.match(r"(?:statement|execute [^:]*): (.*)$", match.group(3), re.S)
            if match.group(1) == database and match.group(2) == "LOG" and about:
                current = len(statements)
                statements.append(about.group(1))
        elif current is not None:
            statements[current] += "\n" + line.removeprefix("\t")
    return statements


def mariadb_statements(text, database):
    entry = re.compile(r"^(?:\d{6} [ \d:]{8})?\t+ *(\d+) ([A-Z][a-z]+(?: [A-Za-z]+)?)\t?(.*)$")
    statements = []
    own = set()
    current = None
    for line in text.split("\n"):
        match = entry.match(line)
        if match:
            current = None
            thread, command, argument = match.groups()
            if command == "Connect" and (" on %s " % database) in argument:
                own.add(thread)
            # What is prepared is executed later, and logged again with its values.
            if thread in own and command in ("Query", "Execute"):
                current = len(statements)
                statements.append(argument)
        elif current is not None:
            statements[current] += "\n" + line
    return statements


def log_size():
    return 0 if kind == "sqlite" else os.path.getsize(os.environ[LOG])


def log_since(start, database):
    if kind == "sqlite":
        return []
    with open(os.environ[LOG], "rb") as log:
        log.seek(start)
        text = log.read().decode("utf-8", "replace")
    return {"postgresql": postgresql_statements, "mariadb": mariadb_statements}[kind](
        text, database.name
    )


def literal(text):
    return "'" + text.replace("'", "''") + "'"


def store(database, text):
    """As somebody else would have, by means of their own."""
    database.sql(
        "Update genCodigoTexto Set CTeTextoLargo = %s Where CTeIDTipoVista = 1 And CTeCodigo = 724"
        % literal(text)
    )


def save(screen, text, checked):
    """A text with a quote of its own may be refused by a check; everything else is saved."""
    events = told(screen.say("answer 6", "action 6"))
    if screen.mode() == "0":
        return
    require(checked and "'" in text, "%r was not saved: %s" % (text, events))
    refused = [e["detail"].startswith(REFUSED) for e in events if e["event"] == "error"]
    require(refused == [True], "%r: told %s" % (text, events))
    screen.say("action 7")


def play(database, text, checked):
    """Everything a user can do with a text; gives what the server ran meanwhile."""
    database.sql("Delete From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo > 900")
    store(database, "Nobody")
    start = log_size()
    # Typed, a line end is a key that leaves the field.
    quoted = json.dumps(re.sub(r"[\r\n\t]", " ", text))
    other = json.dumps(json.loads(quoted) + "2")
    screen = Screen(program, *database.options, "--view", "1", "--code", "-1", "--value", text)
    screen.say("set txtTexto2 " + quoted)
    save(screen, text, checked)
    for filtered in (text, ""):
        screen.say("action 10", "set filter " + json.dumps(filtered), "key Enter")
    screen.say("grid select 724")
    screen.say("action 4", "set txtTexto1 " + other, "set txtTexto2 " + other)
    save(screen, text, checked)
    screen.say("grid select 724", "action 4")
    save(screen, text, checked)
    if not checked:
        screen.say("answer 6", "action 5")
    screen.process.stdin.write("close\nadd 1 Paises %s\nadd 1 %s Otro\n" % (quoted, quoted))
    require(screen.close() == 0, "the program did not end well")
    statements = log_since(start, database)
    if checked:
        statements += play_stored(database, text)
    return statements


def play_stored(database, text):
    """What somebody else has stored, opened and saved again."""
    store(database, text + "3")
    start = log_size()
    screen = Screen(program, *database.options, "--view", "1", "--code", "724")
    screen.say()
    require(screen.field("txtTexto2") == text + "3", "%r is not shown" % text)
    save(screen, text, True)
    require(screen.close() == 0, "the program did not end well")
    return log_since(start, database)


def make_canary(database):
    database.sql("Create Table canary (CanCodigo Integer)")
    database.sql("Insert Into canary Values (42)")


def unchecked(database):
    """Fields of any length whose text no statement holds but as a value."""
    database.sql(
        "Update CatalogadorControles Set ACoLen = 200, ACoDuplicado = 0 Where ACoIDFormVista = 1"
    )


def checked(database):
    """The same fields, all of them in every check that there is."""
    database.sql("Update CatalogadorControles Set ACoDuplicado = 1 Where ACoIDFormVista = 1")
    database.sql(
        "Update Catalogador Set ABMSQLValidarDuplicados = %s Where ABMIDFormVista = 1"
        % literal(RULE)
    )


def attack(database, with_checks):
    usual = [s for text in HARMLESS for s in play(database, text, with_checks)]
    allowed = {shape(statement) for statement in usual}
    writes = [s for s in usual if re.match(r"(?i)insert|update|delete", s)]
    if kind != "sqlite":
        require(len(usual) > 20 and len(writes) >= 3, "the log says too little: %s" % usual)
    ran = 0
    for text in HOSTILE:
        statements = play(database, text, with_checks)
        ran += len(statements)
        for statement in statements:
            if shape(statement) not in allowed:
                fail("%r made the server run: %s" % (text, statement))
        require(database.sql("Select CanCodigo From canary") == [[42]], "%r: canary" % text)
        require(not os.path.exists("canary"), "%r made a file" % text)
    print(
        "%d statements with %d hostile texts, all of the %d shapes that harmless text gives"
        % (ran, len(HOSTILE), len(allowed))
    )


def main():
    if kind != "sqlite" and LOG not in os.environ:
        skip(LOG + " is not set")
    with OwnDatabase(program, kind) as database:
        make_canary(database)
        unchecked(database)
        attack(database, False)
        checked(database)
        attack(database, True)


main()
