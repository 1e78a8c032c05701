"""Reads the first sheet of a workbook with an independent reader, xlrd for .xls and openpyxl for .xlsx.

Prints a JSON object: the sheet's name, and "cells", a list of rows, each a list of texts and numbers, null where a cell is
empty. "hidden" has the numbers of the hidden columns.
"""
import json
import sys


def read_xls(name):
    import xlrd

    sheet = xlrd.open_workbook(name, formatting_info=True).sheet_by_index(0)
    rows = [
        [None if cell.ctype in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK) else cell.value for cell in sheet.row(row)]
        for row in range(sheet.nrows)
    ]
    hidden = [column for column, info in sheet.colinfo_map.items() if info.hidden]
    return {"name": sheet.name, "cells": rows, "hidden": sorted(hidden)}


def read_xlsx(name):
    import openpyxl
    from openpyxl.utils import column_index_from_string

    sheet = openpyxl.load_workbook(name).worksheets[0]
    rows = [list(row) for row in sheet.iter_rows(values_only=True)]
    hidden = []
    for letter, info in sheet.column_dimensions.items():
        if info.hidden:
            first = info.min or column_index_from_string(letter)
            hidden.extend(range(first - 1, info.max or first))
    return {"name": sheet.title, "cells": rows, "hidden": sorted(hidden)}


name = sys.argv[1]
json.dump(read_xlsx(name) if name.endswith(".xlsx") else read_xls(name), sys.stdout)
