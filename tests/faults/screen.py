"""A screen played line by line, and databases of its own to play it on."""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77


def skip(reason):
    print("skipped:", reason)
    sys.exit(SKIPPED)


def fail(what):
    print("FAILED:", what, file=sys.stderr)
    sys.exit(1)


def require(condition, what):
    if not condition:
        fail(what)


class Screen:
    """`catalogador run` with its script piped in; every answer ends with the state asked for."""

    def __init__(self, program, *options, prefix=(), environment=None):
        self.process = subprocess.Popen(
            [*prefix, program, "run", *options, "--keep-going"],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            text=True,
            env={**os.environ, "LC_ALL": "C.UTF-8", **(environment or {})},
        )
        self.state = {}

    def say(self, *lines):
        """Gives the events that the lines led to; the state after them is kept."""
        for line in (*lines, "state"):
            self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        events = []
        for text in self.process.stdout:
            event = json.loads(text)
            if event["event"] == "state":
                self.state = event
                return events
            events.append(event)
        fail("the program ended with %s after %s" % (self.process.wait(), lines))

    def field(self, name):
        return self.state["fields"][name]["text"]

    def mode(self):
        return self.state["mode"]

    def close(self):
        self.process.stdin.close()
        self.process.stdout.read()
        return self.process.wait()


def errors(events):
    return [e for e in events if e["event"] == "error"]


def told(events):
    """What a user had to read: errors, and notices with nothing but an OK button."""
    return errors(events) + [e for e in events if e["event"] == "message" and e["style"] == 48]


def sql(program, options, statement):
    script = "sql " + json.dumps(statement) + "\n"
    result = subprocess.run(
        [program, "run", *options, "--view", "0"], input=script, capture_output=True, text=True
    )
    event = json.loads(result.stdout.splitlines()[-1])
    require(event.get("error") is None, "%s: %s" % (statement, event))
    return event.get("rows")


class OwnDatabase:
    """The demonstration in a database that is gone in the end: an SQLite file (with its driver when
    the kind is sqlite-odbc), or a database on the server that the environment names."""

    def __init__(self, program, kind):
        self.program = program
        self.folder = tempfile.mkdtemp(prefix="faults-")
        self.name = None
        if kind.startswith("sqlite"):
            subprocess.run([program, "demo", self.folder], check=True, stdout=subprocess.DEVNULL)
            self.file = os.path.join(self.folder, "demo.db")
            self.options = ["--database", self.file]
            if kind == "sqlite-odbc":
                driver = "Driver={SQLite3};Database=%s;FKSupport=1" % self.file
                self.options = ["--connect", driver]
            return
        variable = "CATALOGADOR_TEST_" + kind.upper()
        if variable not in os.environ:
            self.close()
            skip(variable + " is not set")
        server = os.environ[variable]
        self.server = ["--connect", server]
        self.name = "faults_%d" % os.getpid()
        sql(program, self.server, "Drop Database If Exists " + self.name)
        sql(program, self.server, "Create Database " + self.name)
        self.connection = re.sub(r"Database=[^;]*", "Database=" + self.name, server)
        self.options = ["--connect", self.connection]
        subprocess.run(
            [program, "demo", "--connect", self.connection], check=True, stdout=subprocess.DEVNULL
        )

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self.name:
            sql(self.program, self.server, "Drop Database " + self.name)
        shutil.rmtree(self.folder, ignore_errors=True)

    def sql(self, statement):
        return sql(self.program, self.options, statement)


def wait_until(condition, seconds, what):
    end = time.monotonic() + seconds
    while not condition():
        require(time.monotonic() < end, what)
        time.sleep(0.05)
