#include "exports/monthbook.h"

using namespace Spreadsheet;

namespace {

SheetColors monthColors(const Book &book)
{
    return {book.colorPack(0, 173, 239), book.colorPack(250, 250, 250), colorWhite, colorGray25, colorGray50};
}

/// The format of money, the second one. No cell has the first: whoever edits the workbook finds it among its number
/// formats.
int addNumFormats(Book &book)
{
    book.addCustomNumFormat(QStringLiteral("#0.00"));
    return book.addCustomNumFormat(QStringLiteral("#0.00 €"));
}

} // namespace

MonthBook::MonthBook(Book &book)
    : MonthBook(book, addNumFormats(book))
{
}

MonthBook::MonthBook(Book &book, int euro)
    : look(book, monthColors(book))
    , money(SheetLook::withNumFormat(book, look.cellRight, euro))
    , m_totals(book, SheetLook::withNumFormat(book, look.totalRight, euro), look.totalFont, 11, true)
{
}

const Format *MonthBook::moneyTotal(double sum, double width) const
{
    // Point and blank are together as wide as a digit.
    return m_totals.fitting(characterCount(qint64(sum)) + 4, width);
}
