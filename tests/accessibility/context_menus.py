"""The context menus of the text fields speak the screen's language."""

import subprocess
import sys

import pyatspi
from screen_reader import Program, below, until

WORDS = {
    "1": ("Nuevo", "Código ISO:", {"Cortar", "Copiar", "Pegar", "Seleccionar todo"}),
    "2": ("New", "Código ISO:", {"Cut", "Copy", "Paste", "Select All"}),
    "3": ("Novo", "Código ISO:", {"Recortar", "Copiar", "Colar", "Selecionar tudo"}),
}


def entries(program):
    """The entries of the menus that are not those of the menu bar."""
    found = []
    for index in range(program.application.childCount):
        window = program.application.getChildAtIndex(index)
        if window is None or window.getRole() == pyatspi.ROLE_FRAME:
            continue
        found += [n.name.replace("_", "") for n in below(window) if n.getRole() == pyatspi.ROLE_MENU_ITEM]
    return set(found)


def main(executable, database, number):
    command, name, words = WORDS[number]
    program = Program(executable, "open", "--database", database, "--view", "3", "--language", number)
    try:
        program.choose(command)
        field = program.one(pyatspi.ROLE_TEXT, name)
        until("the field can be used", lambda: field.getState().contains(pyatspi.STATE_SENSITIVE))
        box = field.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        place = [str(box.x + box.width // 2), str(box.y + box.height // 2)]
        subprocess.run(["xdotool", "mousemove", *place, "click", "3"], check=True, timeout=20)
        until("the menu is there", lambda: len(entries(program)) >= len(words))
        assert words <= entries(program), entries(program)
    finally:
        program.end()


if __name__ == "__main__":
    for language in WORDS:
        main(sys.argv[1], sys.argv[2], language)
    print("the menus of the fields spoke three languages")
