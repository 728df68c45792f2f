#!/usr/bin/env python3
"""Hostile text in fields, filter, value argument, codes and names, and stored by somebody else, with
the database's own word on what it ran as the witness: it runs what harmless text makes it run, and
nothing else. First where no check uses the text, then where every check does.

    statement_log.py PROGRAM LIBRARY sqlite|sqlite-odbc|postgresql|mariadb

The library is sqlite_log.cpp.
"""

import json
import os
import re
import sys

from engine_log import EngineLog
from hostile_texts import HARMLESS, HOSTILE
from screen import OwnDatabase, Screen, fail, require, told

program = os.path.realpath(sys.argv[1])
library = os.path.realpath(sys.argv[2])
kind = sys.argv[3]

REFUSED = "40060 - "
RULE = (
    "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo <> [Codigo] And "
    "CTeTextoCorto = '[TextoCorto]' And CTeTextoLargo = '[TextoLargo]' And CTeValor1 = [Valor1]"
)


def literal(text):
    return "'" + text.replace("'", "''") + "'"


def store(database, text):
    """As somebody else would have, by means of their own."""
    database.sql(
        "Update genCodigoTexto Set CTeTextoLargo = %s Where CTeIDTipoVista = 1 And CTeCodigo = 724"
        % literal(text)
    )


def opened(database, log, *options):
    return Screen(program, *database.options, *options, environment=log.environment)


def save(screen, text, checked):
    """A text with a quote of its own may be refused by a check; everything else is saved."""
    events = told(screen.say("answer 6", "action 6"))
    if screen.mode() == "0":
        return
    require(checked and "'" in text, "%r was not saved: %s" % (text, events))
    refused = [e["detail"].startswith(REFUSED) for e in events if e["event"] == "error"]
    require(refused == [True], "%r: told %s" % (text, events))
    screen.say("action 7")


def play(database, log, text, checked):
    """Everything a user can do with a text; gives what the server ran meanwhile."""
    database.sql("Delete From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo > 900")
    store(database, "Nobody")
    start = log.size()
    # Typed, a line end is a key that leaves the field.
    quoted = json.dumps(re.sub(r"[\r\n\t]", " ", text))
    other = json.dumps(json.loads(quoted) + "2")
    screen = opened(database, log, "--view", "1", "--code", "-1", "--value", text)
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
    statements = log.since(start)
    if checked:
        statements += play_stored(database, log, text)
    return statements


def play_stored(database, log, text):
    """What somebody else has stored, opened and saved again."""
    store(database, text + "3")
    start = log.size()
    screen = opened(database, log, "--view", "1", "--code", "724")
    screen.say()
    require(screen.field("txtTexto2") == text + "3", "%r is not shown" % text)
    save(screen, text, True)
    require(screen.close() == 0, "the program did not end well")
    return log.since(start)


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


def attack(database, log, with_checks):
    usual = [s for text in HARMLESS for s in play(database, log, text, with_checks)]
    allowed = {log.shape(statement) for statement in usual}
    writes = [s for s in usual if re.match(r"(?i)insert|update|delete", s)]
    require(len(usual) > 20 and len(writes) >= 3, "the log says too little: %s" % usual)
    ran = 0
    # A NUL ends an argument of a command line.
    for text in (text for text in HOSTILE if "\0" not in text):
        statements = play(database, log, text, with_checks)
        ran += len(statements)
        for statement in statements:
            if log.shape(statement) not in allowed:
                fail("%r made the database run: %s" % (text, statement))
        require(database.sql("Select CanCodigo From canary") == [[42]], "%r: canary" % text)
        require(not os.path.exists("canary"), "%r made a file" % text)
    print(
        "%d statements with %d hostile texts, all of the %d shapes that harmless text gives"
        % (ran, len(HOSTILE), len(allowed))
    )


def main():
    EngineLog.require(kind)
    with OwnDatabase(program, kind) as database:
        log = EngineLog(kind, database, library)
        make_canary(database)
        unchecked(database)
        attack(database, log, False)
        checked(database)
        attack(database, log, True)


main()
