#include "spreadsheet/xlsglobals.h"

#include "spreadsheet/xlsstrings.h"
#include "spreadsheet/xlsstyles.h"

namespace Spreadsheet {

namespace {

constexpr int utf16Codepage = 1200;

/// A record of one field of 16 bits.
struct FlagRecord {
    Biff::Record type;
    int value;
};

/// What a workbook may set and ours leaves as it is in a new one, in the order that readers expect.
constexpr FlagRecord protection[] = {
    {Biff::FNGROUPCOUNT, 14}, {Biff::WINDOWPROTECT, 0}, {Biff::PROTECT, 0},
    {Biff::PASSWORD, 0},      {Biff::PROT4REV, 0},      {Biff::PROT4REVPASS, 0},
};
constexpr FlagRecord calculation[] = {
    {Biff::BACKUP, 0},    {Biff::HIDEOBJ, 0},    {Biff::DATE1904, 0},
    {Biff::PRECISION, 1}, {Biff::REFRESHALL, 0}, {Biff::BOOKBOOL, 0},
};

template<int count> void writeFlags(RecordStream &stream, const FlagRecord (&records)[count])
{
    for (const FlagRecord &record : records)
        stream.begin(record.type).u16(record.value).end();
}

/// INTERFACEHDR, MMS, INTERFACEEND
void writeInterface(RecordStream &stream)
{
    stream.begin(Biff::INTERFACEHDR).u16(utf16Codepage).end();
    stream.begin(Biff::MMS).u16(0).end();
    stream.begin(Biff::INTERFACEEND).end();
}

/// WRITEACCESS: who wrote the file last, nobody; filled up with spaces to its fixed size.
void writeUser(RecordStream &stream)
{
    constexpr int size = 112;
    stream.begin(Biff::WRITEACCESS).string16(QString());
    stream.fill(' ', size - stream.positionInRecord() + 4).end();
}

/// CODEPAGE, DSF, TABID
void writeEncoding(RecordStream &stream, int sheetCount)
{
    stream.begin(Biff::CODEPAGE).u16(utf16Codepage).end();
    stream.begin(Biff::DSF).u16(0).end();
    stream.begin(Biff::TABID);
    for (int sheet = 1; sheet <= sheetCount; ++sheet)
        stream.u16(sheet);
    stream.end();
}

/// WINDOW1: one window, in twips, with scroll bars and tabs, the first sheet in it.
void writeWindow(RecordStream &stream)
{
    constexpr int scrollBarsAndTabs = 0x0038;
    constexpr int left = 240;
    constexpr int top = 120;
    constexpr int width = 16000;
    constexpr int height = 9000;
    constexpr int tabsShare = 600; // thousandths of the window's width
    stream.begin(Biff::WINDOW1).u16(left).u16(top).u16(width).u16(height).u16(scrollBarsAndTabs);
    stream.u16(0).u16(0).u16(1).u16(tabsShare).end(); // active sheet, first tab, sheets chosen
}

/// BOUNDSHEET of each sheet: its place, which is not known yet, and its name.
std::vector<quint32> writeSheetList(RecordStream &stream, const WorkbookData &book)
{
    std::vector<quint32> places;
    for (const SheetData &sheet : book.sheets) {
        stream.begin(Biff::BOUNDSHEET);
        places.push_back(stream.position());
        stream.u32(0).u16(0).string8(sheet.name).end();
    }
    return places;
}

/// COUNTRY: the file's language has no bearing on its content.
void writeCountry(RecordStream &stream)
{
    constexpr int unitedStates = 1;
    stream.begin(Biff::COUNTRY).u16(unitedStates).u16(unitedStates).end();
}

/// The numbers of the sheets that repeat rows on print.
std::vector<int> repeatingSheets(const WorkbookData &book)
{
    std::vector<int> numbers;
    for (std::size_t number = 0; number < book.sheets.size(); ++number) {
        if (book.sheets[number].repeatFirst >= 0)
            numbers.push_back(int(number));
    }
    return numbers;
}

/// SUPBOOK and EXTERNSHEET: what the names below refer to, sheets of this file.
void writeReferences(RecordStream &stream, int sheetCount, const std::vector<int> &numbers)
{
    constexpr int ownSheets = 0x0401;
    stream.begin(Biff::SUPBOOK).u16(sheetCount).u16(ownSheets).end();
    stream.begin(Biff::EXTERNSHEET).u16(int(numbers.size()));
    for (const int number : numbers)
        stream.u16(0).u16(number).u16(number);
    stream.end();
}

/// NAME of a sheet's print titles, a built-in one: its formula is the area of the repeated rows. `reference` counts
/// those of EXTERNSHEET.
void writePrintTitles(RecordStream &stream, const SheetData &sheet, int number, int reference)
{
    constexpr int builtIn = 0x0020;
    constexpr int printTitles = 0x07;
    constexpr int area3d = 0x3b;
    constexpr int formulaSize = 11;
    constexpr int lastColumn = 255;
    stream.begin(Biff::NAME).u16(builtIn).u8(0).u8(1).u16(formulaSize).u16(0).u16(number + 1);
    stream.fill(0, 4).u8(0).u8(printTitles); // no menu texts; the name, in 8 bits a character
    stream.u8(area3d).u16(reference).u16(sheet.repeatFirst).u16(sheet.repeatLast).u16(0).u16(lastColumn).end();
}

void writeNames(RecordStream &stream, const WorkbookData &book)
{
    const std::vector<int> numbers = repeatingSheets(book);
    if (numbers.empty())
        return;
    writeReferences(stream, int(book.sheets.size()), numbers);
    for (std::size_t reference = 0; reference < numbers.size(); ++reference) {
        const int number = numbers[reference];
        writePrintTitles(stream, book.sheets[std::size_t(number)], number, int(reference));
    }
}

} // namespace

void writeBof(RecordStream &stream, Substream kind)
{
    constexpr int version = 0x0600;
    constexpr int build = 0x0dbb;
    constexpr int year = 1996;
    stream.begin(Biff::BOF).u16(version).u16(int(kind)).u16(build).u16(year).u32(0x000000c1).u32(0x00000006).end();
}

void writeEof(RecordStream &stream)
{
    stream.begin(Biff::END_OF_SUBSTREAM).end();
}

OpenPlaces writeGlobals(RecordStream &stream, const WorkbookData &book, const XlsPalette &palette)
{
    writeBof(stream, Substream::Globals);
    writeInterface(stream);
    writeUser(stream);
    writeEncoding(stream, int(book.sheets.size()));
    writeFlags(stream, protection);
    writeWindow(stream);
    writeFlags(stream, calculation);
    writeStyles(stream, book, palette);
    stream.begin(Biff::USESELFS).u16(0).end();
    OpenPlaces places;
    places.sheets = writeSheetList(stream, book);
    writeCountry(stream);
    writeNames(stream, book);
    places.textCells = writeSharedStrings(stream, book.texts);
    writeEof(stream);
    return places;
}

} // namespace Spreadsheet
