"""A failure is told in the clerk's words, with the procedure, the number and the database's own words
below."""

import subprocess
import sys

import pyatspi
from screen_reader import Program, below


def lines_of(box):
    return [n.name for n in below(box) if n.getRole() == pyatspi.ROLE_LABEL and n.name]


def main(executable, database, language, expected):
    program = Program(executable, "open", "--database", database, "--view", "1", "--language", language)
    try:
        modify, task, text, button = expected
        item = program.menu_item(modify)
        rename(executable, database, "genCodigoTexto", "gone")
        program.choose(item.name)
        box = program.box(task)
        told = lines_of(box)
        assert told[0] == task, told
        assert told[1].replace("\n", " ").startswith(text), told
        assert told[2].startswith("40002 - ") and "genCodigoTexto" in told[2], told
        assert task in box.description and text in box.description, box.description
        program.answer(box, button)
    finally:
        program.end()
        rename(executable, database, "gone", "genCodigoTexto")


def rename(executable, database, name, new):
    subprocess.run(
        [executable, "run", "--database", database, "--view", "0", "--surface", "script"],
        input='sql "Alter Table %s Rename To %s"\n' % (name, new),
        text=True,
        check=True,
        stdout=subprocess.DEVNULL,
        timeout=30,
    )


if __name__ == "__main__":
    for number, words in {
        "1": ("Modificar", "No se pudo abrir el registro.", "Ocurrió un error en CargoDatos.", "Aceptar"),
        "2": ("Modify", "The record could not be opened.", "An error occurred in CargoDatos.", "OK"),
        "3": ("Alterar", "Não foi possível abrir o registro.", "Ocorreu um erro em CargoDatos.", "OK"),
    }.items():
        main(sys.argv[1], sys.argv[2], number, words)
    print("the error was told in three languages")
