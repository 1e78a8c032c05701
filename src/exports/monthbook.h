#pragma once

#include "exports/sheetlook.h"
#include "exports/sizedformats.h"

/// What the workbooks of a branch's and of a person's month share: a look in colours of the standard palette, and
/// money.
class MonthBook {
public:
    /// Adds the formats to `book`, which has its default font already.
    explicit MonthBook(Spreadsheet::Book &book);

    /// For a sum of money in a column of `width` digits of the default font.
    const Spreadsheet::Format *moneyTotal(double sum, double width) const;

    SheetLook look;
    const Spreadsheet::Format *money; ///< `SheetLook::cellRight` in "#0.00 €"

private:
    MonthBook(Spreadsheet::Book &book, int euro);

    SizedFormats m_totals; ///< `SheetLook::totalRight` in "#0.00 €"
};
