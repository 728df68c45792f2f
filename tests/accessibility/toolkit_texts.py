"""The dialogs that are not the program's own speak the screen's language: that for files, that for the
page, and the preview."""

import sys

import pyatspi
from screen_reader import Program, below, until


def button_names(program, title):
    def look():
        for role in (pyatspi.ROLE_FILE_CHOOSER, pyatspi.ROLE_DIALOG, pyatspi.ROLE_FRAME):
            for dialog in program.all(role):
                if dialog.name == title:
                    return [
                        n for n in below(dialog, 20) if n.getRole() == pyatspi.ROLE_PUSH_BUTTON
                    ]
        return None

    return until("there is a dialog " + title, look)


def press(buttons, name):
    found = [button for button in buttons if button.name == name]
    assert found, (name, [button.name for button in buttons])
    found[0].queryAction().doAction(0)


def main(executable, database, language, words):
    program = Program(executable, "open", "--database", database, "--view", "3", "--language", language)
    try:
        program.press_tool(words["export"])
        files = button_names(program, words["files"])
        assert words["save"] in [b.name for b in files], [b.name for b in files]
        press(files, words["cancel"])
        program.press_tool(words["print"])
        page = button_names(program, words["page"])
        press(page, words["apply"])
        program.one(pyatspi.ROLE_PUSH_BUTTON, words["close"]).queryAction().doAction(0)
    finally:
        program.end()


if __name__ == "__main__":
    for number, language in {
        "1": {"export": "Exportar", "files": "Exportar la lista", "save": "Guardar", "cancel": "Cancelar",
              "print": "Imprimir", "page": "Configurar página", "apply": "Aplicar",
              "close": "Cerrar"},
        "2": {"export": "Export", "files": "Export the list", "save": "Save", "cancel": "Cancel",
              "print": "Print", "page": "Page Setup", "apply": "Apply",
              "close": "Close"},
        "3": {"export": "Exportar", "files": "Exportar a lista", "save": "Salvar", "cancel": "Cancelar",
              "print": "Imprimir", "page": "Configurar página", "apply": "Aplicar",
              "close": "Fechar"},
    }.items():
        main(sys.argv[1], sys.argv[2], number, language)
    print("the dialogs spoke three languages")
