#pragma once

class QIODevice;
class QString;

namespace Spreadsheet {

struct WorkbookData;

/// Writes a book as a file of the binary XLS format to an open, empty, random-access device. False with the reason in
/// `error`, in English, when the book cannot be expressed or the device takes no more; what was written is worth
/// nothing then.
bool writeXls(const WorkbookData &book, QIODevice &device, QString *error);

/// Writes a book as a file of the XLSX format to a file of that name, which may be there. False with the reason in
/// `error`, in English, when the book cannot be expressed or the disk takes no more; the file is worth nothing then.
bool writeXlsx(const WorkbookData &book, const QString &fileName, QString *error);

} // namespace Spreadsheet
