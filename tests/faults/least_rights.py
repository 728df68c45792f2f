#!/usr/bin/env python3
"""A user of the server who may read and write rows, and nothing else, needs no more: records are added,
changed and deleted, codes drawn, lists kept, rules on delete run, and metadata is checked.

    least_rights.py PROGRAM postgresql|mariadb
"""

import os
import re
import subprocess
import sys

from screen import OwnDatabase, Screen, require, told

program = os.path.realpath(sys.argv[1])
kind = sys.argv[2]
user = "clerk_%d" % os.getpid()


def make_user(database):
    rights = "Select, Insert, Update, Delete"
    if kind == "postgresql":
        database.sql("Create Role %s Login" % user)
        database.sql("Grant %s On All Tables In Schema public To %s" % (rights, user))
    else:
        database.sql("Create User '%s'@'%%'" % user)
        database.sql("Grant %s On %s.* To '%s'@'%%'" % (rights, database.name, user))


def drop_user(database):
    if kind == "postgresql":
        database.sql("Drop Owned By %s" % user)
        database.sql("Drop Role %s" % user)
    else:
        database.sql("Drop User '%s'@'%%'" % user)


def work(options):
    screen = Screen(program, *options, "--view", "5")
    quiet = [
        ("action 3", 'set txtTexto1 "Z9z9"', 'set txtTexto2 "Nueva; escritura"', "answer 6", "action 6"),
        ("grid select 1", "action 4", 'set txtTexto2 "Otra"', "answer 6", "action 6"),
        ("grid select 2", "answer 6 6 6", "action 5"),
        ("close", "activate 10", "action 3", 'set txtTexto1 "Nueva"', "answer 6", "action 6"),
        ("close", "activate 10"),
    ]
    for lines in quiet:
        events = told(screen.say(*lines))
        require(events == [], "%s: %s" % (lines, events))
        require(screen.mode() == "0", "%s: not saved" % (lines,))
    require(screen.close() == 0, "the program did not end well")


def main():
    with OwnDatabase(program, kind) as database:
        make_user(database)
        try:
            own = re.sub(r"UID=[^;]*", "UID=" + user, database.connection)
            work(["--connect", own])
            saved = database.sql(
                "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 5 And "
                "CTeTextoCorto = 'Z9z9'"
            )
            require(saved == [["Nueva; escritura"]], "stored: %s" % saved)
            result = subprocess.run([program, "check", "--connect", own], capture_output=True)
            require(result.returncode == 0, "check: %s" % result)
        finally:
            drop_user(database)


main()
