"""What kind of box is shown is told in the screen's language, and so are its buttons."""

import sys

import pyatspi
from screen_reader import Program, below, until

WORDS = {
    "1": ("Eliminar", "Pregunta", ["No", "Sí"]),
    "2": ("Delete", "Question", ["No", "Yes"]),
    "3": ("Excluir", "Pergunta", ["Não", "Sim"]),
}


def main(executable, database, number):
    command, kind, buttons = WORDS[number]
    program = Program(executable, "open", "--database", database, "--view", "1", "--language", number)
    try:
        program.choose(command)
        box = until("a box is shown", lambda: program.all(pyatspi.ROLE_ALERT))[0]
        inside = list(below(box))
        assert kind in [n.description for n in inside] + [n.name for n in inside], [
            (n.getRoleName(), n.name, n.description) for n in inside
        ]
        found = sorted(n.name for n in inside if n.getRole() == pyatspi.ROLE_PUSH_BUTTON)
        assert found == buttons, found
        program.answer(box, buttons[0])
    finally:
        program.end()


if __name__ == "__main__":
    for language in WORDS:
        main(sys.argv[1], sys.argv[2], language)
    print("the boxes were told in three languages")
