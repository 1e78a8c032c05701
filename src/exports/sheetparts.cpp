#include "exports/sheetparts.h"

#include "exports/sheetlook.h"
#include "exports/sheetwriter.h"

#include <QCoreApplication>

namespace SheetParts {

void writeTitle(SheetWriter &writer, const SheetLook &look, const QString &title, int lastCol)
{
    writer.text(0, 0, title, look.title);
    writer.merge(0, 1, 0, lastCol);
}

void writeBranch(SheetWriter &writer, const SheetLook &look, const QString &branch)
{
    writer.text(3, 0, QCoreApplication::translate("MenuWidget", "Stredisko:"), look.caption);
    writer.text(3, 1, branch, look.branch);
}

void writeSpacer(SheetWriter &writer, const SheetLook &look, int row, int lastCol)
{
    writer.fill(row, 0, lastCol, QStringLiteral(" "), look.spacer);
}

void writeGap(SheetWriter &writer, const SheetLook &look, int row, int lastCol)
{
    writer.setHeight(row, 6);
    writer.setHeight(row + 1, 5);
    writeSpacer(writer, look, row + 1, lastCol);
}

void writeFooter(SheetWriter &writer, const SheetLook &look, int row, int timeFirst, int timeLast, const QDateTime &now)
{
    writer.text(row, 1, QStringLiteral("NORVIK-IT Workforce Presence System"), look.footer);
    writer.text(row, timeFirst, now.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")), look.footerTime);
    writer.merge(row, row, timeFirst, timeLast);
}

} // namespace SheetParts
