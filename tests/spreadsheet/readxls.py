#!/usr/bin/python3
"""Prints what an XLS file holds as JSON, read by xlrd: readxls.py FILE

xlrd tells neither the page set-up nor what is wrong with the positions by which other readers find rows and strings
without reading all before them; both are read here from the records of the stream that it finds in the container.
"""
import io
import json
import struct
import sys

import xlrd
from xlrd.compdoc import CompDoc

CELL_TYPES = {xlrd.XL_CELL_TEXT: "text", xlrd.XL_CELL_NUMBER: "number", xlrd.XL_CELL_DATE: "date",
              xlrd.XL_CELL_BLANK: "blank", xlrd.XL_CELL_BOOLEAN: "boolean", xlrd.XL_CELL_ERROR: "error"}
HORIZONTAL = {0: "general", 1: "left", 2: "center", 3: "right"}
VERTICAL = {0: "top", 1: "center", 2: "bottom"}


def colour(book, index):
    """A colour as rrggbb, or "auto"."""
    rgb = book.colour_map.get(index)
    return "auto" if rgb is None else "%02x%02x%02x" % rgb


def look(book, xf):
    """A cell's format with its font."""
    font = book.font_list[xf.font_index]
    border, background, alignment = xf.border, xf.background, xf.alignment
    sides = {side: [getattr(border, side + "_line_style"), colour(book, getattr(border, side + "_colour_index"))]
             for side in ("left", "right", "top", "bottom")}
    return {"font": {"name": font.name, "size": font.height / 20, "bold": font.weight == 700,
                     "color": colour(book, font.colour_index)},
            "numFormat": book.format_map[xf.format_key].format_str,
            "alignH": HORIZONTAL[alignment.hor_align], "alignV": VERTICAL[alignment.vert_align],
            "wrap": bool(alignment.text_wrapped), "fill": background.fill_pattern,
            "foreground": colour(book, background.pattern_colour_index), **sides}


def positioned_records(stream):
    """The records of a stream: position, number, content."""
    at = 0
    while at + 4 <= len(stream):
        number, size = struct.unpack_from("<HH", stream, at)
        yield at, number, stream[at + 4:at + 4 + size]
        at += 4 + size


def records(stream):
    """The records of a stream: number, content."""
    return ((number, data) for _, number, data in positioned_records(stream))


def string(data):
    """A string with 16 bits of length."""
    size, wide = struct.unpack_from("<HB", data)
    return data[3:3 + size * 2].decode("utf-16-le") if wide else data[3:3 + size].decode("latin-1")


def pages(stream):
    """The page set-up of each sheet, in order."""
    found = []
    single = {0x26: "left", 0x27: "right", 0x28: "top", 0x29: "bottom"}
    for number, data in records(stream):
        if number == 0x809:
            found.append({"footer": ""})
        page = found[-1]
        if number in single:
            page[single[number]] = struct.unpack("<d", data)[0]
        elif number == 0x15 and data:
            page["footer"] = string(data)
        elif number == 0x2B:
            page["printGridlines"] = bool(struct.unpack("<H", data)[0])
        elif number == 0x81:
            page["fits"] = bool(struct.unpack("<H", data)[0] & 0x100)
        elif number == 0xA1:
            paper, _, _, wide, high, options = struct.unpack_from("<6H", data)
            page["footerMargin"] = struct.unpack_from("<d", data, 24)[0]
            page.update(paper=paper, fitWidth=wide, fitHeight=high, landscape=not options & 2)
        elif number == 0xE5:
            page.setdefault("mergeRecords", []).append(struct.unpack_from("<H", data)[0])
    return found[1:]


def wrong_strings(stream, strings):
    """What SST and EXTSST say wrong of the shared strings."""
    shown = sum(number == 0xFD for number, _ in records(stream))
    uses = next(struct.unpack_from("<I", data)[0] for number, data in records(stream) if number == 0xFC)
    if uses != shown:
        yield "SST tells of %d cells, there are %d" % (uses, shown)
    starts = {at: number for at, number, _ in positioned_records(stream)}
    data = next(data for number, data in records(stream) if number == 0xFF)
    group = struct.unpack_from("<H", data)[0]
    places = [struct.unpack_from("<IH", data, at) for at in range(2, len(data), 8)]
    if len(places) != -(-len(strings) // group):
        yield "EXTSST has %d places for %d strings in groups of %d" % (len(places), len(strings), group)
    for index, (position, offset) in enumerate(places):
        length = len(strings[index * group].encode("utf-16-le")) // 2
        if starts.get(position - offset) not in (0xFC, 0x3C) or struct.unpack_from("<H", stream, position)[0] != length:
            yield "EXTSST is wrong about string %d" % (index * group)


def torn_strings(stream):
    """Shared strings whose length, option byte and first two characters are not in one record."""
    parts = []
    for number, data in records(stream):
        if number == 0xFC:
            parts = [data]
        elif number == 0x3C:
            parts.append(data)
    count = struct.unpack_from("<I", parts[0], 4)[0]
    part, at = 0, 8
    for index in range(count):
        if at == len(parts[part]):
            part, at = part + 1, 0
        size, wide = struct.unpack_from("<HB", parts[part], at)
        at += 3
        if len(parts[part]) - at < min(size, 2) * (1 + wide):
            yield "string %d is torn" % index
        left = size
        while left:
            if at == len(parts[part]):
                wide = parts[part + 1][0]
                part, at = part + 1, 1
            taken = min(left, (len(parts[part]) - at) // (1 + wide))
            left -= taken
            at += taken * (1 + wide)


def wrong_rows(stream):
    """What INDEX and DBCELL say wrong of the rows."""
    all_records = {at: (number, data) for at, number, data in positioned_records(stream)}
    indexed = []
    for number, data in all_records.values():
        if number == 0x20B:
            indexed += [struct.unpack_from("<I", data, at)[0] for at in range(16, len(data), 4)]
    if indexed != [at for at, (number, _) in all_records.items() if number == 0xD7]:
        yield "INDEX is wrong"
    rows = []
    for at, (number, data) in all_records.items():
        if number == 0x208:
            rows.append((at, *struct.unpack_from("<HHH", data)))
        elif number == 0xD7:
            first = struct.unpack_from("<I", data)[0]
            offsets = struct.unpack_from("<%dH" % (len(data) // 2 - 2), data, 4)
            if len(offsets) != len(rows) or (rows and at - first != rows[0][0]):
                yield "DBCELL at %d does not know its rows" % at
            place = at - first + 20
            for offset, (_, row, col_first, col_end) in zip(offsets, rows):
                place += offset
                if col_first < col_end and struct.unpack_from("<HH", all_records[place][1]) != (row, col_first):
                    yield "DBCELL at %d is wrong about row %d" % (at, row)
            rows = []


def sheet(book, number, page):
    """A sheet with its cells as [row, column, type, value, format], numbers as text."""
    source = book.sheet_by_index(number)
    cells = []
    for row in range(source.nrows):
        for col in range(source.row_len(row)):
            cell = source.cell(row, col)
            if cell.ctype != xlrd.XL_CELL_EMPTY:
                # JSON does not tell a negative zero from zero.
                value = repr(cell.value) if cell.ctype == xlrd.XL_CELL_NUMBER else cell.value
                cells.append([row, col, CELL_TYPES[cell.ctype], value, cell.xf_index])
    columns = {col: {"width": info.width, "hidden": bool(info.hidden), "format": info.xf_index}
               for col, info in source.colinfo_map.items()}
    rows = {row: {"height": info.height / 20, "own": bool(info.height_mismatch), "hidden": bool(info.hidden),
                  "format": info.xf_index if info.has_default_xf_index else -1}
            for row, info in source.rowinfo_map.items()}
    return {"name": source.name, "rowCount": source.nrows, "columnCount": source.ncols, "cells": cells,
            "columns": columns, "rows": rows, "gridlines": bool(source.show_grid_lines),
            "merges": sorted(list(merge) for merge in source.merged_cells), "page": page}


def main():
    """Reads the file of the command line."""
    with open(sys.argv[1], "rb") as file:
        content = file.read()
    log = io.StringIO()
    book = xlrd.open_workbook(file_contents=content, formatting_info=True, ragged_rows=True, on_demand=True,
                              logfile=log)
    container, start, size = CompDoc(content, logfile=log).locate_named_stream("Workbook")
    stream = container[start:start + size]
    pages_of_sheets = pages(stream)
    wrong = [*wrong_strings(stream, book._sharedstrings), *torn_strings(stream), *wrong_rows(stream)]
    names = [{"name": name.name, "builtIn": bool(name.builtin), "sheet": name.scope,
              "area": [list(ref.coords) for ref in name.result.value] if name.result else []}
             for name in book.name_obj_list]
    json.dump({"sheets": [sheet(book, number, page) for number, page in enumerate(pages_of_sheets)],
               "formats": [look(book, xf) for xf in book.xf_list], "names": names, "fontCount": len(book.font_list),
               "log": log.getvalue() + "\n".join(wrong)}, sys.stdout)


main()
