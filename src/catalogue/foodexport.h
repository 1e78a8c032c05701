#pragma once

#include <QList>
#include <QSqlError>
#include <QStringList>

/// The catalogue as a comma-separated file.
namespace FoodExport {

/// What `loadTable` gives.
struct Table {
    QList<QStringList> rows; ///< the header, then one row a food
    QSqlError error; ///< valid when the statement failed; there is the header only then
};

/// Reads all foods over the process's default connection, not over a page's handle: the export is the same whichever
/// page it is called from. The header has ten plain titles. Each food has the first seven columns only, each value's
/// text between two quote characters; quotes within a value are not doubled. The importing programs of the field expect
/// the file in just this shape.
Table loadTable();

/// Writes the rows, their strings joined with commas, one line each, in the system's encoding. The file appears under
/// its name when it is whole: after a failure, which gives false, whatever stood there before is still there.
bool writeFile(const QString &fileName, const QList<QStringList> &rows);

} // namespace FoodExport
