#pragma once

#include <QString>
#include <QVector>

namespace Spreadsheet {

/// Whether a finished XLSX file is whole: every part of it can be unpacked and ends where its XML ends, and the sheets
/// have that many cells, in their order. libxlsxwriter gathers each part in a temporary file and does not notice when
/// the disk under that one is full; such a file would open with rows missing. False with the reason in `error`.
bool isXlsxComplete(const QString &fileName, const QVector<qint64> &cellCounts, QString *error);

} // namespace Spreadsheet
