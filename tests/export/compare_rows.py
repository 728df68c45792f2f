"""Compares the rows that a transcript shows with a workbook and with a CSV file made from it.

compare_rows.py TRANSCRIPT WORKBOOK CSV
"""

import csv
import json
import sys

import openpyxl


def shown_rows(path):
    with open(path, encoding="utf-8") as lines:
        events = [json.loads(line) for line in lines]
    rows = next(event["rows"] for event in events if event["event"] == "rows")
    shown = []
    for row in rows:
        if row["hidden"]:
            continue
        checks = {1: True, 2: False, None: None}
        cells = zip(row["cells"], row["checks"])
        shown.append([text if check is None else checks[check] for text, check in cells])
    return shown


def as_shown(value):
    """What the grid shows for a value that a spreadsheet program gives."""
    if value is None:
        return ""
    if isinstance(value, (bool, str)):
        return value
    return repr(value)


def main():
    transcript, workbook, text = sys.argv[1:]
    wanted = shown_rows(transcript)
    sheet = openpyxl.load_workbook(workbook).active
    header, *found = [list(row) for row in sheet.iter_rows(values_only=True)]
    assert all(isinstance(name, str) for name in header), header
    assert sheet.freeze_panes == "A2", sheet.freeze_panes
    assert sheet.auto_filter.ref == sheet.dimensions, (sheet.auto_filter.ref, sheet.dimensions)
    assert not any(cell.data_type == "f" for row in sheet.iter_rows() for cell in row)
    found = [[as_shown(value) for value in row] for row in found]
    assert found == wanted, next(pair for pair in zip(found, wanted) if pair[0] != pair[1])

    with open(text, encoding="utf-8", newline="") as lines:
        _, *rows = list(csv.reader(lines, delimiter="\t"))
    spelled = [[str(cell).upper() if isinstance(cell, bool) else cell for cell in row] for row in wanted]
    assert rows == spelled, next(pair for pair in zip(rows, spelled) if pair[0] != pair[1])
    print(f"{workbook}: {len(wanted)} rows in {len(header)} columns")


main()
