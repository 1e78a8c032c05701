#include "spreadsheet/xlssheet.h"

#include "spreadsheet/units.h"
#include "spreadsheet/xlsglobals.h"
#include "spreadsheet/xlsrows.h"
#include "spreadsheet/xlsstyles.h"

#include <algorithm>

namespace Spreadsheet {

namespace {

/// CALCMODE to SAVERECALC: a sheet without formulas leaves them as they are in a new one.
void writeCalculation(RecordStream &stream)
{
    constexpr double change = 0.001;
    stream.begin(Biff::CALCMODE).u16(1).end();
    stream.begin(Biff::CALCCOUNT).u16(100).end();
    stream.begin(Biff::REFMODE).u16(1).end();
    stream.begin(Biff::ITERATION).u16(0).end();
    stream.begin(Biff::DELTA).f64(change).end();
    stream.begin(Biff::SAVERECALC).u16(1).end();
}

/// PRINTHEADERS, PRINTGRIDLINES, GRIDSET
void writePrintOptions(RecordStream &stream, const SheetData &sheet)
{
    stream.begin(Biff::PRINTHEADERS).u16(0).end();
    stream.begin(Biff::PRINTGRIDLINES).u16(sheet.printGridlines).end();
    stream.begin(Biff::GRIDSET).u16(1).end();
}

/// GUTS, DEFAULTROWHEIGHT, WSBOOL
void writeLayout(RecordStream &stream, const SheetData &sheet, int defaultHeight)
{
    constexpr int usual = 0x04c1;
    constexpr int fitToPage = 0x0100;
    stream.begin(Biff::GUTS).fill(0, 8).end();
    stream.begin(Biff::DEFAULTROWHEIGHT).u16(0).u16(defaultHeight).end();
    stream.begin(Biff::WSBOOL).u16(sheet.fitWidth >= 0 ? usual | fitToPage : usual).end();
}

/// HEADER, FOOTER
void writeHeaderAndFooter(RecordStream &stream, const SheetData &sheet)
{
    stream.begin(Biff::HEADER).end();
    stream.begin(Biff::FOOTER);
    if (!sheet.footer.isEmpty())
        stream.string16(QLatin1String("&C") + sheet.footer);
    stream.end();
}

/// HCENTER, VCENTER and the four margins
void writeMargins(RecordStream &stream, const SheetData &sheet)
{
    stream.begin(Biff::HCENTER).u16(0).end();
    stream.begin(Biff::VCENTER).u16(0).end();
    stream.begin(Biff::LEFTMARGIN).f64(sheet.marginLeft).end();
    stream.begin(Biff::RIGHTMARGIN).f64(sheet.marginRight).end();
    stream.begin(Biff::TOPMARGIN).f64(sheet.marginTop).end();
    stream.begin(Biff::BOTTOMMARGIN).f64(sheet.marginBottom).end();
}

/// SETUP
void writeSetup(RecordStream &stream, const SheetData &sheet)
{
    constexpr int portrait = 0x0002;
    constexpr int percent = 100;
    constexpr int dotsPerInch = 600;
    constexpr double headerMargin = 0.3; // inches
    const double footMargin = sheet.footer.isEmpty() ? headerMargin : footerMargin(sheet.marginBottom);
    const bool fits = sheet.fitWidth >= 0;
    stream.begin(Biff::SETUP).u16(sheet.paper).u16(percent).u16(1); // first page
    stream.u16(fits ? sheet.fitWidth : 1).u16(fits ? sheet.fitHeight : 1).u16(sheet.landscape ? 0 : portrait);
    stream.u16(dotsPerInch).u16(dotsPerInch).f64(headerMargin).f64(footMargin).u16(1).end(); // copies
}

bool isSame(const ColumnData &a, const ColumnData &b)
{
    return a.width == b.width && a.format == b.format && a.hidden == b.hidden;
}

/// COLINFO of columns that are alike
void writeColumns(RecordStream &stream, int first, int last, const ColumnData &data)
{
    constexpr double usualWidth = 8.43;
    const bool hidden = data.hidden || data.width == 0;
    stream.begin(Biff::COLINFO).u16(first).u16(last);
    stream.u16(fileColumnWidth(data.width < 0 ? usualWidth : data.width)).u16(xfOf(data.format));
    stream.u16(hidden).u16(0).end();
}

/// DEFCOLWIDTH and one COLINFO for each group of columns that are alike
void writeAllColumns(RecordStream &stream, const QMap<int, ColumnData> &columns)
{
    constexpr int usualDigits = 8;
    stream.begin(Biff::DEFCOLWIDTH).u16(usualDigits).end();
    for (auto first = columns.begin(); first != columns.end();) {
        auto next = std::next(first);
        int last = first.key();
        for (; next != columns.end() && next.key() == last + 1 && isSame(*next, *first); ++next)
            ++last;
        writeColumns(stream, first.key(), last, *first);
        first = next;
    }
}

/// WINDOW2
void writeView(RecordStream &stream, const SheetData &sheet, bool isFirst)
{
    constexpr int usual = 0x00b4; // headings, zeros, usual colour of the grid, outline symbols
    constexpr int gridlines = 0x0002;
    constexpr int chosenAndShown = 0x0600;
    constexpr int automaticLine = 64;
    const int options = usual | (sheet.displayGridlines ? gridlines : 0) | (isFirst ? chosenAndShown : 0);
    stream.begin(Biff::WINDOW2).u16(options).u16(0).u16(0).u16(automaticLine).u16(0).u16(0).u16(0).u32(0).end();
}

/// MERGEDCELLS, as many as it takes
void writeMerges(RecordStream &stream, const QVector<MergeData> &merges)
{
    constexpr int mostInRecord = 1026;
    for (int done = 0; done < merges.size(); done += mostInRecord) {
        const int end = std::min(done + mostInRecord, merges.size());
        stream.begin(Biff::MERGEDCELLS).u16(end - done);
        for (int index = done; index < end; ++index) {
            const MergeData &merge = merges.at(index);
            stream.u16(merge.rowFirst).u16(merge.rowLast).u16(merge.colFirst).u16(merge.colLast);
        }
        stream.end();
    }
}

} // namespace

quint32 writeSheet(RecordStream &stream, const WorkbookData &book, const SheetData &sheet, bool isFirst)
{
    XlsRows rows(stream, book, sheet);
    writeBof(stream, Substream::Sheet);
    rows.writeIndex();
    writeCalculation(stream);
    writePrintOptions(stream, sheet);
    writeLayout(stream, sheet, rows.defaultHeight());
    writeHeaderAndFooter(stream, sheet);
    writeMargins(stream, sheet);
    writeSetup(stream, sheet);
    writeAllColumns(stream, sheet.columns);
    rows.writeDimensions();
    const quint32 texts = rows.writeRows();
    writeView(stream, sheet, isFirst);
    writeMerges(stream, sheet.merges);
    writeEof(stream);
    return texts;
}

} // namespace Spreadsheet
