#pragma once

#include "spreadsheet/workbook.h"

/// What a book holds, filled without a book.
class XlsxData {
public:
    XlsxData()
    {
        data.fonts.append(font(QStringLiteral("MS Shell Dlg 2"), 10));
        data.formats.append(Spreadsheet::FormatData());
        addSheet(QStringLiteral("Sheet"));
    }

    static Spreadsheet::FontData font(const QString &name, int size)
    {
        Spreadsheet::FontData result;
        result.name = name;
        result.size = size;
        return result;
    }
    Spreadsheet::SheetData &addSheet(const QString &name)
    {
        data.sheets.emplace_back();
        data.sheets.back().name = name;
        return data.sheets.back();
    }
    Spreadsheet::SheetData &sheet() { return data.sheets.back(); }

    int addFont(const Spreadsheet::FontData &font)
    {
        data.fonts.append(font);
        return data.fonts.size() - 1;
    }
    int addFormat(const Spreadsheet::FormatData &format)
    {
        data.formats.append(format);
        return data.formats.size() - 1;
    }
    /// One that is told from the default look by its fill.
    int addFill(Spreadsheet::Color color)
    {
        Spreadsheet::FormatData format;
        format.fill = Spreadsheet::FillPattern::Solid;
        format.foreground = color;
        return addFormat(format);
    }
    int addNumFormat(const QString &text)
    {
        data.numFormats.append(text);
        Spreadsheet::FormatData format;
        format.numFormat = Spreadsheet::firstCustomNumFormat + data.numFormats.size() - 1;
        return addFormat(format);
    }

    void writeText(int row, int col, const QString &text, int format = 0)
    {
        write(row, col, data.texts.indexOf(text), format);
    }
    void writeNumber(int row, int col, double number, int format = 0)
    {
        write(row, col, Spreadsheet::Cell::isNumber, format).number = number;
    }
    void writeBlank(int row, int col, int format) { write(row, col, Spreadsheet::Cell::isBlank, format); }

    Spreadsheet::WorkbookData data;

private:
    Spreadsheet::Cell &write(int row, int col, qint32 text, int format)
    {
        Spreadsheet::Cell &cell = sheet().cells.at(row, col);
        cell.text = text;
        cell.format = quint16(format);
        return cell;
    }
};

/// A colour that `colorPack` gives.
constexpr Spreadsheet::Color rgb(int value)
{
    return 0x1000000 | value;
}
