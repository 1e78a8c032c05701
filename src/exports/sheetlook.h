#pragma once

#include "spreadsheet/book.h"

#include <QString>

/// The colours of a workbook.
struct SheetColors {
    Spreadsheet::Color accent;
    Spreadsheet::Color pale;
    Spreadsheet::Color white;
    Spreadsheet::Color line; ///< borders of the cells
    Spreadsheet::Color faint; ///< what matters least
};

/// The formats that the workbooks of the module share, so that they look alike. They belong to the book.
struct SheetLook {
    using Book = Spreadsheet::Book;
    using Font = Spreadsheet::Font;
    using Format = Spreadsheet::Format;

    /// Makes the formats in `book`, which has its default font already. `headingFont` names the font of the title, the
    /// headings and the labels; empty for the default font.
    SheetLook(Book &book, const SheetColors &sheetColors, const QString &headingFont = QString());

    /// A copy of `format` with a number format of the same book.
    static const Format *withNumFormat(Book &book, const Format *format, int numFormat);

    SheetColors colors;

    const Font *labelFont; ///< bold and white, for headings
    const Font *cellFont;
    const Font *totalFont; ///< bold

    const Format *title; ///< white on the accent colour
    const Format *caption; ///< bold, before a value
    const Format *branch; ///< large, in the accent colour
    const Format *spacer; ///< a thick line above, a thin one below
    const Format *header; ///< white on the accent colour, centred
    const Format *headerRight;
    const Format *cell; ///< bordered, centred
    const Format *cellLeft;
    const Format *cellRight;
    const Format *total; ///< bordered, bold, centred
    const Format *totalLeft;
    const Format *totalRight;
    const Format *footer; ///< no border
    const Format *footerTime; ///< no border, faint, to the right

private:
    void makeHeadings(Book &book, const QString &headingFont);
    void makeCells(Book &book);
    void makeFooter(Book &book);
};
