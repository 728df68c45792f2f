"""A blind clerk finds a country in the list, changes it, hears that the code is taken, mends that,
saves, and hears the new text in the list."""

import sys

import pyatspi
from screen_reader import Program, below, until


def table_of(program):
    return until("the list is there", lambda: program.all(pyatspi.ROLE_TABLE))[0]


def row_of(table, column, text):
    for row in range(table.nRows):
        if table.getAccessibleAt(row, column).name == text:
            return row
    raise AssertionError("the list has no " + text)


def write(field, text):
    until(field.name + " takes text", lambda: field.getState().contains(pyatspi.STATE_SENSITIVE))
    field.queryEditableText().setTextContents(text)


def main(program):
    grid = table_of(program)
    table = grid.queryTable()
    assert grid.name == "Países", grid.name
    assert [table.getColumnHeader(c).name for c in range(table.nColumns)] == ["Código", "País"]
    assert table.nRows == 249, table.nRows
    assert grid.getState().contains(pyatspi.STATE_MANAGES_DESCENDANTS)
    sorts = dict(a.split(":", 1) for a in table.getColumnHeader(0).getAttributes())
    assert sorts["sort"] == "ascending", sorts

    peru = row_of(table, 1, "Perú")
    table.addRowSelection(peru)
    until("Peru is selected", lambda: list(table.getSelectedRows()) == [peru])
    until("the row is told", lambda: program.heard() == ["PE", "Perú"])
    cell = table.getAccessibleAt(peru, 1)
    assert cell.getState().contains(pyatspi.STATE_SELECTED)
    assert cell.queryTableCell().columnHeaderCells[0].name == "País"

    program.choose("Modificar")
    code = program.one(pyatspi.ROLE_TEXT, "Código ISO:")
    name = program.one(pyatspi.ROLE_TEXT, "Nombre del país:")
    until("the record is in the fields", lambda: code.queryText().getText(0, -1) == "PE")

    write(code, "ES")
    program.choose("Grabar")
    program.answer(program.box("¿Desea grabar los datos?"), "Sí")
    program.answer(program.box("Ya existe otro registro con el valor ES"), "Aceptar")

    write(code, "PE")
    write(name, "República del Perú")
    program.choose("Grabar")
    program.answer(program.box("¿Desea grabar los datos?"), "Sí")
    until("the new text is told", lambda: program.heard() == ["PE", "República del Perú"])
    assert "República del Perú" in [
        table.getAccessibleAt(row, 1).name for row in table.getSelectedRows()
    ]


if __name__ == "__main__":
    opened = Program(sys.argv[1], "open", "--database", sys.argv[2], "--view", "1")
    try:
        main(opened)
    except AssertionError:
        for node in below(opened.application):
            print(node.getRoleName(), repr(node.name), node.childCount)
        raise
    finally:
        opened.end()
    print("everything was found and told")
