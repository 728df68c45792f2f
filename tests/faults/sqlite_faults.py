#!/usr/bin/env python3
"""A SQLite file that cannot be written under an open screen: each save ends in one message, what was
typed stays, and the same save succeeds once the cause is gone.

    sqlite_faults.py PROGRAM CASE
"""

import os
import resource
import shutil
import sqlite3
import subprocess
import sys
import tempfile

from screen import SKIPPED, OwnDatabase, Screen, fail, require, skip, told

program = os.path.realpath(sys.argv[1])
VIEW = ["--view", "1", "--code", "724"]
TYPED = "Escrita en apuros"


def stored(file):
    with sqlite3.connect("file:%s?mode=ro" % file, uri=True) as database:
        return database.execute(
            "Select CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 1 And CTeCodigo = 724"
        ).fetchone()[0]


def refused_then_saved(screen, database, begin, end):
    """`begin` and `end` are called around the saves that must be refused."""
    screen.say('set txtTexto2 "%s"' % TYPED)
    require(screen.mode() == "2", "the record is not being edited")
    begin()
    for attempt in (1, 2):
        events = screen.say("answer 6", "action 6")
        require(len(told(events)) == 1, "attempt %d: told %s" % (attempt, told(events)))
        print("told:", told(events)[0])
        require(screen.field("txtTexto2") == TYPED, "what was typed is gone")
        require(screen.mode() == "2", "the record is no longer being edited")
        require(screen.state["pointer"] == 0, "the pointer is still an hourglass")
    end()
    require(stored(database.file) != TYPED, "a refused save was stored")
    events = screen.say("answer 6", "action 6")
    require(told(events) == [], "the save fails although the cause is gone: %s" % told(events))
    require(screen.mode() == "0", "the record was not saved")
    require(stored(database.file) == TYPED, "the record is not in the file")
    require(screen.close() == 0, "the program did not end well")


def locked(database):
    screen = Screen(program, *database.options, *VIEW, "--setting", "LockTimeout=1")
    other = sqlite3.connect(database.file, isolation_level=None)
    refused_then_saved(
        screen, database, lambda: other.execute("Begin Exclusive"), lambda: other.execute("Rollback")
    )


def list_locked(database):
    """The list says how to read it again."""
    screen = Screen(program, *database.options, "--view", "1", "--setting", "LockTimeout=1")
    screen.say()
    rows = screen.state["grid"]["rows"]
    require(rows > 0, "the list is empty")
    other = sqlite3.connect(database.file, isolation_level=None)
    other.execute("Begin Exclusive")
    events = told(screen.say("key F5"))
    require(len(events) == 1, "told %s" % events)
    require(events[0]["detail"].endswith("presione F5."), "told %s" % events)
    other.execute("Rollback")
    require(told(screen.say("key F5")) == [], "the list cannot be read again")
    require(screen.state["grid"]["rows"] == rows, "F5 did not read the list")
    require(screen.close() == 0, "the program did not end well")


def half_locked(database):
    """The other program reads only, which keeps the writer from its last step."""
    screen = Screen(program, *database.options, *VIEW, "--setting", "LockTimeout=1")
    other = sqlite3.connect(database.file, isolation_level=None)

    def begin():
        other.execute("Begin")
        other.execute("Select * From genCodigoTexto").fetchone()

    refused_then_saved(screen, database, begin, lambda: other.execute("Rollback"))


def read_only(database):
    prefix = []
    if os.geteuid() == 0:
        # Nobody keeps root from writing.
        if shutil.which("setpriv") is None:
            skip("setpriv is not installed")
        prefix = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        if subprocess.run([*prefix, program, "--version"], capture_output=True).returncode != 0:
            skip("the program is in a folder that only root may read")
        os.chown(database.folder, 65534, 65534)
        os.chown(database.file, 65534, 65534)
    screen = Screen(program, *database.options, *VIEW, prefix=prefix, environment={"HOME": "/"})

    def allow(mode, folder):
        os.chmod(database.file, mode)
        os.chmod(database.folder, folder)

    # SQLite has opened the file already; a folder without room for its journal does the rest.
    refused_then_saved(
        screen, database, lambda: allow(0o444, 0o555), lambda: allow(0o644, 0o755)
    )
    allow(0o444, 0o555)
    screen = Screen(program, *database.options, *VIEW, prefix=prefix, environment={"HOME": "/"})
    refused_then_saved_when_opened_so(screen)
    allow(0o644, 0o755)


def refused_then_saved_when_opened_so(screen):
    screen.say('set txtTexto2 "otra"')
    require(screen.mode() == "2", "a file that may only be read does not open")
    events = screen.say("answer 6", "action 6")
    require(len(told(events)) == 1, "told %s" % told(events))
    require(screen.field("txtTexto2") == "otra", "what was typed is gone")
    screen.close()


def disk_full(database):
    """No file may grow or be written beyond a few bytes, as on a full disk."""
    screen = Screen(
        program,
        *database.options,
        *VIEW,
        # Writing too much is an error then, and no signal that ends the program.
        prefix=["sh", "-c", "trap '' XFSZ; exec \"$0\" \"$@\""]
    )
    process = screen.process.pid

    def limit(size):
        resource.prlimit(process, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))

    refused_then_saved(
        screen, database, lambda: limit(256), lambda: limit(resource.RLIM_INFINITY)
    )


def no_space_left(database):
    """A file system of its own, which somebody else fills up."""
    screen = Screen(program, *database.options, *VIEW)
    filler = os.path.join(database.folder, "filler")

    def fill():
        with open(filler, "wb", buffering=0) as file:
            try:
                while file.write(bytes(4096)):
                    pass
            except OSError:
                return
        fail("the file system has no end")

    refused_then_saved(screen, database, fill, lambda: os.remove(filler))


def in_own_file_system():
    """Starts this program again where the folder of temporary files is small."""
    if os.geteuid() != 0 or subprocess.run(["unshare", "-m", "true"]).returncode != 0:
        skip("no file system can be mounted here")
    folder = tempfile.mkdtemp(prefix="faults-")
    os.environ.update(TMPDIR=folder, OWN_FILE_SYSTEM=folder)
    mounted = 'mount -t tmpfs -o size=8m none "$OWN_FILE_SYSTEM" || exit %d; exec "$@"' % SKIPPED
    command = ["unshare", "-m", "sh", "-c", mounted, "sh", sys.executable, *sys.argv]
    try:
        status = subprocess.run(command).returncode
    finally:
        os.rmdir(folder)
    if status == SKIPPED:
        print("skipped: no file system can be mounted here")
    sys.exit(status)


cases = {
    case.__name__: case
    for case in (locked, list_locked, half_locked, read_only, disk_full, no_space_left)
}
if sys.argv[2] not in cases:
    fail("there is no case " + sys.argv[2])
if sys.argv[2] == "no_space_left" and "OWN_FILE_SYSTEM" not in os.environ:
    in_own_file_system()
with OwnDatabase(program, "sqlite") as own:
    cases[sys.argv[2]](own)
