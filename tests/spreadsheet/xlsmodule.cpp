#include "spreadsheet/book.h"

/// What a plug-in does with workbooks; the file's name in UTF-8.
extern "C" Q_DECL_EXPORT bool saveXls(const char *fileName)
{
    const Spreadsheet::BookPointer book = Spreadsheet::xlCreateBookA();
    return book->addSheet(QStringLiteral("s"))->writeStr(0, 0, QStringLiteral("x"))
        && book->save(QString::fromUtf8(fileName));
}
