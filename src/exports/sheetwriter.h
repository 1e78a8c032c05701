#pragma once

#include "spreadsheet/book.h"

#include <QString>

/// Writes one sheet, whose rows and columns count from 0, and remembers whether the sheet took everything: a file
/// format with too few rows or columns makes an incomplete sheet, which is not to be saved.
///
/// A text longer than the 32,767 UTF-16 code units that a cell holds is cut to them, not in the middle of a character;
/// the sheet counts as complete then.
class SheetWriter {
public:
    using Format = Spreadsheet::Format;

    /// `sheet` must outlive the writer.
    explicit SheetWriter(Spreadsheet::Sheet &sheet)
        : m_sheet(sheet)
    {
    }

    /// Whether the sheet took all that was written so far.
    bool isComplete() const { return m_complete; }

    void text(int row, int col, const QString &text, const Format *format);
    void number(int row, int col, double value, const Format *format);
    /// The number that stands in a cell; 0 in an empty one.
    double numberAt(int row, int col) const { return m_sheet.readNum(row, col); }
    /// The same text in each cell from `colFirst` to `colLast`; none if that lies before.
    void fill(int row, int colFirst, int colLast, const QString &text, const Format *format);
    /// One cell over all of these, which may be a single one.
    void merge(int rowFirst, int rowLast, int colFirst, int colLast);
    /// Points.
    void setHeight(int row, double height);
    /// Digits of the default font; nothing if `colLast` lies before `colFirst`.
    void setWidth(int colFirst, int colLast, double width);
    void hideColumn(int col);
    /// Rows at the head of each printed page.
    void repeatRows(int rowFirst, int rowLast);
    /// See `Spreadsheet::Sheet::setFooter`.
    void setPageFooter(const QString &footer);

private:
    void note(bool taken) { m_complete = m_complete && taken; }

    Spreadsheet::Sheet &m_sheet;
    bool m_complete = true;
};
