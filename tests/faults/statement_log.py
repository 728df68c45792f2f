#!/usr/bin/env python3
"""Hostile text in fields, filter, value argument, codes and names, with the server's own log of
statements as the witness: it makes the server run what harmless text makes it run, and nothing else.

    statement_log.py PROGRAM postgresql|mariadb
"""

import json
import os
import re
import sys

from screen import OwnDatabase, Screen, fail, require, skip

program = os.path.realpath(sys.argv[1])
kind = sys.argv[2]
LOG = "CATALOGADOR_TEST_%s_LOG" % kind.upper()

HARMLESS = "Harmless"
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
]


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


def log_since(start, database):
    with open(os.environ[LOG], "rb") as log:
        log.seek(start)
        text = log.read().decode("utf-8", "replace")
    return {"postgresql": postgresql_statements, "mariadb": mariadb_statements}[kind](
        text, database.name
    )


def play(database, text):
    """Everything a user can do with a text; gives what the server ran meanwhile."""
    start = os.path.getsize(os.environ[LOG])
    quoted = json.dumps(text)
    screen = Screen(program, *database.options, "--view", "1", "--code", "-1", "--value", text)
    screen.say("set txtTexto2 " + quoted, "answer 6", "action 6")
    require(screen.mode() == "0", "%r was not saved" % text)
    for filtered in (text, ""):
        screen.say("action 10", "set filter " + json.dumps(filtered), "key Enter")
    screen.say("grid select 724")
    screen.say("action 4", "set txtTexto1 " + quoted, "set txtTexto2 " + quoted, "answer 6", "action 6")
    require(screen.mode() == "0", "%r was not saved in a record that was there" % text)
    screen.say("action 4", "answer 6", "action 6")
    screen.say("answer 6", "action 5")
    screen.process.stdin.write("close\nadd 1 Paises %s\nadd 1 %s Otro\n" % (quoted, quoted))
    require(screen.close() == 0, "the program did not end well")
    return log_since(start, database)


def unflagged(database):
    """Fields of any length whose text no statement holds but as a value."""
    database.sql("Create Table canary (CanCodigo Integer)")
    database.sql("Insert Into canary Values (42)")
    database.sql(
        "Update CatalogadorControles Set ACoLen = 200, ACoDuplicado = 0 Where ACoIDFormVista = 1"
    )


def main():
    if LOG not in os.environ:
        skip(LOG + " is not set")
    with OwnDatabase(program, kind) as database:
        unflagged(database)
        usual = play(database, HARMLESS)
        allowed = {shape(statement) for statement in usual}
        writes = [s for s in usual if re.match(r"(?i)insert|update|delete", s)]
        require(len(usual) > 20 and len(writes) >= 3, "the log says too little: %s" % usual)
        ran = 0
        for text in HOSTILE:
            statements = play(database, text)
            ran += len(statements)
            for statement in statements:
                if shape(statement) not in allowed:
                    fail("%r made the server run: %s" % (text, statement))
        require(database.sql("Select CanCodigo From canary") == [[42]], "the canary is dead")
        print(
            "%d statements with %d hostile texts, all of the %d shapes that harmless text gives"
            % (ran, len(HOSTILE), len(allowed))
        )


main()
