"""What a database says that it ran: the log of a server, or what a library that is preloaded into the
program has heard from SQLite."""

import os
import re

from screen import skip

SQLITE_LOG = "CATALOGADOR_TEST_SQLITE_LOG"


class EngineLog:
    """The statements that the program made the database run."""

    def __init__(self, kind, database, library):
        self.kind = kind
        self.database = database
        self.environment = {}
        if kind.startswith("sqlite"):
            self.file = os.path.join(database.folder, "statements.log")
            self.environment = {
                "LD_PRELOAD": library,
                SQLITE_LOG: self.file,
                # A program with the sanitizers wants to be the first that is loaded.
                "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0",
            }
            open(self.file, "w").close()
        else:
            self.file = os.environ[self.variable(kind)]
        texts = [r"'(?:[^']|'')*'"]
        if kind == "postgresql":
            texts = [r"\bE'(?:[^'\\]|''|\\.)*'", *texts]
        self.literal = re.compile("|".join(texts), re.S)

    @staticmethod
    def variable(kind):
        return "CATALOGADOR_TEST_%s_LOG" % kind.upper()

    @staticmethod
    def require(kind):
        """Skips the test where the database keeps no log."""
        if not kind.startswith("sqlite") and EngineLog.variable(kind) not in os.environ:
            skip(EngineLog.variable(kind) + " is not set")

    def size(self):
        return os.path.getsize(self.file)

    def since(self, start):
        with open(self.file, "rb") as log:
            log.seek(start)
            text = log.read().decode("utf-8", "replace")
        if self.kind.startswith("sqlite"):
            # What a trigger does is told as a comment.
            return [s for s in text.split("\0") if s and not s.startswith("-- ")]
        read = {"postgresql": postgresql_statements, "mariadb": mariadb_statements}[self.kind]
        return read(text, self.database.name)

    def shape(self, statement):
        """The statement without its texts and numbers."""
        plain = self.literal.sub("?", statement)
        plain = re.sub(r"\$\d+|0x[0-9a-f]+|\b\d+(\.\d+)?\b", "?", plain)
        # The driver tells the types of values or leaves them to the server.
        plain = re.sub(r"\?::\w+", "?", plain)
        # A list of codes has any length.
        plain = re.sub(r"\(-?\?(, ?-?\?)*\)", "(?)", plain)
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
