"""What a screen reader is told of fields: which are required, which can be used, which the last save
refused and why; what a combo says at each arrow; the status line and the filter."""

import subprocess
import sys

import pyatspi
from screen_reader import Program, pump, until


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "20", *keys], check=True, timeout=20)


def has(node, state):
    pump()
    return node.getState().contains(state)


def refused(field, words):
    until("the field is told as invalid", lambda: has(field, pyatspi.STATE_INVALID_ENTRY))
    assert words in field.description, field.description


def write(field, text):
    field.queryEditableText().setTextContents(text)
    until("the text is there", lambda: field.queryText().getText(0, -1) == text)


def required_and_invalid(program):
    code = program.one(pyatspi.ROLE_TEXT, "Código ISO:")
    name = program.one(pyatspi.ROLE_TEXT, "Moneda:")
    decimals = program.one(pyatspi.ROLE_TEXT, "Decimales:")
    assert has(code, pyatspi.STATE_REQUIRED) and has(name, pyatspi.STATE_REQUIRED)
    assert not has(decimals, pyatspi.STATE_REQUIRED)
    assert not has(code, pyatspi.STATE_SENSITIVE)
    program.choose("Nuevo")
    until("the fields can be used", lambda: has(code, pyatspi.STATE_SENSITIVE))
    program.choose("Grabar")
    program.answer(program.box("Faltan datos obligatorios"), "Aceptar")
    refused(code, "Faltan datos obligatorios")
    write(code, "EUR")
    until("what is typed is not refused any more", lambda: not has(code, pyatspi.STATE_INVALID_ENTRY))
    write(name, "Otra moneda")
    write(decimals, "x")
    program.choose("Grabar")
    program.answer(program.box("debe ser un número"), "Aceptar")
    refused(decimals, "debe ser un número")
    write(decimals, "2")
    program.choose("Grabar")
    program.answer(program.box("¿Desea grabar los datos?"), "Sí")
    program.answer(program.box("Ya existe otro registro con el valor EUR"), "Aceptar")
    refused(code, "Ya existe otro registro con el valor EUR")
    return code


def chosen(combo):
    selection = combo.querySelection()
    return selection.getSelectedChild(0).name if selection.nSelectedChildren else ""


def told_entry(program):
    for event in reversed(program.events):
        if event.type.is_subtype(pyatspi.EventType("object:active-descendant-changed")):
            return event.any_data.name
    return ""


def combo_read_aloud(program, code):
    combo = program.one(pyatspi.ROLE_COMBO_BOX, "País emisor:")
    assert combo.childCount > 200, combo.childCount
    assert has(combo, pyatspi.STATE_EXPANDABLE) and not has(combo, pyatspi.STATE_EXPANDED)
    assert not has(combo, pyatspi.STATE_REQUIRED)
    press("Tab", "Tab", "Tab")
    until("the combo has the focus", lambda: has(combo, pyatspi.STATE_FOCUSED))
    for arrow in range(2):
        press("Down")
        wanted = combo.getChildAtIndex(arrow).name
        until(wanted + " is chosen", lambda: chosen(combo) == wanted)
        until(wanted + " is told", lambda: told_entry(program) == wanted)
    press("F4")
    until("the list is told as open", lambda: has(combo, pyatspi.STATE_EXPANDED))
    press("Down")
    until("the marked entry is told", lambda: told_entry(program) == combo.getChildAtIndex(2).name)
    press("Escape")
    until("the list is told as closed", lambda: not has(combo, pyatspi.STATE_EXPANDED))
    assert chosen(combo) == combo.getChildAtIndex(1).name, chosen(combo)


def status_and_filter(program):
    def status():
        return [n.name for n in program.all(pyatspi.ROLE_STATUS_BAR) if n.name]

    program.choose("Cancelar")
    until("the status tells the position", lambda: any(" de " in name for name in status()))
    program.press_tool("Filtrar")
    box = program.one(pyatspi.ROLE_TEXT, "Filtrar la lista")
    until("the filter box has the focus", lambda: has(box, pyatspi.STATE_FOCUSED))
    write(box, "peso")
    press("Return")
    until("the status tells the filter", lambda: any("«peso»" in name for name in status()))
    until(
        "the button says what it does now",
        lambda: [
            n
            for role in (pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_PUSH_BUTTON)
            for n in program.all(role)
            if n.name == "Quitar el filtro"
        ],
    )


if __name__ == "__main__":
    opened = Program(sys.argv[1], "open", "--database", sys.argv[2], "--view", "3")
    try:
        field = required_and_invalid(opened)
        combo_read_aloud(opened, field)
        status_and_filter(opened)
    finally:
        opened.end()
    print("the fields were told")
