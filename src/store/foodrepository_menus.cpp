// The menu grids of FoodRepository. The statements stand in store/menuqueries.cpp, the rows in store/menurows.cpp, the
// sums in store/menufolding.cpp.
#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "store/menufolding.h"
#include "store/menuqueries.h"
#include "store/menurows.h"
#include "store/sqloperation.h"

#include <QDebug>
#include <QLocale>
#include <QStandardItemModel>

namespace {

QString currencySymbol()
{
    return QLocale().currencySymbol(QLocale::CurrencySymbol);
}

void setHeader(QStandardItemModel *model, int column, const QString &text, const QString &toolTip = QString())
{
    model->setHeaderData(column, Qt::Horizontal, text);
    if (!toolTip.isEmpty())
        model->setHeaderData(column, Qt::Horizontal, toolTip, Qt::ToolTipRole);
}

} // namespace

QStandardItemModel *FoodRepository::loadDayMenu(QDate date, uint segmentID, uint bid)
{
    qInfo() << "FoodRepository::loadDayMenu(" << date << segmentID << bid << ")";
    auto *model = new QStandardItemModel(0, MenuColumn::Count);
    setHeader(model, MenuColumn::Name, tr("jedlo"));
    setHeader(model, MenuColumn::Limit, tr("limit"), tr("Limit počtu objednávok (0 = bez limitu)"));
    SqlOperation reading = operation("FoodRepository(loading day menu)", tr("Nepodarilo sa načítať menu!"));
    reading.load(
        MenuQueries::dayMenu(bid),
        {{QStringLiteral(":date"), date}, {QStringLiteral(":segmentID"), segmentID}, {QStringLiteral(":bid"), bid}},
        [model](const QSqlQuery &row) { model->appendRow(MenuRows::day(row)); });
    MenuFolding::foldDayMenu(*model);
    qInfo("FoodRepository(loading day menu) - SQL: %s", reading.query().lastQuery().toLocal8Bit().constData());
    return model;
}

QStandardItemModel *FoodRepository::loadMenuWidgetMenu(QDate date, uint bid, int uid)
{
    qDebug() << "FoodRepository::loadMenuWidgetMenu() ::: Creating MenuWidget menu, date: " << date
             << ", branch ID: " << bid << "user ID: " << uid;
    const QString limitToolTip = tr("Limit počtu objednávok");
    auto *model = new QStandardItemModel(0, MenuColumn::Count);
    setHeader(model, MenuColumn::Name, tr("jedlo"));
    setHeader(model, MenuColumn::Total, tr("obj."), tr("Počet objednaných jedál"));
    setHeader(model, MenuColumn::Limit, tr("limit"), limitToolTip);
    operation("FoodRepository(loadMenuWidgetMenu)", tr("Nepodarilo sa načítať menu!"))
        .load(MenuQueries::week(date, bid, uid),
              [model, &limitToolTip](const QSqlQuery &row) { model->appendRow(MenuRows::week(row, limitToolTip)); });
    qDebug() << "FoodRepository::loadMenuWidgetMenu() ::: MenuWidget menu created, rowcount: " << model->rowCount();
    return model;
}

QStandardItemModel *FoodRepository::loadPersonDayMenu(QDate date, uint segmentID, int uid, uint bid)
{
    auto *model = new QStandardItemModel(0, PersonMenuColumn::Count);
    const bool loaded = operation("FoodRepository(loading day menu)", tr("Nepodarilo sa načítať menu!"))
                            .load(MenuQueries::personDay(bid),
                                  {{QStringLiteral(":date"), date},
                                   {QStringLiteral(":segmentID"), segmentID},
                                   {QStringLiteral(":bid"), bid},
                                   {QStringLiteral(":uid"), uid}},
                                  [model](const QSqlQuery &row) { model->appendRow(MenuRows::personDay(row)); });
    if (!loaded)
        return model;
    const QString symbol = currencySymbol();
    const MenuFolding::Totals totals = MenuFolding::foldPersonMenu(*model, symbol);
    model->appendRow(MenuRows::personTotal(tr("Celkom"), QString::number(totals.portions),
                                           MenuFolding::moneyText(totals.money, symbol)));
    return model;
}

QStandardItemModel *FoodRepository::loadWeekMenu(QDate date, uint bid)
{
    auto *model = new QStandardItemModel(0, WeekMenuColumn::Count);
    const QString symbol = currencySymbol();
    SqlOperation reading = operation("FoodRepository(loadWeekMenu)", tr("Nepodarilo sa načítať menu!"));
    for (int offset = 0; offset < 7; ++offset) {
        const QDate day = date.addDays(offset);
        qDebug() << day << "date, bid:" << bid;
        const QString dayText = QLocale().toString(day, QStringLiteral(" d.M.yyyy - dddd"));
        reading.run(MenuQueries::printedDay(day, bid));
        while (reading.query().next())
            model->appendRow(MenuRows::printedDay(reading.query(), dayText, symbol));
    }
    // Only the last day's failure is told of, on purpose: a lost connection shows one box and not seven.
    reading.succeededOrReported();
    MenuFolding::removeEmptyHeadings(*model);
    return model;
}
