"""Text is readable in every theme: on pictures of the screen, listing and editing, the contrast of the
texts of the panel, the list, the selected row and the status line is measured."""

import os
import re
import subprocess
import sys
import tempfile

import pyatspi
from screen_reader import Program, below, pump, until

THEMES = {
    "light": {"GTK_THEME": "Adwaita"},
    "dark": {"GTK_THEME": "Adwaita:dark"},
    "contrast": {"GTK_THEME": "HighContrast"},
    "contrast-inverse": {"GTK_THEME": "HighContrastInverse"},
    "large-text": {"GTK_THEME": "Adwaita", "GDK_DPI_SCALE": "1.5"},
    "large-dark": {"GTK_THEME": "Adwaita:dark", "GDK_SCALE": "2"},
}
# The themes whose own colours differ most from those of the list.
BOXES_IN = ("light", "dark", "contrast-inverse")
READABLE = 4.5
READABLE_DISABLED = 3.0
# What the panel's design fixes.
GOLD = (0xFF, 0xD7, 0x00)


def luminance(colour):
    def linear(part):
        part /= 255
        return part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4

    red, green, blue = (linear(part) for part in colour)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def contrast(one, other):
    lighter, darker = sorted((luminance(one), luminance(other)), reverse=True)
    return (lighter + 0.05) / (darker + 0.05)


class Picture:
    def __init__(self):
        self.file = tempfile.NamedTemporaryFile(suffix=".ppm")
        subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", self.file.name], check=True)
        data = open(self.file.name, "rb").read()
        head = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", data)
        self.width, self.height = int(head.group(1)), int(head.group(2))
        self.pixels = data[head.end() :]

    def at(self, x, y):
        start = 3 * (y * self.width + x)
        return tuple(self.pixels[start : start + 3])

    def colours(self, place):
        """How often each colour occurs in a place (left, top, width, height), lines across the whole
        of it left out."""
        left, top, width, height = place
        xs = range(max(0, left), min(self.width, left + width))
        ys = range(max(0, top), min(self.height, top + height))
        rows = [[self.at(x, y) for x in xs] for y in ys]
        most = {}
        for row in rows:
            for colour in row:
                most[colour] = most.get(colour, 0) + 1
        background = max(most, key=most.get)
        columns = [c for c in zip(*rows) if len(set(c)) > 1 or c[0] == background]
        rows = [r for r in zip(*columns) if len(set(r)) > 1 or r[0] == background]
        counts = {}
        for row in rows:
            for colour in row:
                counts[colour] = counts.get(colour, 0) + 1
        return background, counts

    def contrast(self, place):
        """That of the text in a place: its most frequent colour is the background, and what differs
        most from it, but for single pixels, is the text. The edges of letters are paler."""
        background, counts = self.colours(place)
        told = [colour for colour, count in counts.items() if count >= 3]
        return max(contrast(background, colour) for colour in told), background


def extents(node, inset=0):
    box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    # Places are told in the desktop's units, which are several pixels on a screen that is scaled.
    scale = int(os.environ["GDK_SCALE"])
    left, top, width, height = (scale * part for part in (box.x, box.y, box.width, box.height))
    return left + inset, top + inset, width - 2 * inset, height - 2 * inset


def bands(picture, place):
    """The selected row and the rows that are not, as places inside the list's."""
    left, top, width, height = place
    across = range(left, min(picture.width, left + width), 4)
    golden = [
        y
        for y in range(top, min(picture.height, top + height))
        if sum(picture.at(x, y) == GOLD for x in across) > len(across) / 2
    ]
    assert golden, "no row is drawn as selected"
    first, last = golden[0], golden[-1]
    row = last - first + 1
    selected = (left, first + 1, width, row - 2)
    after = (left + 2, last + 3, width - 4, 3 * row)
    return selected, after


def measure(program, theme, editing, found):
    picture = Picture()

    def note(what, place, least):
        ratio, background = picture.contrast(place)
        state = "editing" if editing else "listing"
        line = "%-17s %-8s %-30s %5.1f on #%02X%02X%02X" % (theme, state, what, ratio, *background)
        print(line)
        if ratio < least:
            found.append(line)

    table = program.all(pyatspi.ROLE_TABLE)[0]
    listed = extents(table)
    panel = [n for n in program.all(pyatspi.ROLE_LABEL) if n.name.rstrip("* ").endswith(":")]
    assert len(panel) >= 4, [n.name for n in panel]
    for label in panel:
        enabled = label.getState().contains(pyatspi.STATE_SENSITIVE)
        assert enabled == editing, label.name
        note("label " + label.name, extents(label), READABLE if enabled else READABLE_DISABLED)
    selected, rows = bands(picture, listed)
    head = (listed[0] + 2, listed[1] + 3, listed[2] - 4, selected[1] - listed[1] - 4)
    if head[3] > 8:
        note("headers", (head[0], head[1], head[2], min(head[3], 16)), READABLE)
    note("selected row", selected, READABLE)
    note("other rows", rows, READABLE)
    status = [n for n in program.all(pyatspi.ROLE_STATUS_BAR) if n.name]
    note("status line", extents(status[0]), READABLE)
    if not editing:
        return
    for name in ("Código ISO:", "Moneda:"):
        note("field " + name, extents(program.one(pyatspi.ROLE_TEXT, name), 4), READABLE)
    combo = extents(program.one(pyatspi.ROLE_COMBO_BOX, "País emisor:"), 4)
    note("combo", combo, READABLE)


def covered(picture, place):
    """How much of a place has another colour than the background around it."""
    background, counts = picture.colours(place)
    return 1 - counts.get(background, 0) / sum(counts.values())


def measure_checks(program, theme, found):
    """The boxes of a column of the list while a record is edited: an outline and a tick on the list's
    own background, and no block of the theme's colour."""
    table = program.all(pyatspi.ROLE_TABLE)[0].queryTable()
    column = table.nColumns - 1
    picture = Picture()
    for row in range(1, 5):
        cell = table.getAccessibleAt(row, column)
        ticked = cell.getState().contains(pyatspi.STATE_CHECKED)
        assert cell.getState().contains(pyatspi.STATE_CHECKABLE), cell.name
        place = extents(cell, 2)
        ratio, background = picture.contrast(place)
        share = covered(picture, place)
        line = "%-17s %-30s %5.1f on #%02X%02X%02X, %2d %% covered" % (
            theme, "ticked box" if ticked else "box", ratio, *background, 100 * share)
        print(line)
        if ratio < READABLE_DISABLED or not ticked and share > 0.12:
            found.append(line)


def settle():
    for _ in range(12):
        pump()


def check_boxes(executable, database, theme, found):
    program = Program(executable, "open", "--database", database, "--view", "21")
    try:
        until("the list is there", lambda: program.all(pyatspi.ROLE_TABLE))
        program.choose("Modificar")
        until("the record is there", lambda: any(
            n.queryText().getText(0, -1) for n in program.all(pyatspi.ROLE_TEXT)))
        settle()
        measure_checks(program, theme, found)
    finally:
        program.end()


def main(executable, database):
    found = []
    for theme, environment in THEMES.items():
        os.environ.update({"GDK_DPI_SCALE": "1", "GDK_SCALE": "1", **environment})
        program = Program(executable, "open", "--database", database, "--view", "3")
        try:
            until("the list is there", lambda: program.all(pyatspi.ROLE_TABLE))
            settle()
            measure(program, theme, False, found)
            program.choose("Modificar")
            code = program.one(pyatspi.ROLE_TEXT, "Código ISO:")
            until("the record is there", lambda: code.queryText().getText(0, -1))
            settle()
            measure(program, theme, True, found)
        except AssertionError:
            for node in below(program.application):
                print(node.getRoleName(), repr(node.name))
            raise
        finally:
            program.end()
        if theme in BOXES_IN:
            check_boxes(executable, database, theme, found)
    assert not found, "hard to read:\n" + "\n".join(found)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
    print("every text was readable in %d themes" % len(THEMES))
