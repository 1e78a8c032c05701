#pragma once

class QString;

namespace Spreadsheet {
class Book;
class Sheet;
} // namespace Spreadsheet

/// The name of the module's default font in workbooks.
constexpr char defaultSheetFont[] = "MS Shell Dlg 2";

/// How every workbook of the module begins, in a new `book`: texts in UTF-8, the default font in size 10, packed
/// colours, and one sheet without gridlines, with narrow margins, in landscape on A4, printed one page wide. The
/// sheet's name is the first 31 characters of `title`, as many as a name may have. Null when the book takes no sheet of
/// that name.
///
/// Logs "setLocale OK" or the warning "setLocale Fail!", after which it goes on; with `Session::debugLevel` above 0
/// also the default font.
Spreadsheet::Sheet *beginSheet(Spreadsheet::Book &book, const QString &title);
