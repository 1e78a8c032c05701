#pragma once

#include <QDateTime>
#include <QString>

class SheetWriter;
struct SheetLook;

/// What the sheets of the module have in common. Rows and columns count from 0.
namespace SheetParts {

/// The bar at the top, in the rows 0 and 1, from column 0 to `lastCol`.
void writeTitle(SheetWriter &writer, const SheetLook &look, const QString &title, int lastCol);
/// "Stredisko:" and the branch, in row 3.
void writeBranch(SheetWriter &writer, const SheetLook &look, const QString &branch);
/// A blank in the cells of `row` from column 0 to `lastCol`, between a thick and a thin line.
void writeSpacer(SheetWriter &writer, const SheetLook &look, int row, int lastCol);
/// The same in the second of two low rows, of which `row` is the first.
void writeGap(SheetWriter &writer, const SheetLook &look, int row, int lastCol);
/// The name of the program in column 1, and in one cell from `timeFirst` to `timeLast` when the sheet was made.
void writeFooter(SheetWriter &writer, const SheetLook &look, int row, int timeFirst, int timeLast,
                 const QDateTime &now);

} // namespace SheetParts
