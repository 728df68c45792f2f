"""Prints what another program reads from a workbook, one thing a line.

read_workbook.py WORKBOOK
"""

import sys

import openpyxl


def spelled(cell):
    """The kind of a cell and its value: s text, n number, b truth, f formula, - nothing."""
    if cell.value is None:
        return "-"
    value = cell.value
    if isinstance(value, str):
        value = value.replace("\n", "\\n").replace("\t", "\\t")
    return f"{cell.data_type}:{value}"


def main():
    book = openpyxl.load_workbook(sys.argv[1])
    sheet = book.active
    print("sheets", book.sheetnames)
    print("frozen", sheet.freeze_panes)
    print("filter", sheet.auto_filter.ref)
    header = list(sheet[1])
    print("bold", all(cell.font.bold for cell in header))
    print("filled", all(cell.fill.fill_type == "solid" for cell in header))
    print("widths", [int(sheet.column_dimensions[cell.column_letter].width) for cell in header])
    last = list(sheet[sheet.max_row])
    print("formats", [cell.number_format for cell in last])
    print("aligned", [cell.alignment.horizontal for cell in last])
    for row in sheet.iter_rows():
        print("|".join(spelled(cell) for cell in row))


main()
