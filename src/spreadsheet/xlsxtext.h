#pragma once

#include <QByteArray>
#include <QString>

/// Texts as libxlsxwriter wants them: UTF-8 that ends with a null character and holds nothing that XML cannot. What XML
/// cannot hold at all (the null character, half of a surrogate pair, U+FFFE, U+FFFF) becomes U+FFFD.
namespace Spreadsheet {

/// The text of a cell. Readers take "_x0041_" for the character of that number, so the first underscore of such a text
/// is given by its number itself. Control characters stay: the library gives theirs.
QByteArray xlsxCellText(const QString &text);
/// A name or a code: of a sheet, a font or a number format, or a page's foot. Control characters but the line feed
/// become U+FFFD too.
QByteArray xlsxName(const QString &text);

} // namespace Spreadsheet
