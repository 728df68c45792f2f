#!/usr/bin/env python3
"""A server that fails under an open screen, in the ways in which networks and other users do it.

    server_faults.py PROGRAM postgresql|mariadb CASE
"""

import os
import re
import subprocess
import sys
import time

from proxy import Lost, Proxy
from screen import OwnDatabase, Screen, fail, require, told

program = os.path.realpath(sys.argv[1])
kind = sys.argv[2]
VIEW = ["--view", "1", "--code", "724"]
RECORD = "CTeIDTipoVista = 1 And CTeCodigo = 724"


def value(connection, key):
    return re.search(r"\b%s=([^;]*)" % key, connection).group(1)


def stored(database):
    return database.sql("Select CTeTextoLargo From genCodigoTexto Where " + RECORD)[0][0]


class Client:
    """The server's own command-line program, as another user."""

    def __init__(self, connection):
        host, port, user, name = (
            value(connection, key) for key in ("Server", "Port", "UID", "Database")
        )
        command = {
            "postgresql": ["psql", "-q", "-h", host, "-p", port, "-U", user, name],
            "mariadb": ["mariadb", "--no-defaults", "-h", host, "-P", port, "-u", user, name],
        }[kind]
        self.process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True
        )

    def run(self, statement):
        self.process.stdin.write(statement + ";\n")
        self.process.stdin.flush()

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def row_locked(database):
    screen = Screen(program, *database.options, *VIEW, "--setting", "LockTimeout=1")
    screen.say('set txtTexto2 "Escrita con espera"')
    other = Client(database.connection)
    other.run("Begin")
    other.run("Select * From genCodigoTexto Where %s For Update" % RECORD)
    time.sleep(1)
    for _ in (1, 2):
        start = time.monotonic()
        events = screen.say("answer 6", "action 6")
        require(len(told(events)) == 1, "told %s" % told(events))
        require(time.monotonic() - start < 5, "the screen stood still")
        print("told:", told(events)[0]["detail"])
        require(screen.mode() == "2", "the record is no longer being edited")
        require(screen.field("txtTexto2") == "Escrita con espera", "what was typed is gone")
    other.run("Rollback")
    other.close()
    events = screen.say("answer 6", "action 6")
    require(told(events) == [], "told %s" % told(events))
    require(stored(database) == "Escrita con espera", "the record was not saved")
    require(screen.close() == 0, "the program did not end well")


def list_locked(database, *options):
    """The records are locked when the screen opens: it says how to read the list again."""
    lock = {
        "postgresql": "Begin; Lock Table genCodigoTexto In Access Exclusive Mode",
        "mariadb": "Lock Tables genCodigoTexto Write",
    }[kind]
    other = Client(database.connection)
    other.run(lock)
    time.sleep(1)
    view = ["--view", "1", "--setting", "LockTimeout=1"]
    screen = Screen(program, *database.options, *view, *options)
    for line in ([], ["key F5"]):
        events = told(screen.say(*line))
        require(len(events) == 1, "told %s" % events)
        require(events[0]["detail"].endswith("presione F5."), "told %s" % events)
        require(screen.state["grid"]["rows"] == 0, "the list has rows")
    other.run({"postgresql": "Rollback", "mariadb": "Unlock Tables"}[kind])
    other.close()
    require(told(screen.say("key F5")) == [], "the list cannot be read again")
    require(screen.state["grid"]["rows"] > 0, "F5 did not read the list")
    require(screen.close() == 0, "the program did not end well")


def list_locked_in_the_window(database):
    list_locked(database, "--surface", "wx")


def through(proxy, database):
    return re.sub(r"Port=[^;]*", "Port=%d" % proxy.port, database.connection)


def connection_cut(database):
    """Anywhere in the answers to a save and to the reading of the list that follows it."""
    proxy = Proxy(int(value(database.connection, "Port")))
    screen = Screen(program, "--connect", through(proxy, database), *VIEW)
    refused = 0
    for number, answered in enumerate([*range(0, 6000, 60), *range(6000, 30000, 3000)]):
        screen.say("action 7", "grid select 724")
        screen.say("action 4")
        text = "Cortada %d" % number
        screen.say('set txtTexto2 "%s"' % text)
        require(screen.field("txtTexto2") == text, "the record does not open after a cut")
        proxy.cut_after(answered)
        events = screen.say("answer 6", "action 6")
        proxy.left = None
        require(len(told(events)) <= 1, "after %d bytes: told %s" % (answered, told(events)))
        if screen.mode() == "0":
            require(stored(database) == text, "a save that was told as done is not stored")
            continue
        refused += 1
        require(len(told(events)) == 1, "after %d bytes: nothing was told" % answered)
        require(screen.field("txtTexto2") == text, "what was typed is gone")
        require(stored(database) != text, "a save that was told as failed is stored")
        events = screen.say("answer 6", "action 6")
        require(told(events) == [], "then told %s" % told(events))
        require(stored(database) == text, "the second save is not stored")
    print("%d cuts, %d refused saves" % (proxy.cuts, refused))
    require(proxy.cuts > 20 and refused > 0, "the cuts missed what they were for")
    require(screen.close() == 0, "the program did not end well")


def outcomes(events):
    """What the trace says of each write."""
    return [
        "failed" if "failed" in e else "unknown" if "unknown" in e else "done"
        for e in events
        if e["event"] == "write"
    ]


def commit_unanswered(database):
    """Only the answer to the commit is lost, or the commit itself: what is told is what is so."""
    proxy = Proxy(int(value(database.connection, "Port")))
    screen = Screen(program, "--connect", through(proxy, database), *VIEW, "--trace")
    screen.say()

    def save(text):
        screen.say("action 7", "grid select 1", "action 4")
        screen.say('set txtTexto2 "%s"' % text)
        events = screen.say("answer 6", "action 6")
        traced.append(outcomes(events))
        return told(events)

    traced = []
    proxy.lose_answer_to(b"COMMIT")
    said = save("Guardada sin respuesta")
    require(proxy.cuts == 1, "nothing was cut")
    require(said == [] and screen.mode() == "0", "a save that is stored is told as %s" % said)

    proxy.lose_answer_to(b"COMMIT", delivered=False)
    said = save("No llega")
    require(proxy.cuts == 2, "nothing was cut")
    require(len(said) == 1 and said[0]["event"] == "error", "told %s" % said)
    require(screen.mode() == "2", "the record is no longer being edited")

    def lose_for_good(data):
        proxy.closed.set()
        return Lost(data)

    proxy.at(b"COMMIT", lose_for_good)
    said = save("Nadie sabe")
    require(len(said) == 1 and said[0]["event"] == "message", "told %s" % said)
    require("no se sabe" in said[0]["text"], "told %s" % said)
    require("intentar" not in said[0]["text"], "told %s" % said)
    require(screen.mode() == "2", "the record is no longer being edited")
    proxy.closed.clear()
    require(traced == [["done"], ["failed"], ["unknown"]], "traced %s" % traced)

    new_records(database, screen, proxy)
    deletes(database, screen, proxy)
    require(screen.close() == 0, "the program did not end well")


def count(database, text):
    return int(
        database.sql(
            "Select Count(*) From genCodigoTexto Where CTeTextoLargo = '%s'" % text
        )[0][0]
    )


def new_records(database, screen, proxy):
    """First the code is drawn and committed, then the record."""

    def at_the_code(delivered):
        if kind == "postgresql":
            return proxy.lose_answer_to(b"COMMIT", 1, delivered)

        def at_its_execution(data):
            proxy.lose_answer_to(b"PAISES", 1, delivered)
            return data

        proxy.at(b"UPDATE GENNUMERADORES", at_its_execution)

    def at_the_record(delivered):
        proxy.lose_answer_to(b"COMMIT", 2 if kind == "postgresql" else 1, delivered)

    for number, lose, delivered, stored_then in (
        (1, at_the_code, True, 1),
        (1, at_the_code, False, 1),
        (2, at_the_record, True, 1),
        (2, at_the_record, False, 0),
    ):
        text = "Nueva %d %s" % (number, delivered)
        lose(delivered)
        screen.say("action 7", "action 3")
        screen.say('set txtTexto1 "%d%s"' % (number, str(delivered)[0]), 'set txtTexto2 "%s"' % text)
        events = screen.say("answer 6", "action 6")
        said = told(events)
        require(proxy.watched is None, "%s: nothing was cut, told %s" % (text, said))
        outcome = "done" if stored_then else "failed"
        require(outcomes(events) == [outcome], "%s: traced %s" % (text, outcomes(events)))
        require(count(database, text) == stored_then, "%s is not there: told %s" % (text, said))
        require(len(said) == 1 - stored_then, "%s: told %s" % (text, said))


def deletes(database, screen, proxy):
    for delivered in (True, False):
        screen.say("action 7")
        before = screen.state["grid"]["rows"]
        proxy.lose_answer_to(b"COMMIT", delivered=delivered)
        events = screen.say("grid select 2", "answer 6", "action 5")
        said = told(events)
        outcome = "done" if delivered else "unknown"
        require(outcomes(events) == [outcome], "traced %s" % outcomes(events))
        require(proxy.watched is None, "nothing was cut, told %s" % said)
        gone = before - screen.state["grid"]["rows"]
        require(gone == int(delivered), "%d rows are gone" % gone)
        require(len(said) == int(not delivered), "told %s" % said)


def write_conflict(database):
    """Another user writes between the last look at the record and the write."""
    proxy = Proxy(int(value(database.connection, "Port")))
    screen = Screen(program, "--connect", through(proxy, database), *VIEW)
    screen.say()
    statements = {
        "otro usuario modific": "Update genCodigoTexto Set CTeTextoLargo = 'De otro' Where " + RECORD,
        "ya no existe": "Delete From genCodigoTexto Where " + RECORD,
    }
    for words, statement in statements.items():

        def write_first(data, statement=statement):
            database.sql(statement)
            return data

        if screen.mode() == "2":
            screen.say("action 7", "action 4")
        screen.say('set txtTexto2 "De uno"')
        proxy.at(b"UPDATE GENCODIGOTEXTO", write_first)
        events = told(screen.say("answer 6", "action 6"))
        require(proxy.watched is None, "nobody wrote first")
        require(len(events) == 1 and events[0]["event"] == "message", "told %s" % events)
        require(words in events[0]["text"].lower(), "told %s" % events)
        require(screen.mode() == "2", "the record is no longer being edited")
        require(screen.field("txtTexto2") == "De uno", "what was typed is gone")
    require(screen.close() == 0, "the program did not end well")


def server_silent(database):
    """The connection stands, but nothing comes through: the driver has to give up by itself."""
    proxy = Proxy(int(value(database.connection, "Port")))
    limits = ["--setting", "StatementTimeout=1", "--setting", "LoginTimeout=2"]
    screen = Screen(program, "--connect", through(proxy, database), *VIEW, *limits)
    screen.say('set txtTexto2 "Escrita en silencio"')
    proxy.silent.set()
    start = time.monotonic()
    events = screen.say("answer 6", "action 6")
    print("gave up after %.1f s" % (time.monotonic() - start))
    require(time.monotonic() - start < 30, "the screen stood still")
    require(len(told(events)) == 1, "told %s" % told(events))
    require(screen.field("txtTexto2") == "Escrita en silencio", "what was typed is gone")
    proxy.silent.clear()
    events = screen.say("answer 6", "action 6")
    require(told(events) == [], "told %s" % told(events))
    require(stored(database) == "Escrita en silencio", "the record was not saved")


def through_hosts(proxies, database):
    hosts = ",".join("127.0.0.1" for _ in proxies)
    ports = ",".join(str(proxy.port) for proxy in proxies)
    connection = re.sub(r"Server=[^;]*", "Server=" + hosts, database.connection)
    return re.sub(r"Port=[^;]*", "Port=" + ports, connection)


def hosts_die(database):
    """Of several hosts the first is dead, and then the one in use dies."""
    port = int(value(database.connection, "Port"))
    dead, used, spare = proxies = [Proxy(port) for _ in range(3)]
    dead.die()
    screen = Screen(program, "--connect", through_hosts(proxies, database), *VIEW)

    def save(text):
        if screen.mode() == "0":
            screen.say("grid select 724", "action 4")
        screen.say('set txtTexto2 "%s"' % text)
        return told(screen.say("answer 6", "action 6"))

    screen.say()
    require(screen.mode() == "2", "the screen did not open by the second host")
    require(save("Por el segundo") == [], "a save by the second host was refused")
    require(stored(database) == "Por el segundo", "the record was not saved")
    used.die()
    said = save("Por el tercero")
    require(said == [], "the idle connection was lost, told %s" % said)
    require(stored(database) == "Por el tercero", "the record was not saved by the third host")

    def die_first(data):
        spare.die()
        return Lost(b"")

    # The hosts are gone through again from there; one of them is back.
    dead.closed.clear()
    dead.dead.clear()
    spare.at(b"UPDATE GENCODIGOTEXTO", die_first)
    said = save("Por el primero")
    require(len(said) == 1, "the connection was lost during a save, told %s" % said)
    require(stored(database) == "Por el tercero", "a refused save was stored")
    require(save("Por el primero") == [], "the save fails although a host is there")
    require(stored(database) == "Por el primero", "the record was not saved by the first host")
    require(screen.close() == 0, "the program did not end well")


def password_hidden(database):
    """Neither in what is said of a connection that works nor of one that does not."""
    password = "Secreta-7781}"
    with_password = database.connection + ";PWD={%s}}" % password
    nobody = re.sub(r"Port=[^;]*", "Port=1", with_password)
    wrong = re.sub(r"Database=[^;]*", "Database=nowhere", with_password)
    script = 'sql "Select Nothing From Nowhere"\naction 6\nstate\n'
    said = ""
    for connection in (with_password, nobody, wrong):
        result = subprocess.run(
            [program, "run", "--connect", connection, *VIEW, "--trace"],
            input=script,
            capture_output=True,
            text=True,
        )
        require(result.stdout + result.stderr != "", "nothing was said")
        said += result.stdout + result.stderr
    require("cannot connect" in said, "the connections that cannot work do")
    require(password.rstrip("}") not in said, "the password is in: " + said[:2000])


cases = {
    case.__name__: case
    for case in (
        row_locked,
        connection_cut,
        commit_unanswered,
        write_conflict,
        server_silent,
        hosts_die,
        list_locked,
        list_locked_in_the_window,
        password_hidden,
    )
}
if sys.argv[3] not in cases:
    fail("there is no case " + sys.argv[3])
if sys.argv[3].endswith("in_the_window") and "DISPLAY" not in os.environ:
    os.execvp("xvfb-run", ["xvfb-run", "-a", sys.executable, *sys.argv])
with OwnDatabase(program, kind) as own:
    cases[sys.argv[3]](own)
