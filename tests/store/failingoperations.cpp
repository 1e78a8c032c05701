#include "failingoperations.h"

#include "resulttexts.h"
#include "store/orderrepository.h"
#include "store/settingsrepository.h"

namespace {

using Db = QSqlDatabase;

QDate day()
{
    return {2024, 1, 4};
}

/// An operation with one critical line and, unless `box` is empty, one box.
template<class Call>
FailingOperation operation(const char *name, Call call, const QString &result, const char *tag,
                           const QString &box = QString())
{
    return {name,
            [call](const Db &db) { return textOf(call(db)); },
            result,
            {QString(tag) + " - SQL ERROR: "},
            box.isEmpty() ? QStringList() : QStringList{box}};
}

FoodRecord food(quint32 key)
{
    FoodRecord record;
    record.foodID = key;
    return record;
}

QVector<FailingOperation> foodOperations()
{
    const QString menu = "Nepodarilo sa načítať menu!";
    return {
        operation(
            "loadFood", [](const Db &db) { return FoodRepository(db).loadFood(1); }, "0 '' 0",
            "FoodRepository(loading)", "Nepodarilo sa načítať jedlo!"),
        operation(
            "loadAllFood", [](const Db &db) { return FoodRepository(db).loadAllFood(); }, "0 rows",
            "FoodRepository(loading all)", "Nepodarilo sa načítať jedlá!"),
        operation(
            "addFood", [](const Db &db) { return FoodRepository(db).addFood(food(0)); }, "false",
            "FoodRepository(adding)", "Nepodarilo sa pridať jedlo!"),
        operation(
            "addFood with a key", [](const Db &db) { return FoodRepository(db).addFood(food(5)); }, "false",
            "FoodRepository(adding)", "Nepodarilo sa pridať jedlo!"),
        operation(
            "updateFood", [](const Db &db) { return FoodRepository(db).updateFood(food(5)); }, "false",
            "FoodRepository(updating)", "Nepodarilo sa upraviť jedlo!"),
        operation(
            "deleteFood", [](const Db &db) { return FoodRepository(db).deleteFood(5); }, "false",
            "FoodRepository(deleting)",
            "Nepodarilo sa zmazať jedlo! Skúste najprv zmazať všetky objednávateľné položky tohto jedla."),
        operation(
            "loadLastfoodID", [](const Db &db) { return FoodRepository(db).loadLastfoodID(); }, "0",
            "FoodRepository(load last foodID)", "Nepodarilo sa načítať ID posledného jedla!"),
        {"loadBranchID",
         [](const Db &db) { return textOf(FoodRepository(db).loadBranchID("x")); },
         "0",
         {"BranchModel - adminBranches ERROR: ["},
         {}},
        operation(
            "loadDayMenu", [](const Db &db) { return FoodRepository(db).loadDayMenu(day(), 1, 0); }, "0 rows",
            "FoodRepository(loading day menu)", menu),
        operation(
            "loadMenuWidgetMenu", [](const Db &db) { return FoodRepository(db).loadMenuWidgetMenu(day(), 4); },
            "0 rows", "FoodRepository(loadMenuWidgetMenu)", menu),
        operation(
            "loadPersonDayMenu", [](const Db &db) { return FoodRepository(db).loadPersonDayMenu(day(), 1, 5, 0); },
            "0 rows", "FoodRepository(loading day menu)", menu),
        operation(
            "loadWeekMenu", [](const Db &db) { return FoodRepository(db).loadWeekMenu(day(), 0); }, "0 rows",
            "FoodRepository(loadWeekMenu)", menu),
    };
}

QVector<FailingOperation> typeOperations()
{
    return {
        operation(
            "loadType", [](const Db &db) { return TypeRepository(db).loadType(1); }, "0 '' 0",
            "TypeRepository(loading)", "Nepodarilo sa načítať typ jedla !"),
        operation(
            "addType", [](const Db &db) { return TypeRepository(db).addType(TypeRecord()); }, "false",
            "TypeRepository(adding)", "Nepodarilo sa pridať typ jedla !"),
        operation(
            "updateType", [](const Db &db) { return TypeRepository(db).updateType(TypeRecord()); }, "false",
            "TypeRepository(updating)", "Nepodarilo sa upraviť typ jedla !"),
        operation(
            "deleteType", [](const Db &db) { return TypeRepository(db).deleteType(1); }, "false",
            "TypeRepository(deleting)",
            "Nepodarilo sa zmazať typ jedla ! Skúste pred zmazaním typu jedla najprv zmazať všetky jedlá tohoto typu."),
        operation(
            "moveType", [](const Db &db) { return TypeRepository(db).moveType(1, 2); }, "false",
            "TypeRepository(moving type position)", "Nepodarilo sa upraviť typ jedla !"),
    };
}

QVector<FailingOperation> alergenOperations()
{
    return {
        operation(
            "loadAlergen", [](const Db &db) { return AlergenRepository(db).loadAlergen(1); }, "0 ''",
            "AlergenRepository(loading)", "Nepodarilo sa načítať alergén!"),
        operation(
            "addAlergen", [](const Db &db) { return AlergenRepository(db).addAlergen(AlergenRecord()); }, "false",
            "AlergenRepository(adding)", "Nepodarilo sa pridať alergén!"),
        operation(
            "updateAlergen", [](const Db &db) { return AlergenRepository(db).updateAlergen(AlergenRecord()); }, "false",
            "AlergenRepository(updating)", "Nepodarilo sa upraviť alergén!"),
        operation(
            "deleteAlergen", [](const Db &db) { return AlergenRepository(db).deleteAlergen(1); }, "false",
            "AlergenRepository(deleting)",
            "Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom."),
        operation(
            "addFoodAlergen", [](const Db &db) { return AlergenRepository(db).addFoodAlergen(1, 1); }, "false",
            "AlergenRepository(adding - foodalergen)", "Nepodarilo sa priradiť alergén!"),
        operation(
            "deleteFoodAlergen", [](const Db &db) { return AlergenRepository(db).deleteFoodAlergen(1, 1); }, "false",
            "AlergenRepository(deleting - foodalergen)", "Nepodarilo sa zrušiť priradenie alergénu!"),
        operation(
            "deleteAllFoodAlergen", [](const Db &db) { return AlergenRepository(db).deleteAllFoodAlergen(1); }, "false",
            "AlergenRepository(deleting all - foodalergen)", "Nepodarilo sa zrušiť priradenie alergénov!"),
    };
}

QVector<FailingOperation> segmentOperations()
{
    return {
        operation(
            "loadSegment", [](const Db &db) { return SegmentRepository(db).loadSegment(1); }, "0 '' 0",
            "SegmentRepository(loading)", "Nepodarilo sa načítať typ výdaja!"),
        operation(
            "addSegment", [](const Db &db) { return SegmentRepository(db).addSegment(SegmentRecord()); }, "false",
            "SegmentRepository(adding)", "Nepodarilo sa pridať typ výdaja!"),
        operation(
            "updateSegment", [](const Db &db) { return SegmentRepository(db).updateSegment(SegmentRecord()); }, "false",
            "SegmentRepository(updating)", "Nepodarilo sa upraviť typ výdaja!"),
        operation(
            "deleteSegment", [](const Db &db) { return SegmentRepository(db).deleteSegment(1); }, "false",
            "SegmentRepository(deleting)",
            "Nepodarilo sa zmazať typ výdaja! Skúste najprv zmazať všetky priradené objednávateľné položky ku typu "
            "výdaja."),
        operation(
            "moveSegment", [](const Db &db) { return SegmentRepository(db).moveSegment(1, 2); }, "false",
            "SegmentRepository(moving segment position)", "Nepodarilo sa posunúť typ výdaja!"),
    };
}

QVector<FailingOperation> orderableOperations()
{
    const QString item = "Nepodarilo sa načítať objednávateľnú položku!";
    const QString lastDate = "Nepodarilo sa načítať posledný dátum objednávateľnej položky!";
    return {
        operation(
            "loadOrderable", [](const Db &db) { return OrderableRepository(db).loadOrderable(1); }, "0 0 no date",
            "OrderableRepository(loading)", item),
        operation(
            "loadOrderablesByDate",
            [](const Db &db) { return OrderableRepository(db).loadOrderablesByDate(day(), 4).size(); }, "0",
            "OrderableRepository(loading by Date)", item),
        operation(
            "numOfSegments", [](const Db &db) { return OrderableRepository(db).numOfSegments(); }, "0",
            "OrderableRepository(numOfSegments)", item),
        operation(
            "numOfTypes", [](const Db &db) { return OrderableRepository(db).numOfTypes(); }, "0",
            "OrderableRepository(numOfTypes)", item),
        operation(
            "loadFoodIDs", [](const Db &db) { return OrderableRepository(db).loadFoodIDs(day(), 1).size(); }, "0",
            "OrderableRepository(loading all)", "Nepodarilo sa načítať objednávateľné položky!"),
        operation(
            "orderableExists", [](const Db &db) { return OrderableRepository(db).orderableExists(OrderableRecord()); },
            "true", "OrderableRepository(loading all)", "Nepodarilo sa načítať objednávateľné položky!"),
        operation(
            "addOrderable", [](const Db &db) { return OrderableRepository(db).addOrderable(OrderableRecord()); },
            "false", "OrderableRepository(adding)", "Nepodarilo sa pridať objednávateľnú položku!"),
        operation(
            "updateOrderable", [](const Db &db) { return OrderableRepository(db).updateOrderable(OrderableRecord()); },
            "false", "OrderableRepository(updating)", "Nepodarilo sa upraviť objednávateľnú položku!"),
        operation(
            "deleteOrderable", [](const Db &db) { return OrderableRepository(db).deleteOrderable(1); }, "false",
            "OrderableRepository(deleting)",
            "Nepodarilo sa zmazať objednávateľnú položku! Skúste najprv zmazať všetky objednávky tejto položky."),
        operation(
            "deleteAllOrderables",
            [](const Db &db) { return OrderableRepository(db).deleteAllOrderables(day(), 1, 4); }, "false",
            "OrderableRepository(deleting all)", "Nepodarilo sa zmazať objednávateľé položky!"),
        operation(
            "updateLock", [](const Db &db) { return OrderableRepository(db).updateLock(day(), 1, 0, true); }, "false",
            "OrderableRepository(updating lock)", "Nepodarilo sa uzamknúť objednávateľná položky!"),
        operation(
            "loadFirstDate", [](const Db &db) { return OrderableRepository(db).loadFirstDate(); }, "no date",
            "FoodRepository(load last foodID)", lastDate),
        operation(
            "loadLastDate", [](const Db &db) { return OrderableRepository(db).loadLastDate(0); }, "no date",
            "FoodRepository(load last foodID for bid)", lastDate),
    };
}

QVector<FailingOperation> orderOperations()
{
    return {
        operation(
            "addOrder", [](const Db &db) { return OrderRepository(db).addOrder(OrderRecord()); }, "false",
            "OrderRepository(adding)"),
        operation(
            "deleteOrder", [](const Db &db) { return OrderRepository(db).deleteOrder(OrderRecord()); }, "false",
            "OrderRepository(deleting)"),
        {"checkOrderableLimit",
         [](const Db &db) {
             int available = 5;
             int limit = 6;
             const bool known = OrderRepository(db).checkOrderableLimit(OrderRecord(), available, limit);
             return QString("%1 %2 %3").arg(textOf(known)).arg(available).arg(limit);
         },
         "false -100 6",
         {"OrderRepository(checkOrderableLimit) - SQL ERROR: "},
         {}},
        {"getFoodName",
         [](const Db &db) { return OrderRepository(db).getFoodName(1); },
         "",
         {"OrderRepository(getFoodName) - SQL ERROR: "},
         {}},
    };
}

QVector<FailingOperation> typedSettings()
{
    const QString load = "Nepodarilo sa načítať nastavenie!";
    const QString store = "Nepodarilo sa uložiť nastavenie!";
    return {
        operation(
            "loadCheckState", [](const Db &db) { return SettingsRepository(db).loadCheckState(); }, "2222222",
            "SettingsRepository(loadCheckState)", load),
        operation(
            "setCheckState", [](const Db &db) { return SettingsRepository(db).setCheckState(2); }, "false",
            "SettingsRepository(setCheckState)", store),
        operation(
            "loadShownWeeks", [](const Db &db) { return SettingsRepository(db).loadShownWeeks(); }, "4",
            "SettingsRepository(loadShownWeeks)", load),
        operation(
            "setShownWeeks", [](const Db &db) { return SettingsRepository(db).setShownWeeks(2); }, "false",
            "SettingsRepository(setShownWeeks)", store),
        operation(
            "loadOrderLimit", [](const Db &db) { return SettingsRepository(db).loadOrderLimit(); }, "0",
            "SettingsRepository(loadOrderLimit)", load),
        operation(
            "setOrderLimit", [](const Db &db) { return SettingsRepository(db).setOrderLimit(2); }, "false",
            "SettingsRepository(orderLimit)", store),
        operation(
            "removeAllOrderableLimits", [](const Db &db) { return SettingsRepository(db).removeAllOrderableLimits(); },
            "-1", "SettingsRepository(removeAllOrderableLimits)"),
    };
}

QVector<FailingOperation> genericSettings()
{
    const QStringList get{"SettingsRepository::variableGet - SQL ERROR:", ""};
    const QStringList getMultiple{"SettingsRepository::variableGetMultiple - SQL ERROR:", ""};
    const QStringList del{"SettingsRepository::variableDel - SQL ERROR:", ""};
    const QString set = "SettingsRepository::variableSet ERROR: \"";
    return {
        {"variableGet",
         [](const Db &db) { return SettingsRepository(db).variableGet("k", 7).toString(); },
         "7",
         get,
         {}},
        {"variableGetMultiple by prefix",
         [](const Db &db) { return textOf(SettingsRepository(db).variableGetMultiple(QString("k"))); },
         "0 entries",
         getMultiple,
         {}},
        {"variableGetMultiple by name",
         [](const Db &db) {
             return textOf(SettingsRepository(db).variableGetMultiple(QStringList{"k", "l"}));
         },
         "0 entries",
         getMultiple,
         {}},
        {"variableGetMultiple of nothing",
         [](const Db &db) { return textOf(SettingsRepository(db).variableGetMultiple(QStringList())); },
         "0 entries",
         {},
         {}},
        {"variableSet",
         [](const Db &db) { return textOf(SettingsRepository(db).variableSet("k", 7)); },
         "false",
         {set},
         {}},
        {"variableSetMultiple",
         [](const Db &db) {
             return textOf(SettingsRepository(db).variableSetMultiple({{"k", 7}, {"l", 8}}));
         },
         "false",
         {set, set},
         {}},
        {"variableSetMultiple of nothing",
         [](const Db &db) { return textOf(SettingsRepository(db).variableSetMultiple(QVariantMap())); },
         "true",
         {},
         {}},
        {"variableDel", [](const Db &db) { return textOf(SettingsRepository(db).variableDel("k")); }, "false", del, {}},
        {"variableDel by prefix",
         [](const Db &db) { return textOf(SettingsRepository(db).variableDel("k", true)); },
         "false",
         del,
         {}},
    };
}

QVector<FailingOperation> supplierOperations()
{
    const QString mails = "Nepodarilo sa zmazať maily dodávateľa!";
    const QString times = "Nepodarilo sa zrušiť časy odosielania emailov dodávatelovi.";
    const QString deletingMails = "SupplierRepository(deleting - deleteSuppliermails) - SQL ERROR: ";
    const QString deletingTimes = "SupplierRepository(deleting - deleteSupplierTimes) - SQL ERROR: ";
    return {
        operation(
            "loadSupplier", [](const Db &db) { return SupplierRepository(db).loadSupplier(1); }, "0 '' 0",
            "SupplierRepository(loadSupplier)", "Nepodarilo sa načítať dodávateľa!"),
        operation(
            "loadLastSupplierID", [](const Db &db) { return SupplierRepository(db).loadLastSupplierID(); }, "0",
            "SupplierRepository(loadLastSupplierID)"),
        operation(
            "addSupplier", [](const Db &db) { return SupplierRepository(db).addSupplier(SupplierRecord()); }, "false",
            "SupplierRepository(adding - addSupplierMail)", "Nepodarilo sa pridať dodávateľa!"),
        operation(
            "updateSupplier", [](const Db &db) { return SupplierRepository(db).updateSupplier(SupplierRecord()); },
            "false", "SupplierRepository(updating - updateSupplier)", "Nepodarilo sa upraviť dodávateľa!"),
        {"deleteSupplier",
         [](const Db &db) { return textOf(SupplierRepository(db).deleteSupplier(SupplierRecord())); },
         "false",
         {deletingMails, deletingTimes, "SupplierRepository(deleting - deleteSupplier) - SQL ERROR: "},
         {mails, times,
          "Nepodarilo sa zmazať dodávateľa! Skúste najprv zrušiť priradenie strediska a zmazať jedlá priradené "
          "dodávateľovi."}},
        operation(
            "addBranchMail", [](const Db &db) { return SupplierRepository(db).addBranchMail(0, "a@x"); }, "false",
            "SupplierRepository(adding - addBranchMail)", "Nepodarilo sa pridať kontrolný mail strediska!"),
        operation(
            "editBranchMail", [](const Db &db) { return SupplierRepository(db).editBranchMail(1, "a@x"); }, "false",
            "SupplierRepository(updating - editBranchMail)", "Nepodarilo sa upraviť kontrolný mail strediska!"),
        operation(
            "deleteBranchMail", [](const Db &db) { return SupplierRepository(db).deleteBranchMail(1); }, "false",
            "SupplierRepository(deleting - deleteBranchMail)", "Nepodarilo sa zmazať kontrolný mail strediska!"),
        operation(
            "addSupplierMail", [](const Db &db) { return SupplierRepository(db).addSupplierMail(1, "a@x"); }, "false",
            "SupplierRepository(adding - addSupplierMail)", "Nepodarilo sa pridať mail dodávateľa!"),
        operation(
            "editSupplierMail", [](const Db &db) { return SupplierRepository(db).editSupplierMail(1, "a@x"); }, "false",
            "SupplierRepository(updating - editSupplierMail)", "Nepodarilo sa upraviť mail dodávateľa!"),
        operation(
            "deleteSupplierMails", [](const Db &db) { return SupplierRepository(db).deleteSupplierMails(1); }, "false",
            "SupplierRepository(deleting - deleteSuppliermails)", mails),
        operation(
            "addSupplierBranch", [](const Db &db) { return SupplierRepository(db).addSupplierBranch(1, 0); }, "false",
            "SupplierRepository(adding - supplierBranch)", "Nepodarilo sa priradiť dodávateľa k stredisku!"),
        operation(
            "deleteSupplierBranch", [](const Db &db) { return SupplierRepository(db).deleteSupplierBranch(1, 4); },
            "false", "SupplierRepository(deleting - supplierBranch)",
            "Nepodarilo sa zrušiť priradenie dodávateľa k stredisku!"),
        operation(
            "addTime",
            [](const Db &db) {
                SupplierTime time;
                return SupplierRepository(db).addTime(&time);
            },
            "false", "SupplierRepository(adding - addTime)",
            "Nepodarilo sa pridať čas odosielania emailov dodávatelovi."),
        operation(
            "updateTime",
            [](const Db &db) {
                SupplierTime time;
                return SupplierRepository(db).updateTime(&time);
            },
            "false", "SupplierRepository(updating - updateTime)",
            "Nepodarilo sa upraviť čas odosielania emailov dodávatelovi."),
        operation(
            "loadTime", [](const Db &db) { return SupplierRepository(db).loadTime(1); }, "0 0 0",
            "SupplierRepository(loadTime)", "Nepodarilo sa načítať  čas odosielania emailov dodávatelovi."),
        operation(
            "deleteTime", [](const Db &db) { return SupplierRepository(db).deleteTime(1); }, "false",
            "SupplierRepository(deleting - deleteTime)", "Nepodarilo sa zrušiť čas odosielania emailov dodávatelovi."),
        operation(
            "deleteSupplierTimes", [](const Db &db) { return SupplierRepository(db).deleteSupplierTimes(1); }, "false",
            "SupplierRepository(deleting - deleteSupplierTimes)", times),
    };
}

} // namespace

QVector<FailingOperation> failingOperations()
{
    return foodOperations() + typeOperations() + alergenOperations() + segmentOperations() + orderableOperations()
        + orderOperations() + typedSettings() + genericSettings() + supplierOperations();
}
