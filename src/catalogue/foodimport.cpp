#include "catalogue/foodimport.h"

#include "catalogue/csvrow.h"
#include "models/foodmodel.h"
#include "models/segmentmodel.h"
#include "models/suppliermodel.h"
#include "models/typemodel.h"
#include "session/session.h"

#include <QDate>
#include <QDebug>
#include <QTextStream>

#include <cmath>

namespace {

/// Columns of the file that are read.
enum Field : int { Supplier = 1, Type, Name, Description, Price, Date = 7, Slot, Branch };

constexpr int foodFields = 7;
constexpr int menuFields = 10;

constexpr int keyColumn = 0;
constexpr int supplierNameColumn = 1;
constexpr int typeNameColumn = 1;
constexpr int segmentNameColumn = 1;

/// Decimal point or comma; what is no number, "nan" and "inf" included, is 0.
double priceOf(QString text)
{
    const double price = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    return std::isfinite(price) ? price : 0;
}

} // namespace

FoodImport::FoodImport(const QSqlDatabase &db, const SupplierModel &suppliers, const TypeModel &types, FoodModel *foods,
                       SegmentModel *segments)
    : m_foodRepository(db)
    , m_alergenRepository(db)
    , m_orderableRepository(db)
    , m_suppliers(keysByName(suppliers, supplierNameColumn))
    , m_types(keysByName(types, typeNameColumn))
    , m_foodIDs(keysByName(*foods, FoodModel::Name))
    , m_foods(foods)
    , m_segments(segments)
{
}

/// Of several rows with one name the first counts.
FoodImport::Keys FoodImport::keysByName(const QAbstractItemModel &model, int nameColumn)
{
    Keys keys;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString name = model.index(row, nameColumn).data().toString();
        if (!keys.contains(name))
            keys.insert(name, model.index(row, keyColumn).data().toUInt());
    }
    return keys;
}

void FoodImport::run(QTextStream &in)
{
    QStringList record;
    Csv::readRow(in, &record); // the header, whatever it says
    const qint64 first = m_row;
    while (Csv::readRow(in, &record)) {
        readRecord(record);
        // A later record finds the foods of the earlier ones. The list may be older than the catalogue before the run,
        // so it is loaded anew once; from then on this run knows what it added, and 10,000 records do not cost 10,000
        // loads of the catalogue.
        if (m_row == first) {
            m_foods->refresh();
            m_foodIDs = keysByName(*m_foods, FoodModel::Name);
        }
        ++m_row;
    }
    if (m_row > first + 1)
        m_foods->refresh();
}

void FoodImport::readRecord(const QStringList &record)
{
    if (record.size() < foodFields)
        return;
    if (session().debugLevel > 1)
        qDebug() << record;
    FoodRecord food;
    food.supplierID = m_suppliers.value(record.at(Supplier));
    food.typeID = m_types.value(record.at(Type));
    food.foodID = m_foodIDs.value(record.at(Name));
    food.name = record.at(Name);
    food.description = record.at(Description);
    food.price = priceOf(record.at(Price));

    uint foodID = food.foodID;
    if (food.supplierID == 0 || food.typeID == 0) {
        ++m_foodsFailed;
        if (food.supplierID == 0)
            complain(tr("V riadku %1 je nesprávne vyplnený dodávateľ.\n"));
        if (food.typeID == 0)
            complain(tr("V riadku %1 je nesprávne vyplnený typ jedla.\n"));
    } else {
        foodID = writeFood(food);
    }
    if (record.size() >= menuFields && !(record.at(Date).isEmpty() && record.at(Slot).isEmpty()))
        writeMenuItem(record, food, foodID);
}

/// The key of the food. Its picture is never touched: `hasPicture` is false.
uint FoodImport::writeFood(FoodRecord food)
{
    if (food.foodID == 0) {
        ++m_foodsWritten;
        const bool added = m_foodRepository.addFood(food);
        const uint foodID = m_foodRepository.loadLastfoodID();
        if (added)
            m_foodIDs.insert(food.name, foodID);
        return foodID;
    }
    ++m_foodsDuplicated;
    m_foodRepository.updateFood(food);
    // The file's allergens are not read: importing over a food leaves it without any, on purpose.
    m_alergenRepository.deleteAllFoodAlergen(food.foodID);
    return food.foodID;
}

void FoodImport::writeMenuItem(const QStringList &record, const FoodRecord &food, uint foodID)
{
    const QString &branch = record.at(Branch);
    OrderableRecord item;
    item.segmentID = findSegment(record.at(Slot));
    item.foodID = foodID;
    item.price = food.price;
    item.date = QDate::fromString(record.at(Date), QStringLiteral("yyyy-MM-dd"));
    item.position = 1;
    if (!branch.isEmpty())
        item.bid = uint(m_foodRepository.loadBranchID(branch));

    const bool branchIsGood = branch.isEmpty() || item.bid != 0;
    if (!item.date.isValid() || item.segmentID == 0 || !branchIsGood) {
        if (!item.date.isValid())
            complain(tr("V riadku %1 je nesprávne vyplnený dátum.\n"));
        if (item.segmentID == 0)
            complain(tr("V riadku %1 je nesprávne vyplnený výdaj.\n"));
        ++m_itemsFailed;
        if (!branchIsGood)
            complain(tr("V riadku %1 je nesprávne vyplnené stredisko.\n"));
        return;
    }
    qDebug() << "CSV IMPORT - Adding orderable to menu";
    if (m_orderableRepository.orderableExists(item)) {
        ++m_itemsDuplicated;
    } else {
        // Stands ready for the day that the check tells what is on the menu; until then it is never reached.
        m_orderableRepository.addOrderable(item);
        ++m_itemsWritten;
    }
}

/// The key of the first slot of that name, 0 for none.
uint FoodImport::findSegment(const QString &name)
{
    m_segments->refresh();
    for (int row = 0; row < m_segments->rowCount(); ++row) {
        const QString segment = m_segments->index(row, segmentNameColumn).data().toString();
        qDebug() << name << segment << " comparison of segment";
        if (segment == name)
            return m_segments->index(row, keyColumn).data().toUInt();
    }
    return 0;
}

void FoodImport::complain(const QString &fault)
{
    m_faults += fault.arg(m_row);
}

QString FoodImport::summary() const
{
    const QString foodsFailed =
        m_foodsFailed > 0 ? tr("Nepodarilo sa importovať %1 jedál. \n").arg(m_foodsFailed) : QString();
    const QString itemsFailed =
        m_itemsFailed > 0 ? tr("Nepodarilo sa importovať %1 položiek menu. \n").arg(m_itemsFailed) : QString();
    return tr("Import dokončený. \n\nPočet zapísaných jedál: %1 \nPočet duplikátov jedál: %2 \n%3 \nPočet zapísaných "
              "položiek menu: %4 \nPočet duplikátov položiek menu: %5 \n%6 \n%7")
        .arg(m_foodsWritten)
        .arg(m_foodsDuplicated)
        .arg(foodsFailed)
        .arg(m_itemsWritten)
        .arg(m_itemsDuplicated)
        .arg(itemsFailed, m_faults);
}
