#include "support/testdatabase.h"

#include <QProcess>
#include <QtTest>

#include <memory>

namespace {

/// A rule of the demo firm: `rows` selects what breaks it, so it must give nothing.
struct Rule {
    const char *name;
    const char *rows;
};

const Rule rules[] = {
    {"no orders on open items",
     "SELECT r.* FROM via_orders r JOIN via_orderables o USING (orderableID) WHERE locked=0"},
    {"informative types are never ordered",
     "SELECT r.* FROM via_orders r JOIN via_orderables USING (orderableID) JOIN via_foods USING (foodID)"
     " JOIN via_types t USING (typeID) WHERE t.informative=1"},
    {"every item has a price", "SELECT * FROM via_orderables WHERE price <= 0"},
    {"prices are in whole cents", "SELECT * FROM via_orderables WHERE ROUND(price, 2) <> price"},
    {"every food on a menu has a supplier",
     "SELECT * FROM via_orderables JOIN via_foods USING (foodID) WHERE supplierID IS NULL"},
    {"suppliers of a menu are linked to its branch",
     "SELECT o.* FROM via_orderables o JOIN via_foods f USING (foodID) LEFT JOIN via_supplierbranch b"
     " ON b.supplierID=f.supplierID AND b.bid <=> o.bid WHERE b.supplierID IS NULL"},
    {"suppliers have shortcuts", "SELECT * FROM via_suppliers WHERE IFNULL(shortcut, '') = ''"},
    {"a food stands once in a cell",
     "SELECT 1 FROM via_orderables GROUP BY bid, segmentID, date, foodID HAVING COUNT(*) > 1"},
    {"positions of a cell run from 1 without gaps",
     "SELECT 1 FROM via_orderables GROUP BY bid, segmentID, date"
     " HAVING MIN(position) <> 1 OR MAX(position) <> COUNT(*) OR COUNT(DISTINCT position) <> COUNT(*)"},
    {"positions follow the types",
     "SELECT 1 FROM via_orderables a JOIN via_foods fa ON fa.foodID=a.foodID JOIN via_types ta ON ta.typeID=fa.typeID"
     " JOIN via_orderables b ON b.bid <=> a.bid AND b.date=a.date AND b.segmentID=a.segmentID AND b.position > "
     "a.position"
     " JOIN via_foods fb ON fb.foodID=b.foodID JOIN via_types tb ON tb.typeID=fb.typeID WHERE tb.position < "
     "ta.position"},
    {"a cell is wholly locked or wholly open",
     "SELECT 1 FROM via_orderables GROUP BY bid, segmentID, date HAVING COUNT(DISTINCT locked) > 1"},
    {"type positions run from 1", "SELECT 1 FROM via_types HAVING MAX(position) <> COUNT(*) OR MIN(position) <> 1"},
    {"slot positions run from 1", "SELECT 1 FROM via_segments HAVING MAX(position) <> COUNT(*) OR MIN(position) <> 1"},
    {"menus on Monday to Friday, and Saturday's lunch",
     "SELECT * FROM via_orderables WHERE WEEKDAY(date) = 6 OR WEEKDAY(date) = 5 AND segmentID <> 2"},
    {"past days and today are locked", "SELECT * FROM via_orderables WHERE date <= CURDATE() AND locked = 0"},
    {"coming days are not closed for good", "SELECT * FROM via_orderables WHERE date > CURDATE() AND locked = 2"},
    {"one order for each person and item", "SELECT 1 FROM via_orders GROUP BY orderableID, uid HAVING COUNT(*) > 1"},
    {"people order while they are employed",
     "SELECT r.* FROM via_orders r JOIN via_orderables USING (orderableID) JOIN people p USING (uid)"
     " WHERE date < DATE(FROM_UNIXTIME(`begin`)) OR IFNULL(`end`, 0) > 0 AND date > DATE(FROM_UNIXTIME(`end`))"},
    {"orders are of known people", "SELECT * FROM via_orders LEFT JOIN people USING (uid) WHERE pid IS NULL"},
    {"quantities are positive", "SELECT * FROM via_orders WHERE quantity < 1"},
    {"limits are kept",
     "SELECT orderableID FROM via_orderables JOIN via_orders USING (orderableID) WHERE `limit` > 0"
     " GROUP BY orderableID, `limit` HAVING SUM(quantity) > `limit`"},
    {"the audit text has the form of the order dialog",
     "SELECT * FROM via_orders WHERE ordered NOT REGEXP"
     " '^ZEP-adminID: [1-3], [1-9][0-9]?\\\\.[1-9][0-9]?\\\\.20[0-9]{2}, [0-9]{1,2}:[0-9]{1,2}:[0-9]{1,2}$'"
     " OR ordered REGEXP '[ :]0[0-9]'"},
    {"nothing was ordered in the future",
     "SELECT * FROM via_orders WHERE STR_TO_DATE(SUBSTRING_INDEX(ordered, ', ', -2), '%e.%c.%Y, %k:%i:%s') > NOW()"},
    {"branches of people exist", "SELECT * FROM brape LEFT JOIN branches USING (bid) WHERE name IS NULL"},
    {"rights are on people that exist", "SELECT * FROM admins_people LEFT JOIN people USING (uid) WHERE pid IS NULL"},
    {"names are not empty", "SELECT * FROM people WHERE name='' OR surname='' OR pid=0"},
    {"pictures come with the loader only", "SELECT * FROM via_foods WHERE picture IS NOT NULL"},
};

/// A figure of the demo firm: `query` gives one number, which must lie between `least` and `most`.
struct Figure {
    const char *name;
    const char *query;
    int least;
    int most;
};

const char employed[] =
    "SELECT COUNT(*) FROM people WHERE status > 0 AND `begin` < UNIX_TIMESTAMP(@monday + INTERVAL 7 DAY)"
    " AND (IFNULL(`end`, 0) = 0 OR `end` >= UNIX_TIMESTAMP(@monday))";

const Figure figures[] = {
    {"branches", "SELECT COUNT(*) FROM branches", 4, 5},
    {"people", "SELECT COUNT(*) FROM people", 55, 70},
    {"people in work this week", employed, 50, 62},
    {"inactive people", "SELECT COUNT(*) FROM people WHERE status=0", 1, 1},
    {"who left in the middle of last week",
     "SELECT COUNT(*) FROM people WHERE `end` BETWEEN UNIX_TIMESTAMP(@monday - INTERVAL 6 DAY)"
     " AND UNIX_TIMESTAMP(@monday - INTERVAL 2 DAY)",
     2, 9},
    {"who start in the middle of this week",
     "SELECT COUNT(*) FROM people WHERE `begin` BETWEEN UNIX_TIMESTAMP(@monday + INTERVAL 1 DAY)"
     " AND UNIX_TIMESTAMP(@monday + INTERVAL 4 DAY)",
     2, 9},
    {"who leave in the middle of next week",
     "SELECT COUNT(*) FROM people WHERE `end` BETWEEN UNIX_TIMESTAMP(@monday + INTERVAL 8 DAY)"
     " AND UNIX_TIMESTAMP(@monday + INTERVAL 12 DAY)",
     2, 9},
    {"open-ended as NULL", "SELECT COUNT(*) FROM people WHERE `end` IS NULL", 10, 99},
    {"open-ended as 0", "SELECT COUNT(*) FROM people WHERE `end`=0", 10, 99},
    {"payroll number NULL", "SELECT COUNT(*) FROM people WHERE pamId IS NULL", 1, 9},
    {"payroll number empty", "SELECT COUNT(*) FROM people WHERE pamId=''", 1, 9},
    {"payroll number 0", "SELECT COUNT(*) FROM people WHERE pamId='0'", 1, 9},
    {"double surnames", "SELECT COUNT(*) FROM people WHERE surname LIKE '%-%'", 1, 9},
    {"surnames with Ch", "SELECT COUNT(*) FROM people WHERE surname LIKE 'Ch%'", 4, 9},
    {"titles", "SELECT COUNT(*) FROM people WHERE title <> ''", 5, 30},
    {"people in two branches", "SELECT COUNT(*) FROM (SELECT uid FROM brape GROUP BY uid HAVING COUNT(*) > 1) x", 2, 9},
    {"people in none", "SELECT COUNT(*) FROM people WHERE uid NOT IN (SELECT uid FROM brape)", 1, 9},
    {"branches of administrator 1", "SELECT COUNT(*) FROM bradm WHERE aid=1", 5, 5},
    {"people of administrator 1", "SELECT COUNT(*) FROM admins_people WHERE aid=1", 63, 63},
    {"branches of administrator 2", "SELECT COUNT(*) FROM bradm WHERE aid=2", 2, 4},
    {"people of administrator 2", "SELECT COUNT(*) FROM admins_people WHERE aid=2", 15, 45},
    {"branches of administrator 3", "SELECT COUNT(*) FROM bradm WHERE aid=3", 1, 1},
    {"people of administrator 3", "SELECT COUNT(*) FROM admins_people WHERE aid=3", 5, 20},
    {"allergens with a description", "SELECT COUNT(*) FROM via_alergens WHERE description <> ''", 14, 14},
    {"allergens in use", "SELECT COUNT(DISTINCT alergenID) FROM via_foodalergen", 14, 14},
    {"foods", "SELECT COUNT(*) FROM via_foods", 120, 200},
    {"foods of one name", "SELECT COUNT(*) - COUNT(DISTINCT name) FROM via_foods", 0, 0},
    {"informative types", "SELECT COUNT(*) FROM via_types WHERE informative=1", 1, 1},
    {"types without foods", "SELECT COUNT(*) FROM via_types WHERE typeID NOT IN (SELECT typeID FROM via_foods)", 0, 0},
    {"suppliers", "SELECT COUNT(*) FROM via_suppliers WHERE deadline IS NOT NULL", 4, 4},
    {"suppliers with mail", "SELECT COUNT(DISTINCT supplierID) FROM via_suppliermails", 4, 4},
    {"suppliers with a send time", "SELECT COUNT(DISTINCT supplierID) FROM via_promailsdelay WHERE sendtime > 0", 4, 4},
    {"suppliers of all branches", "SELECT COUNT(*) FROM via_supplierbranch WHERE bid IS NULL", 2, 4},
    {"control mails", "SELECT COUNT(*) FROM via_branchmails", 3, 9},
    {"slots", "SELECT COUNT(*) FROM via_segments WHERE start < stop", 3, 3},
    {"past weeks with menus", "SELECT COUNT(DISTINCT YEARWEEK(date, 3)) FROM via_orderables WHERE date < @monday", 8,
     8},
    {"weeks closed for good", "SELECT COUNT(DISTINCT YEARWEEK(date, 3)) FROM via_orderables WHERE locked=2", 3, 6},
    {"coming weeks with menus",
     "SELECT COUNT(DISTINCT YEARWEEK(date, 3)) FROM via_orderables WHERE date >= @monday + INTERVAL 7 DAY", 3, 3},
    {"menus for all branches this week",
     "SELECT COUNT(*) FROM via_orderables WHERE bid IS NULL AND date BETWEEN @monday AND @monday + INTERVAL 6 DAY", 80,
     120},
    {"branches with menus of their own", "SELECT COUNT(DISTINCT bid) FROM via_orderables", 2, 2},
    {"coming days that are locked",
     "SELECT COUNT(DISTINCT date) FROM via_orderables WHERE locked=1 AND date > CURDATE()", 2, 7},
    {"coming days that are open", "SELECT COUNT(DISTINCT date) FROM via_orderables WHERE locked=0 AND date > CURDATE()",
     5, 20},
    {"orders for coming days",
     "SELECT COUNT(*) FROM via_orders JOIN via_orderables USING (orderableID) WHERE date > CURDATE()", 100, 900},
    {"orders", "SELECT COUNT(*) FROM via_orders", 3000, 8000},
    {"people with orders", "SELECT COUNT(DISTINCT uid) FROM via_orders", 58, 63},
    {"items used up",
     "SELECT COUNT(*) FROM (SELECT 1 FROM via_orderables JOIN via_orders USING (orderableID) WHERE `limit` > 0"
     " AND date > CURDATE() GROUP BY orderableID, `limit` HAVING SUM(quantity) = `limit`) x",
     1, 1},
    {"items with one portion left",
     "SELECT COUNT(*) FROM (SELECT 1 FROM via_orderables JOIN via_orders USING (orderableID) WHERE `limit` > 0"
     " AND date > CURDATE() GROUP BY orderableID, `limit` HAVING SUM(quantity) = `limit` - 1) x",
     1, 1},
};

} // namespace

/// The demo firm on days of every kind: the rules that its data keep, and how much of everything there is.
class TestDemo : public QObject {
    Q_OBJECT

private slots:
    void firmOfTheDay_data();
    void firmOfTheDay();
    void slovakTextsAreIntact();
    void sameWeekGivesTheSameFirm();

private:
    static void load(const TestDatabase &database, const QString &moment);
};

/// Loads the demo firm as if it were `moment`, in which the database's second client stays.
void TestDemo::load(const TestDatabase &database, const QString &moment)
{
    const QString clock = QStringLiteral("SET timestamp = UNIX_TIMESTAMP('%1')").arg(moment);
    QProcess client;
    client.setStandardInputFile(QStringLiteral(VIANDA_SOURCE_DIR "/db/demo.sql"));
    client.start(QStringLiteral(VIANDA_SOURCE_DIR "/scripts/database"),
                 {QStringLiteral("sql"), qEnvironmentVariable("VIANDA_TEST_SERVER"), database.name(),
                  QStringLiteral("--init-command=") + clock});
    QVERIFY(client.waitForFinished());
    const QByteArray errors = client.readAllStandardError();
    QVERIFY2(client.exitCode() == 0 && errors.isEmpty(), errors.constData());
    database.exec(clock);
    database.exec(QStringLiteral("SET @monday = CURDATE() - INTERVAL WEEKDAY(CURDATE()) DAY"));
}

void TestDemo::firmOfTheDay_data()
{
    QTest::addColumn<QString>("moment");

    QTest::newRow("today") << QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    QTest::newRow("Monday early") << QStringLiteral("2024-12-30 00:10:00");
    QTest::newRow("week of summer time") << QStringLiteral("2021-03-31 12:00:00");
    QTest::newRow("Sunday late, week 53") << QStringLiteral("2021-01-03 23:50:00");
}

void TestDemo::firmOfTheDay()
{
    QFETCH(QString, moment);
    const TestDatabase database;
    load(database, moment);
    for (const Rule &rule : rules) {
        const QStringList rows = database.rows(QString::fromUtf8(rule.rows) + QStringLiteral(" LIMIT 3"));
        QVERIFY2(rows.isEmpty(),
                 qPrintable(QString::fromUtf8(rule.name) + QLatin1Char('\n') + rows.join(QLatin1Char('\n'))));
    }
    for (const Figure &figure : figures) {
        const int number = database.value(QString::fromUtf8(figure.query)).toInt();
        QVERIFY2(number >= figure.least && number <= figure.most,
                 qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(figure.name)).arg(number)));
    }
}

void TestDemo::slovakTextsAreIntact()
{
    const TestDatabase database;
    load(database, QStringLiteral("2024-05-15 10:00:00"));
    QCOMPARE(database.rows(QStringLiteral("SELECT CONCAT_WS(' ', title, name, surname, title2) FROM people"
                                          " WHERE uid IN (17, 20, 21) ORDER BY uid")),
             (QStringList{QStringLiteral(" Árpád Öllös "), QStringLiteral("doc. Ing. Vojtech Úradníček CSc., MBA"),
                          QStringLiteral(" Maximiliána Alexandrína Bartolomejčíková-Podhradská ")}));
    QCOMPARE(database.value(QStringLiteral("SELECT name FROM via_foods WHERE foodID=321")).toString(),
             QStringLiteral("Bryndzové halušky so slaninou"));
    QCOMPARE(database.value(QStringLiteral("SELECT name FROM via_foods WHERE foodID=903")).toString(),
             QStringLiteral("Kurča \"Vlado & syn\" <pikantné> 100 % s 'chilli'; 50/50"));
    QCOMPARE(database.value(QStringLiteral("SELECT title FROM via_alergens WHERE alergenID=14")).toString(),
             QStringLiteral("Mäkkýše"));
    const QByteArray company =
        database.value(QStringLiteral("SELECT value FROM vars WHERE name='LCNSN'")).toByteArray();
    QCOMPARE(QString::fromUtf8(QByteArray::fromBase64(company)), QStringLiteral("Strojárne Podhradie, a. s."));
    QCOMPARE(database.rows(QStringLiteral("SELECT name, value FROM vars WHERE name LIKE 'via%' ORDER BY name")),
             (QStringList{QStringLiteral("via_activeDays|222222"), QStringLiteral("via_orderLimit|0"),
                          QStringLiteral("via_orderLimitEnabled|1"), QStringLiteral("via_shownWeeks|3")}));
    // Nothing was squeezed through a narrower character set on the way: that would leave question marks.
    QCOMPARE(database.value(QStringLiteral("SELECT COUNT(*) FROM via_foods WHERE INSTR(name, '?') > 0")).toInt(), 0);
}

void TestDemo::sameWeekGivesTheSameFirm()
{
    const QString content = QStringLiteral(
        "SELECT MD5(GROUP_CONCAT(foodID, IFNULL(bid, 0), segmentID, date, position, price ORDER BY orderableID))"
        " FROM via_orderables");
    const QString orders = QStringLiteral("SELECT MD5(GROUP_CONCAT(o.foodID, o.date, r.uid, r.quantity"
                                          " ORDER BY o.date, o.foodID, o.bid, r.uid))"
                                          " FROM via_orders r JOIN via_orderables o USING (orderableID)"
                                          " WHERE date < '2024-05-13'");
    QStringList firms;
    for (const char *moment : {"2024-05-14 08:00:00", "2024-05-16 17:00:00"}) {
        const TestDatabase database;
        load(database, QLatin1String(moment));
        database.exec(QStringLiteral("SET SESSION group_concat_max_len = 10000000"));
        firms << database.value(content).toString() + database.value(orders).toString();
    }
    QCOMPARE(firms.first().size(), 64);
    QCOMPARE(firms.first(), firms.last());
}

QTEST_GUILESS_MAIN(TestDemo)
#include "tst_demo.moc"
