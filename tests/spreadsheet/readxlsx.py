#!/usr/bin/python3
"""Reads an XLSX file with openpyxl and prints what it holds as JSON: readxlsx.py FILE

Rows and columns count from 0 in what is printed."""
import json
import re
import sys

import openpyxl


def color(value):
    if value is None:
        return None
    return value.rgb if value.type == "rgb" else f"{value.type} {value.value}"


def side(value):
    return [value.style, color(value.color)] if value is not None and value.style else None


def look(cell):
    return {
        "font": {
            "name": cell.font.name,
            "size": cell.font.size,
            "bold": cell.font.bold,
            "color": color(cell.font.color),
        },
        "numFormat": cell.number_format,
        "alignH": cell.alignment.horizontal,
        "alignV": cell.alignment.vertical,
        "wrap": bool(cell.alignment.wrap_text),
        "fill": [cell.fill.patternType, color(cell.fill.fgColor)] if cell.fill.patternType else None,
        "left": side(cell.border.left),
        "right": side(cell.border.right),
        "top": side(cell.border.top),
        "bottom": side(cell.border.bottom),
    }


class Looks:
    """The different looks of a book, each told once; cells refer to them."""

    def __init__(self):
        self.told = []
        self.indexes = {}

    def index(self, cell):
        key = tuple(cell._style or [0] * 9)
        if key not in self.indexes:
            self.indexes[key] = len(self.told)
            self.told.append(look(cell))
        return self.indexes[key]


def text(value):
    """A text as the file format means it: "_x0041_" is the character of that number."""
    return re.sub("_x([0-9A-Fa-f]{4})_", lambda match: chr(int(match.group(1), 16)), value)


def cells(sheet, looks):
    return [
        [row - 1, column - 1, text(cell.value) if cell.data_type == "s" else cell.value, looks.index(cell)]
        for (row, column), cell in sorted(sheet._cells.items())
    ]


def columns(sheet, looks):
    result = []
    for data in sheet.column_dimensions.values():
        for column in range(data.min - 1, data.max):
            result.append([column, data.width, data.hidden, looks.index(data)])
    return result


def rows(sheet, looks):
    return [
        [data.index - 1, data.ht, bool(data.hidden), looks.index(data)]
        for data in sheet.row_dimensions.values()
        if data.ht is not None or data.hidden or data.has_style
    ]


def page(sheet):
    return {
        "showGridlines": sheet.sheet_view.showGridLines is not False,
        "printGridlines": bool(sheet.print_options.gridLines),
        "margins": [
            sheet.page_margins.left,
            sheet.page_margins.right,
            sheet.page_margins.top,
            sheet.page_margins.bottom,
        ],
        "footerMargin": sheet.page_margins.footer,
        "fitToPage": bool(sheet.sheet_properties.pageSetUpPr and sheet.sheet_properties.pageSetUpPr.fitToPage),
        "fitToWidth": sheet.page_setup.fitToWidth,
        "fitToHeight": sheet.page_setup.fitToHeight,
        "orientation": sheet.page_setup.orientation,
        "paper": sheet.page_setup.paperSize,
        "titleRows": sheet.print_title_rows,
        "footerLeft": sheet.oddFooter.left.text,
        "footer": sheet.oddFooter.center.text,
        "footerRight": sheet.oddFooter.right.text,
    }


def merges(sheet):
    return sorted([r.min_row - 1, r.max_row - 1, r.min_col - 1, r.max_col - 1] for r in sheet.merged_cells.ranges)


def main():
    # The reader makes the cells under a merged range anew; what is to be seen is those of the file.
    openpyxl.worksheet.worksheet.Worksheet._clean_merge_range = lambda self, merged: None
    book = openpyxl.load_workbook(sys.argv[1])
    looks = Looks()
    sheets = [
        {
            "name": sheet.title,
            "cells": cells(sheet, looks),
            "columns": columns(sheet, looks),
            "rows": rows(sheet, looks),
            "defaultRowHeight": sheet.sheet_format.defaultRowHeight,
            "merges": merges(sheet),
            "page": page(sheet),
        }
        for sheet in book.worksheets
    ]
    json.dump({"sheets": sheets, "looks": looks.told, "formatCount": len(book._cell_styles)}, sys.stdout)


main()
