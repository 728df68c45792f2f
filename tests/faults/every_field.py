#!/usr/bin/env python3
"""Hostile text in every field of a view that has all fields and all checks, and in the names and lists
of view 10: typed, pasted, as the value of the call, and stored by somebody else. The database runs
what harmless text makes it run and nothing else, and what is saved is what was typed.

    every_field.py PROGRAM LIBRARY sqlite|sqlite-odbc|postgresql|mariadb

The library is sqlite_log.cpp.
"""

import json
import os
import re
import sys
import tempfile

from engine_log import EngineLog
from hostile_texts import HARMLESS, HOSTILE
from screen import OwnDatabase, Screen, errors, fail, require, told

program = os.path.realpath(sys.argv[1])
library = os.path.realpath(sys.argv[2])
kind = sys.argv[3]

VIEW = 77
NAMES = 10
REFUSED = "40060 - "
LISTING = (
    "Select CTeCodigo, CTeTextoCorto, CTeTextoLargo, CTeValor1 From genCodigoTexto "
    "Where CTeIDTipoVista = 77 And [prmIdEmpresa2] = 1"
)
RULE = (
    "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 77 And CTeCodigo <> [Codigo] And "
    "CTeTextoCorto = '[TextoCorto]' And CTeTextoLargo = '[TextoLargo]' And CTeValor1 = [Valor1] "
    "And CTeValor2 = [Valor2] And CTeValor3 = [Valor3] And [ValorSiNo] <= 1 "
    "And [prmIdEmpresa] = 1 And [prm99] > -5"
)
ENTRIES = "Select CTeCodigo, CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 77"
USES = "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 78 And CTeValor1 = [prmID]"
RELEASE = "Update genCodigoTexto Set CTeValor1 = Null Where CTeIDTipoVista = 78 And CTeValor1 = [prmID]"
REMOVE = "Select * From genCodigoTexto Where CTeIDTipoVista = 78 And CTeValor1 = [prmID]"
CODED = "Select CTeTextoLargo, CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 10"
NAMED = CODED.replace("CTeTextoLargo", "CTeCodigo") + " And Not CTeCodigo In ([prm99])"
# PostgreSQL stores none, and the driver of SQLite ends texts there.
NO_NUL = ["postgresql", "sqlite-odbc"]
# What a list of codes may be.
CODES = ["7", "7, 9,-1"]
# Codes of the two records that are there from the start, which the list of Valor2 shows.
FIRST, SECOND = 1, 2


def literal(text):
    """As somebody writes it who may run any statement there."""
    quoted = "'" + text.replace("'", "''") + "'"
    if "\0" not in text:
        return quoted
    parts = [literal(part) for part in text.split("\0")]
    if kind == "mariadb":
        return "Concat(" + ",Char(0),".join(parts) + ")"
    return "||Char(0)||".join(parts)


def make_view(database):
    database.sql(
        "Insert Into Catalogador (ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMAnchoForm, "
        "ABMConsulta, ABMColumnasNombre, ABMColumnasAncho, ABMColumnasAlineacion, "
        "ABMSQLValidarDuplicados) Values (77, 'Todo', 'Todo', 8000, %s, 'A|B|C', '900|900|900', "
        "'1|1|7', %s)" % (literal(LISTING), literal(RULE))
    )
    fields = [
        ("TextoCorto", 200, "Null", "Null"),
        ("TextoLargo", 200, "Null", "Null"),
        ("Valor1", 12, 1, "Null"),
        ("Valor2", 12, 2, literal(ENTRIES)),
        ("Valor3", 12, 1, "Null"),
        ("ValorSiNo", 1, "Null", "Null"),
    ]
    for key, length, field_kind, data in fields:
        # An action in the place of its mark would hide the check box.
        action = "Null" if key == "ValorSiNo" else "'77'"
        database.sql(
            "Insert Into CatalogadorControles (ACoIDFormVista, ACoKeyControl, ACoCaption, ACoLen, "
            "ACoObligatorio, ACoDuplicado, ACoAccionF2, ACoTipo, ACoDatosCombo) Values (77, '%s', "
            "'%s:', %s, 1, 1, %s, %s, %s)" % (key, key, length, action, field_kind, data)
        )
    database.sql("Insert Into genNumeradores (NumNombre, NumUltimo) Values ('Todo', 100)")
    for order, follow_up in enumerate((RELEASE, REMOVE)):
        database.sql(
            "Insert Into genForaneas (ForTablaAControlar, ForSQLForanea, ForMensaje, ForSQLUpdate, "
            "ForOrdenSQL) Values ('Todo', %s, '', %s, %d)"
            % (literal(USES), literal(follow_up), order)
        )
    for code in (FIRST, SECOND):
        database.sql(
            "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeTextoLargo, "
            "CTeValor1, CTeValor2, CTeValor3) Values (77, %d, 'T%d', 'L%d', %d, 77%d, %d)"
            % (code, code, code, code, code, code)
        )
    database.sql("Update CatalogadorControles Set ACoLen = 200 Where ACoIDFormVista = 10")
    database.sql("Update Catalogador Set ABMConsulta = %s Where ABMIDFormVista = 10" % literal(NAMED))
    database.sql("Create Table canary (CanCodigo Integer)")
    database.sql("Insert Into canary Values (42)")


class Desk:
    """A screen at which one text after another is tried."""

    def __init__(self, database, log):
        self.database = database
        self.log = log
        self.saved = 0
        self.refused = 0
        # What the test itself makes the database run, and the end of a write that failed.
        self.own = {"rollback"}
        self.user = database.sql("Select Min(UsuID) From accUsuarios")[0][0]
        name = database.sql("Select UsuNombre From accUsuarios Where UsuID = %s" % self.user)[0][0]
        self.screen = self.opened("--view", str(VIEW), "--user", name)

    def opened(self, *options):
        screen = Screen(program, *self.database.options, *options, environment=self.log.environment)
        screen.say()
        return screen

    def rows(self, statement):
        self.own.add(self.log.shape(statement))
        events = self.screen.say("sql " + json.dumps(statement))
        require("error" not in events[0], "%s: %s" % (statement, events))
        return events[0].get("rows")

    def fill_other_fields(self, screen):
        events = screen.say(
            "set txtValor1 %s" % json.dumps("9001"),
            "select cmbValor2 %d" % SECOND,
            "set txtValor3 %s" % json.dumps("9003"),
            "check chkValorSiNo 1",
        )
        require(events == [], "the other fields: %s" % events)

    def save(self, screen, text):
        """Whether it was saved; what is not saved must be refused for what it is."""
        events = told(screen.say("answer 6", "action 6"))
        if screen.mode() == "0":
            self.saved += 1
            return True
        numbers = [e["detail"] for e in events if e["event"] == "error"]
        require(numbers and numbers[0].startswith(REFUSED), "%r: told %s" % (text, events))
        require("'" in text or "\0" in text, "%r was refused" % text)
        self.refused += 1
        screen.say("action 7")
        return False

    def expect_stored(self, condition, typed):
        # Without the blanks at its ends, as the screen saves it.
        rows = self.rows(
            "Select CTeTextoCorto, CTeTextoLargo From genCodigoTexto Where CTeIDTipoVista = 77 And "
            + condition
        )
        require(rows == [[typed.strip(" ") + "1", typed.strip(" ") + "2"]], "%r: %s" % (typed, rows))

    def enter(self, text, how):
        """Into both text fields; gives what they show."""
        shown = []
        for number, name in enumerate(("txtTexto1", "txtTexto2"), 1):
            whole = text.strip(" ") + str(number)
            # Typed, a line end is a key that leaves the field.
            if how == "set":
                whole = re.sub(r"\r\n|[\r\n\t]", " ", whole)
                lines = ["set %s %s" % (name, json.dumps(whole))]
            else:
                lines = ["focus " + name, "paste " + json.dumps(whole)]
            events = self.screen.say(*lines)
            require(events == [], "%r: %s" % (text, events))
            shown.append(self.screen.field(name))
        # No box takes any other control character.
        kept = re.sub(r"[\0-\x1f]", "", re.sub(r"\r\n|[\r\n\t]", " ", text)).strip(" ")
        return shown, kept

    def new_record(self, text, how):
        self.screen.say("action 3")
        shown, kept = self.enter(text, how)
        require(shown == [kept + "1", kept + "2"], "%r shows %r" % (text, shown))
        self.fill_other_fields(self.screen)
        if self.save(self.screen, text):
            self.expect_stored("CTeCodigo > 100", shown[0][:-1])
            self.remove()

    def remove(self):
        """By the screen, so that the rules on delete run."""
        code = self.rows("Select Max(CTeCodigo) From genCodigoTexto Where CTeIDTipoVista = 77")[0][0]
        self.rows(
            "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeValor1) "
            "Values (78, 1, 'uses', %d)" % code
        )
        position = [e for e in self.screen.say("rows") if e["event"] == "rows"][0]["rows"]
        row = [r["code"] for r in position].index(str(code)) + 1
        events = told(self.screen.say("grid select %d" % row, "answer 6", "action 5"))
        require(events == [], "not deleted: %s" % events)
        left = self.rows("Select Count(*) From genCodigoTexto Where CTeIDTipoVista In (77, 78)")
        require(left[0][0] in (3, "3"), "deleted: %s" % left)
        self.rows("Delete From genCodigoTexto Where CTeIDTipoVista = 78")

    def numbers(self, text):
        """A text where a number belongs is told and saved nowhere."""
        for name in ("txtValor1", "txtValor3"):
            self.screen.say("grid select 1", "action 4", "focus " + name, "paste " + json.dumps(text))
            events = told(self.screen.say("answer 6", "action 6"))
            require(self.screen.mode() != "0" and events, "%r is a number in %s" % (text, name))
            self.screen.say("action 7")

    def filter(self, text):
        self.screen.say("action 10", "set filter " + json.dumps(re.sub(r"[\r\n\t]", " ", text)))
        self.screen.say("key Enter", "action 10", 'set filter ""', "key Enter")

    def stored_by_another(self, text):
        """Somebody else has stored it; whoever opens the record saves it again."""
        if "\0" in text and kind in NO_NUL:
            return
        self.rows(
            "Update genCodigoTexto Set CTeTextoCorto = %s, CTeTextoLargo = %s "
            "Where CTeIDTipoVista = 77 And CTeCodigo = %d"
            % (literal(text + "1"), literal(text + "2"), FIRST)
        )
        self.screen.say("close", "activate %d %d" % (VIEW, FIRST))
        require(self.screen.mode() == "2", "%r does not open" % text)
        require(self.screen.field("txtTexto2") == text + "2", "%r is not shown" % text)
        # The entries of the list of Valor2 hold the text, too.
        self.fill_other_fields(self.screen)
        if self.save(self.screen, text):
            self.expect_stored("CTeCodigo = %d" % FIRST, text)
        self.rows(
            "Update genCodigoTexto Set CTeTextoCorto = 'T1', CTeTextoLargo = 'L1', CTeValor1 = 1, "
            "CTeValor2 = 771, CTeValor3 = 1 Where CTeIDTipoVista = 77 And CTeCodigo = %d" % FIRST
        )
        self.screen.say("close", "activate %d" % VIEW)

    def value_of_the_call(self, text):
        screen = self.opened("--view", str(VIEW), "--code", "-1", "--value", text, "--user", text)
        require(screen.field("txtTexto1") == text, "%r shows %r" % (text, screen.field("txtTexto1")))
        screen.say("set txtTexto2 " + json.dumps("por valor"))
        self.fill_other_fields(screen)
        self.save(screen, text)
        quoted = json.dumps(text)
        # A view that asks who may open it, a sequence of that name, and a value of it.
        other = json.dumps(text + "!")
        lines = ["close", "activate 21", "add 77 %s %s" % (quoted, other), "add 77 Todo " + quoted]
        screen.process.stdin.write("\n".join(lines) + "\n")
        require(screen.close() == 0, "the program did not end well")
        self.rows("Delete From genCodigoTexto Where CTeIDTipoVista = 77 And CTeCodigo > 100")

    def name_of_view_10(self, text):
        self.screen.say("close", "activate %d" % NAMES, "action 3")
        self.screen.say("focus txtTexto1", "paste " + json.dumps(text))
        self.save(self.screen, text)
        self.rows("Delete From genCodigoTexto Where CTeIDTipoVista = 10 And CTeCodigo > 8")
        self.screen.say("close", "activate %d" % VIEW)

    def list_of_view_10(self, text):
        """The codes that its listing gets from what is stored."""
        if "\0" in text and kind in NO_NUL:
            return
        self.rows("Delete From genListas")
        self.rows(
            "Insert Into genListas (LisIDLista, LisIDClave, LisLista) Values (1, %s, %s)"
            % (self.user, literal(text))
        )
        events = errors(self.screen.say("close", "activate %d" % NAMES))
        refused = [e["detail"].startswith(REFUSED) for e in events]
        require(refused == ([] if text in CODES else [True]), "%r: %s" % (text, events))
        self.rows("Delete From genListas")
        self.screen.say("close", "activate %d" % VIEW)

    def codes_of_view_10(self, text):
        """The codes that its check gets from a list whose codes are texts."""
        if "\0" in text and kind in NO_NUL:
            return
        self.rows("Update Catalogador Set ABMConsulta = %s Where ABMIDFormVista = 10" % literal(CODED))
        self.rows(
            "Update genCodigoTexto Set CTeTextoLargo = %s Where CTeIDTipoVista = 10" % literal(text)
        )
        self.screen.say("close", "activate %d" % NAMES, "action 3", 'set txtTexto1 "Nuevo"')
        events = errors(self.screen.say("answer 6", "action 6"))
        refused = [e["detail"].startswith(REFUSED) for e in events]
        require(refused == ([] if text in CODES else [True]), "%r: %s" % (text, events))
        self.rows("Update Catalogador Set ABMConsulta = %s Where ABMIDFormVista = 10" % literal(NAMED))
        self.rows("Delete From genCodigoTexto Where CTeIDTipoVista = 10 And CTeCodigo > 8")
        self.screen.say("close", "activate %d" % VIEW)


def play(desk, text):
    for how in ("set", "paste"):
        desk.new_record(text, how)
    desk.numbers(text)
    desk.filter(text)
    desk.stored_by_another(text)
    if "\0" not in text:
        desk.value_of_the_call(text)
    desk.name_of_view_10(text)


def play_codes(desk, text):
    desk.list_of_view_10(text)
    desk.codes_of_view_10(text)


def attack(desk, allowed):
    ran = 0
    for text in HOSTILE:
        start = desk.log.size()
        play(desk, text)
        play_codes(desk, text)
        statements = desk.log.since(start)
        ran += len(statements)
        for statement in statements:
            if desk.log.shape(statement) not in allowed | desk.own:
                fail("%r made the database run: %s" % (text, statement))
        require(desk.rows("Select CanCodigo From canary") == [[42]], "%r: canary" % text)
        require(os.listdir(".") == [], "%r made a file" % text)
    print(
        "%d hostile texts: %d saved, %d refused; %d statements of %d shapes that harmless text gives"
        % (len(HOSTILE), desk.saved, desk.refused, ran, len(allowed))
    )


def main():
    EngineLog.require(kind)
    with OwnDatabase(program, kind) as database:
        make_view(database)
        log = EngineLog(kind, database, library)
        os.chdir(tempfile.mkdtemp(dir=database.folder))
        start = log.size()
        desk = Desk(database, log)
        for text in HARMLESS:
            play(desk, text)
        require(desk.refused == 0, "harmless text is refused")
        for text in CODES:
            play_codes(desk, text)
        allowed = {log.shape(statement) for statement in log.since(start)}
        require(len(allowed) > 25, "the log says too little: %s" % allowed)
        attack(desk, allowed)
        require(desk.screen.close() == 0, "the program did not end well")


main()
