#include "failingoperations.h"
#include "store/alergenrepository.h"
#include "store/segmentrepository.h"
#include "store/typerepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QTranslator>
#include <QtTest>

#include <algorithm>

/// Every operation against a database that does not answer: its log lines, its boxes and its result.
class TestStoreFailures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void connectionLost_data() { operations(); }
    void connectionLost();
    void tablesMissing_data() { operations(); }
    void tablesMissing();
    void handleNeverOpened_data() { operations(); }
    void handleNeverOpened();
    void failedLoadGivesTheRecordLoadedLast();
    void textsAreTranslatedInTheClass_data();
    void textsAreTranslatedInTheClass();

private:
    static void operations();
    static void check(const QSqlDatabase &db);

    const TestDatabase m_lost{"lost"};
    const TestDatabase m_renamed{"renamed"};
};

Q_DECLARE_METATYPE(FailingOperation)

namespace {

/// A database whose tables have gone, as far as the module is concerned.
void renameTables(const TestDatabase &database)
{
    const QStringList tables = database.rows("SHOW TABLES");
    for (const QString &table : tables)
        database.exec(QString("RENAME TABLE `%1` TO `away_%1`").arg(table));
}

/// A language in which every text is its context, a colon and the source.
class ContextTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return QString(context) + ':' + QString(source);
    }
};

} // namespace

void TestStoreFailures::initTestCase()
{
    m_lost.breakConnection();
    renameTables(m_renamed);
}

void TestStoreFailures::operations()
{
    QTest::addColumn<FailingOperation>("operation");
    const QVector<FailingOperation> all = failingOperations();
    for (const FailingOperation &operation : all)
        QTest::newRow(operation.name.constData()) << operation;
}

void TestStoreFailures::check(const QSqlDatabase &db)
{
    QFETCH(FailingOperation, operation);
    LogCatcher log;
    BoxAnswerer boxes;
    for (const QString &text : qAsConst(operation.boxes)) {
        boxes.expectBox("Chyba databázy", text, QMessageBox::Ok, [&log](QMessageBox *box) {
            QVERIFY(!log.critical().isEmpty()); // the line is written before the user is asked
            QCOMPARE(box->icon(), QMessageBox::Critical);
        });
    }
    QCOMPARE(operation.call(db), operation.result);
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), operation.boxes.size());
    const QStringList lines = log.critical();
    QCOMPARE(lines.size(), operation.lines.size());
    for (int i = 0; i < lines.size(); ++i) {
        const QString &expected = operation.lines.at(i);
        if (expected.endsWith(':'))
            QCOMPARE(lines.at(i), expected);
        else
            QVERIFY2(lines.at(i).startsWith(expected) && lines.at(i).size() > expected.size() + 10,
                     qPrintable(lines.at(i)));
    }
}

void TestStoreFailures::connectionLost()
{
    check(m_lost.db());
}

void TestStoreFailures::tablesMissing()
{
    check(m_renamed.db());
}

void TestStoreFailures::handleNeverOpened()
{
    const QString name = "closed";
    {
        const QSqlDatabase db = QSqlDatabase::addDatabase("QMYSQL", name);
        check(db);
    }
    QSqlDatabase::removeDatabase(name);
}

void TestStoreFailures::failedLoadGivesTheRecordLoadedLast()
{
    const TestDatabase database;
    database.exec("INSERT INTO via_types (name, position) VALUES ('type', 1)");
    database.exec("INSERT INTO via_alergens (title) VALUES ('alergen')");
    database.exec("INSERT INTO via_segments (name) VALUES ('segment')");
    TypeRepository types(database.db());
    AlergenRepository alergens(database.db());
    SegmentRepository segments(database.db());
    types.loadType(1);
    alergens.loadAlergen(1);
    segments.loadSegment(1);
    database.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať typ jedla !");
    boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať alergén!");
    boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať typ výdaja!");
    QCOMPARE(types.loadType(1).name, QString("type"));
    QCOMPARE(alergens.loadAlergen(1).title, QString("alergen"));
    QCOMPARE(segments.loadSegment(1).name, QString("segment"));
    BOXES_DONE(boxes);
}

void TestStoreFailures::textsAreTranslatedInTheClass_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("context");
    QTest::newRow("food") << QByteArray("loadFood") << "FoodRepository";
    QTest::newRow("menu") << QByteArray("loadDayMenu") << "FoodRepository";
    QTest::newRow("type") << QByteArray("moveType") << "TypeRepository";
    QTest::newRow("allergen") << QByteArray("loadAlergen") << "AlergenRepository";
    QTest::newRow("slot") << QByteArray("addSegment") << "SegmentRepository";
    QTest::newRow("menu item") << QByteArray("updateLock") << "OrderableRepository";
    QTest::newRow("setting") << QByteArray("loadShownWeeks") << "SettingsRepository";
    QTest::newRow("supplier") << QByteArray("deleteTime") << "SupplierRepository";
}

void TestStoreFailures::textsAreTranslatedInTheClass()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, context);
    const QVector<FailingOperation> all = failingOperations();
    const auto operation =
        std::find_if(all.cbegin(), all.cend(), [&name](const auto &one) { return one.name == name; });
    QVERIFY(operation != all.cend());
    ContextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    BoxAnswerer boxes;
    boxes.expectBox(context + ":Chyba databázy", context + ':' + operation->boxes.at(0));
    operation->call(m_lost.db());
    QVERIFY(QCoreApplication::removeTranslator(&translator));
    BOXES_DONE(boxes);
}

QTEST_MAIN(TestStoreFailures)
#include "tst_storefailures.moc"
