#pragma once

#include "spreadsheet/workbook.h"

namespace Spreadsheet {

/// What a file format can hold. The default font and the default look come on top of `fonts` and `formats`.
struct BookLimits {
    int rows;
    int columns;
    int formats;
    int fonts;
    int numFormats;
    int numFormatBytes; ///< of one custom number format, in UTF-8
};

constexpr BookLimits xlsLimits{65536, 256, 4000, 500, 200, 255};
constexpr BookLimits xlsxLimits{1048576, 16384, 64000, 64000, 64000, 127};

// Limits that both formats have.
constexpr int maxTextLength = 32767;
constexpr int maxNameLength = 31; ///< of sheets and fonts
constexpr int maxFooterLength = 253;
constexpr int maxSheets = 255;
constexpr int maxFontSize = 409;
constexpr int maxColumnWidth = 255;
constexpr int maxRowHeight = 409;
constexpr int maxMargin = 49;
constexpr int maxFitPages = 32767;

/// What the book, its sheets, formats and fonts share.
struct BookState {
    explicit BookState(const BookLimits &bookLimits);

    WorkbookData data;
    const BookLimits limits;
    mutable QString error;

    /// Keeps the reason of a failure; false, so that an operation can return it.
    bool fail(const QString &reason) const;
    /// Whether there are such rows, from a first to a last one.
    bool hasRows(int first, int last) const
    {
        return (first >= 0 && first <= last && last < limits.rows) || failRange("rows", first, last, limits.rows);
    }
    bool hasColumns(int first, int last) const
    {
        return (first >= 0 && first <= last && last < limits.columns)
            || failRange("columns", first, last, limits.columns);
    }
    bool isColor(Color color) const;
    bool isFontName(const QString &name) const;
    bool isFontSize(int size) const;

private:
    bool failRange(const char *what, int first, int last, int count) const;
};

/// Whether a text has characters below the space, but for those in `allowed`.
bool hasControlCharacters(const QString &text, const QString &allowed = QString());

} // namespace Spreadsheet
