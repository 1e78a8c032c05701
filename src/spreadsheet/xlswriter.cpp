#include "spreadsheet/bookstate.h"
#include "spreadsheet/writers.h"
#include "spreadsheet/xlsglobals.h"
#include "spreadsheet/xlssheet.h"

#include <algorithm>

namespace Spreadsheet {

namespace {

bool fitsXls(const SheetData &sheet)
{
    const bool cellsFit = sheet.cells.rowCount() <= xlsLimits.rows && sheet.cells.columnCount() <= xlsLimits.columns;
    const bool columnsFit = sheet.columns.isEmpty() || sheet.columns.lastKey() < xlsLimits.columns;
    const bool rowsFit = sheet.rows.isEmpty() || sheet.rows.lastKey() < xlsLimits.rows;
    const bool mergesFit = std::all_of(sheet.merges.begin(), sheet.merges.end(), [](const MergeData &merge) {
        return merge.rowLast < xlsLimits.rows && merge.colLast < xlsLimits.columns;
    });
    return cellsFit && columnsFit && rowsFit && mergesFit && sheet.repeatLast < xlsLimits.rows;
}

/// A book of another format may hold more than an XLS file can.
bool fitsXls(const WorkbookData &book)
{
    return book.fonts.size() <= xlsLimits.fonts + 1 && book.formats.size() <= xlsLimits.formats + 1
        && book.numFormats.size() <= xlsLimits.numFormats
        && std::all_of(book.sheets.begin(), book.sheets.end(), [](const SheetData &sheet) { return fitsXls(sheet); });
}

} // namespace

bool writeXls(const WorkbookData &book, QIODevice &device, QString *error)
{
    if (!fitsXls(book)) {
        *error = QStringLiteral("The book is larger than an XLS file can be");
        return false;
    }
    XlsPalette palette;
    if (!palette.choose(book, error))
        return false;
    OleContainer container(device);
    RecordStream stream(container);
    const OpenPlaces places = writeGlobals(stream, book, palette);
    quint32 textCells = 0;
    for (std::size_t index = 0; index < book.sheets.size(); ++index) {
        stream.patch(places.sheets[index], stream.position());
        textCells += writeSheet(stream, book, book.sheets[index], index == 0);
    }
    stream.patch(places.textCells, textCells);
    return stream.finish(error) && container.close(error);
}

} // namespace Spreadsheet
