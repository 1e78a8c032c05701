#include "exports/monthbook.h"

using namespace Spreadsheet;

namespace {

SheetColors monthColors(const Book &book)
{
    return {book.colorPack(0, 173, 239), book.colorPack(250, 250, 250), colorWhite, colorGray25, colorGray50};
}

} // namespace

MonthBook::MonthBook(Book &book)
    : look(book, monthColors(book))
{
    // No cell has the first one: whoever edits the workbook finds it among its number formats.
    book.addCustomNumFormat(QStringLiteral("#0.00"));
    const int euro = book.addCustomNumFormat(QStringLiteral("#0.00 €"));
    money = SheetLook::withNumFormat(book, look.cellRight, euro);
    moneyTotal = SheetLook::withNumFormat(book, look.totalRight, euro);
}
