#pragma once

#include "exports/sheetlook.h"

/// What the workbooks of a branch's and of a person's month share: a look in colours of the standard palette, and
/// money.
struct MonthBook {
    /// Adds the formats to `book`, which has its default font already.
    explicit MonthBook(Spreadsheet::Book &book);

    SheetLook look;
    const Spreadsheet::Format *money; ///< `SheetLook::cellRight` in "#0.00 €"
    const Spreadsheet::Format *moneyTotal; ///< `SheetLook::totalRight` in "#0.00 €"
};
