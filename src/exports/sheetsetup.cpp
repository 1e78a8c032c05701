#include "exports/sheetsetup.h"

#include "session/session.h"
#include "spreadsheet/book.h"

#include <QDebug>

namespace {

constexpr int defaultFontSize = 10;
constexpr int longestSheetName = 31;
/// Inches, 5 mm.
constexpr double margin = 0.1968;

void setUpBook(Spreadsheet::Book &book)
{
    if (book.setLocale(QStringLiteral("UTF-8")))
        qDebug("setLocale OK");
    else
        qWarning("setLocale Fail!");
    book.setDefaultFont(QLatin1String(defaultSheetFont), defaultFontSize);
    if (session().debugLevel > 0)
        qDebug() << "default font:" << book.defaultFontName() << book.defaultFontSize();
    book.setRgbMode(true);
}

void setUpPage(Spreadsheet::Sheet &sheet)
{
    sheet.setDisplayGridlines(false);
    sheet.setPrintGridlines(false);
    sheet.setMarginLeft(margin);
    sheet.setMarginRight(margin);
    sheet.setMarginTop(margin);
    sheet.setMarginBottom(margin);
    sheet.setPrintFit(1, 0);
    sheet.setLandscape(true);
    sheet.setPaper(Spreadsheet::PAPER_A4);
}

} // namespace

Spreadsheet::Sheet *beginSheet(Spreadsheet::Book &book, const QString &title)
{
    setUpBook(book);
    Spreadsheet::Sheet *sheet = book.addSheet(title.left(longestSheetName));
    if (sheet)
        setUpPage(*sheet);
    return sheet;
}
