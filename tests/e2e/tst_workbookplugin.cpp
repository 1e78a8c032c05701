#include "program.h"
#include "support/boxanswerer.h"
#include "support/limitedfiles.h"
#include "support/testdatabase.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>

#include <sys/file.h>

/// The workbooks of the demo firm through the built plug-in, read back by independent readers: every figure in them is
/// what plain SQL gives.
class TestWorkbookPlugin : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void monthOfABranch_data();
    void monthOfABranch();
    void monthOfAPerson();
    void monthOfAPersonWithoutOrders();
    void controlExport_data();
    void controlExport();
    void cancelledDialogWritesNothing();
    void unwritableFileIsTold_data();
    void unwritableFileIsTold();

private:
    void openBoard(int branch = 0);
    void showPerson(const QString &name);
    /// Expects the question for a file and answers it, and yes to replacing one that `isThere`.
    void answerFile(const QString &defaultName, const QString &fileName, bool isThere = false);
    /// Presses a button that exports, and reads the file it wrote.
    void exportTo(const char *button, const QString &defaultName, const QString &title, const QString &text);
    QString cell(int row, int column) const;
    QStringList rowTexts(int row, int columns) const;
    QString sql(const QString &query) const { return m_database->value(query).toString(); }
    QString inMonth() const;

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<Program> m_program;
    const QWidget *m_board = nullptr;
    QTemporaryDir m_folder;
    int m_files = 0;
    QString m_fileName;
    QJsonObject m_sheet;
    BoxAnswerer m_boxes;
    QDate m_thursday; ///< of last week
};

namespace {

const char branchTitle[] = "ZEP - Mesačný výpis objednávok zamestnancov";
const char personTitle[] = "ZEP - Mesačný výpis objednanej stravy";
const char controlTitle[] = "ZEP - Kontrolný export stravy";
const char branchFile[] = "mesacny_prehlad_objednavok.xls";
const char personFile[] = "mesacny_vypis_objednanej_stravy.xls";
const char controlFile[] = "Kontrolný export.xlsx";

QString monthText(const QDate &date)
{
    return QLocale().toString(date, QStringLiteral("MMMM yyyy"));
}

/// A cell's number or text; numbers without the digits that adding up leaves behind.
QString textOf(const QJsonValue &value)
{
    return value.isDouble() ? QString::number(double(qRound64(value.toDouble() * 1e6)) / 1e6, 'g', 12)
                            : value.toString();
}

/// The number that SQL gives, in the same form.
QString number(const QString &text)
{
    return textOf(QJsonValue(text.toDouble()));
}

} // namespace

void TestWorkbookPlugin::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
    m_database = std::make_unique<TestDatabase>();
    m_database->loadDemoFirm();
    const QDate today = QDate::currentDate();
    m_thursday = today.addDays(4 - today.dayOfWeek() - 7);
}

void TestWorkbookPlugin::cleanupTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestWorkbookPlugin::init()
{
    QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).clear();
    m_sheet = {};
}

void TestWorkbookPlugin::cleanup()
{
    m_program.reset();
    BOXES_DONE(m_boxes);
}

/// The board on last week, in the view of menus, with the month going to a spreadsheet.
void TestWorkbookPlugin::openBoard(int branch)
{
    m_program = std::make_unique<Program>(m_database->db());
    m_board = m_program->open(QStringLiteral("Menu"));
    click(m_board, "butMenuSwitch");
    child<QComboBox>(m_board, "comboBoxBranches")->setCurrentIndex(branch);
    click(m_board, "toolButtonL");
    m_board->findChild<QAction *>(QStringLiteral("actionExportToXLS"))->trigger();
}

void TestWorkbookPlugin::showPerson(const QString &name)
{
    click(m_board, "butOrdersSwitch");
    auto *people = child<QComboBox>(m_board, "comboBoxPeople");
    const int row = people->findText(name, Qt::MatchEndsWith);
    QVERIFY(row >= 0);
    people->setCurrentIndex(row);
}

void TestWorkbookPlugin::answerFile(const QString &defaultName, const QString &fileName, bool isThere)
{
    m_boxes.expectDialog(QStringLiteral("QFileDialog"), [=](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Vytlačiť zostavu do súboru"));
        auto *line = child<QLineEdit>(dialog, "fileNameEdit");
        QCOMPARE(line->text(), defaultName);
        line->setText(fileName);
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
    });
    // The dialog itself asks.
    if (isThere)
        m_boxes.expectBox(QStringLiteral("Vytlačiť zostavu do súboru"),
                          QFileInfo(fileName).fileName()
                              + QStringLiteral(" already exists.\nDo you want to replace it?"),
                          QMessageBox::Yes);
}

void TestWorkbookPlugin::exportTo(const char *button, const QString &defaultName, const QString &title,
                                  const QString &text)
{
    m_fileName = m_folder.filePath(QString::number(++m_files) + '.' + defaultName.section('.', -1));
    answerFile(defaultName, m_fileName);
    m_boxes.expectBox(title, text.arg(m_fileName));
    click(m_board, button);
    BOXES_DONE(m_boxes);
    QProcess reader;
    reader.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(VIANDA_CELLS_SCRIPT), m_fileName});
    QVERIFY2(reader.waitForFinished() && reader.exitCode() == 0, reader.readAllStandardError().constData());
    m_sheet = QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
    QCOMPARE(m_sheet.value("name").toString(), title.left(31));
}

QString TestWorkbookPlugin::cell(int row, int column) const
{
    return textOf(m_sheet.value("cells").toArray().at(row).toArray().at(column));
}

QStringList TestWorkbookPlugin::rowTexts(int row, int columns) const
{
    QStringList texts;
    for (int column = 0; column < columns; ++column)
        texts.append(cell(row, column));
    return texts;
}

QString TestWorkbookPlugin::inMonth() const
{
    const QDate first(m_thursday.year(), m_thursday.month(), 1);
    return QStringLiteral("o.date BETWEEN '%1' AND '%2'")
        .arg(first.toString(Qt::ISODate), first.addMonths(1).addDays(-1).toString(Qt::ISODate));
}

void TestWorkbookPlugin::monthOfABranch_data()
{
    QTest::addColumn<int>("branch");
    QTest::addColumn<QString>("people");
    QTest::newRow("everybody with orders") << 0 << "r.quantity > 0";
    QTest::newRow("members of a branch") << 1 << "p.uid IN (SELECT uid FROM brape WHERE bid=1)";
}

void TestWorkbookPlugin::monthOfABranch()
{
    QFETCH(int, branch);
    QFETCH(QString, people);
    openBoard(branch);
    exportTo("toolButtonMonthly", QString::fromUtf8(branchFile), QString::fromUtf8(branchTitle),
             QStringLiteral("Mesačný výpis objednávok zamestnancov prebehol úspešne. \n%1"));
    const QString from =
        QStringLiteral(" FROM people p LEFT JOIN (SELECT r.uid, r.quantity, r.quantity*o.price price FROM via_orders r "
                       "JOIN via_orderables o USING (orderableID) WHERE %1) r ON r.uid=p.uid WHERE p.status<>0 AND %2")
            .arg(inMonth(), people);
    const QStringList expected = m_database->rows(
        "SELECT p.pid, IFNULL(p.pamId, ''), CONCAT(p.surname, ' ', p.name), IFNULL(SUM(r.quantity), 0), "
        "IFNULL(ROUND(SUM(r.price), 2), 0)"
        + from + " GROUP BY p.pid ORDER BY p.pid");
    QVERIFY(!expected.isEmpty());
    QCOMPARE(cell(0, 0), " Mesačný výpis objednávok zamestnancov - " + monthText(m_thursday));
    QCOMPARE(cell(3, 0), QStringLiteral("Stredisko:"));
    QCOMPARE(cell(3, 1), child<QComboBox>(m_board, "comboBoxBranches")->currentText());
    QCOMPARE(rowTexts(9, 5), (QStringList{"ID", "pamID", "Meno", "Počet objednávok", "Suma"}));
    for (int row = 0; row < expected.size(); ++row) {
        QStringList cells = expected.at(row).split('|');
        cells[4] = number(cells.at(4));
        QCOMPARE(rowTexts(10 + row, 5), cells);
    }
    const int sums = 12 + expected.size();
    QCOMPARE(cell(sums, 3), number(sql("SELECT SUM(r.quantity)" + from)));
    QCOMPARE(cell(sums, 4), number(sql("SELECT SUM(r.price)" + from)));
    QCOMPARE(cell(sums + 6, 1), QStringLiteral("NORVIK-IT Workforce Presence System"));
}

void TestWorkbookPlugin::monthOfAPerson()
{
    const QString name = QStringLiteral("Bartolomejčíková-Podhradská Maximiliána Alexandrína");
    openBoard();
    showPerson(name);
    exportTo("toolButtonMonthly", QString::fromUtf8(personFile), QString::fromUtf8(personTitle),
             QStringLiteral("Mesačný výpis objednanej stravy prebehol úspešne. \n%1"));
    const QString from =
        QStringLiteral(" FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN via_foods f "
                       "USING (foodID) JOIN via_segments s USING (segmentID) JOIN people p USING (uid) "
                       "WHERE CONCAT(p.surname, ' ', p.name)='%1' AND %2")
            .arg(name, inMonth());
    QStringList expected = m_database->rows(
        "SELECT DATE_FORMAT(o.date, '%d. %m. %Y'), s.name, f.name, o.price, r.quantity, ROUND(r.quantity*o.price, 2), "
        "r.ordered, IFNULL(DATE_FORMAT(r.delivered, '%d.%m.%Y %H:%i:%s'), '')"
        + from);
    QVERIFY(!expected.isEmpty());
    QCOMPARE(cell(0, 0),
             QStringLiteral(" Mesačný výpis objednanej stravy - %1, ID: %2")
                 .arg(monthText(m_thursday), child<QComboBox>(m_board, "comboBoxPeople")->currentText()));
    QCOMPARE(rowTexts(3, 8),
             (QStringList{"Dátum", "Typ výdaja", "Jedlo", "Cena", "Počet", "C. celkom", "Objednané", "Vydané"}));
    // The database leaves the order of the items of one service open.
    QStringList found;
    for (int row = 0; row < expected.size(); ++row)
        found.append(rowTexts(4 + row, 8).join('|'));
    found.sort();
    expected.sort();
    QCOMPARE(found, expected);
    const int last = 3 + expected.size();
    QCOMPARE(cell(last + 3, 0), QStringLiteral("Cena celkom:"));
    const QString total = number(sql("SELECT SUM(r.quantity*o.price)" + from));
    QCOMPARE(cell(last + 3, 5), total);
    QCOMPARE(cell(last + 9, 1), QStringLiteral("NORVIK-IT Workforce Presence System"));
}

void TestWorkbookPlugin::monthOfAPersonWithoutOrders()
{
    m_database->exec(
        QStringLiteral("INSERT INTO people (uid, pid, name, surname) VALUES (5000, 5000, 'Nový', 'Adam')"));
    openBoard();
    showPerson(QStringLiteral("Adam Nový"));
    exportTo("toolButtonMonthly", QString::fromUtf8(personFile), QString::fromUtf8(personTitle),
             QStringLiteral("Mesačný výpis objednanej stravy prebehol úspešne. \n%1"));
    m_database->exec(QStringLiteral("DELETE FROM people WHERE uid=5000"));
    QCOMPARE(rowTexts(3, 3), (QStringList{"Dátum", "Typ výdaja", "Jedlo"}));
    QCOMPARE(cell(6, 0), QStringLiteral("Cena celkom:"));
    QCOMPARE(cell(6, 5), QStringLiteral("0"));
}

void TestWorkbookPlugin::controlExport_data()
{
    QTest::addColumn<int>("branch");
    QTest::addColumn<QString>("menus");
    QTest::newRow("all menus") << 0 << "1";
    QTest::newRow("menus of a branch") << 1 << "o.bid=1";
}

void TestWorkbookPlugin::controlExport()
{
    QFETCH(int, branch);
    QFETCH(QString, menus);
    openBoard(branch);
    exportTo("toolButtonExport", QString::fromUtf8(controlFile), QString::fromUtf8(controlTitle),
             QStringLiteral("Kontrolný export stravy prebehol úspešne. \n%1"));
    const QStringList services =
        m_database->rows(QStringLiteral("SELECT position, name FROM via_segments ORDER BY position"));
    const QStringList types = m_database->rows(QStringLiteral("SELECT typeID, name FROM via_types ORDER BY position"));
    const int perDay = services.size() * types.size();
    const int days = m_thursday.daysInMonth();
    const int last = 2 + days * perDay;
    QCOMPARE(cell(9, last), QStringLiteral("Počet"));

    const QString from =
        QStringLiteral(" FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN via_segments s "
                       "USING (segmentID) JOIN via_foods f USING (foodID) JOIN people p USING (uid) "
                       "WHERE p.status<>0 AND %1 AND %2")
            .arg(inMonth(), menus);
    const QString shownID = QStringLiteral("IF(p.pamId IS NULL OR p.pamId='' OR p.pamId='0', p.pid, p.pamId)");
    const QString shownName = QStringLiteral("CONCAT(p.surname, ' ', p.name, ' ', p.title, ' ', p.title2)");
    QHash<QString, int> expected;
    const QStringList cells =
        m_database->rows("SELECT " + shownID + ", " + shownName + ", DAY(o.date), s.position, f.typeID, SUM(r.quantity)"
                         + from + " GROUP BY p.uid, o.date, s.position, f.typeID");
    for (const QString &row : cells) {
        const QStringList parts = row.split('|');
        int service = 0;
        while (services.at(service).section('|', 0, 0) != parts.at(3))
            ++service;
        int type = 0;
        while (types.at(type).section('|', 0, 0) != parts.at(4))
            ++type;
        const int column = 2 + (parts.at(2).toInt() - 1) * perDay + service * types.size() + type;
        expected.insert(QStringLiteral("%1|%2|%3").arg(parts.at(0), parts.at(1)).arg(column), parts.at(5).toInt());
    }

    QHash<QString, int> found;
    int row = 12;
    for (; !cell(row, 0).isEmpty() && !cell(row, 0).contains(QStringLiteral("Súčet")); ++row) {
        int sum = 0;
        for (int column = 2; column < last; ++column) {
            const QString text = cell(row, column);
            if (text.isEmpty())
                continue;
            found.insert(QStringLiteral("%1|%2|%3").arg(cell(row, 0), cell(row, 1)).arg(column), text.toInt());
            sum += text.toInt();
        }
        QCOMPARE(cell(row, last).toInt(), sum);
    }
    QCOMPARE(found.size(), expected.size());
    QCOMPARE(found, expected);

    // A block for each service, with the sums of its days.
    for (const QString &service : services) {
        const QString label = QStringLiteral("    Súčet za deň a segment - -") + service.section('|', 1) + " :";
        while (row < m_sheet.value("cells").toArray().size() && cell(row, 0) != label)
            ++row;
        QCOMPARE(cell(row, 0), label);
        const QString total =
            sql("SELECT IFNULL(SUM(r.quantity), 0)" + from + " AND s.position=" + service.section('|', 0, 0));
        QCOMPARE(cell(row, last), total);
    }

    QList<int> hidden;
    const QJsonArray hiddenColumns = m_sheet.value("hidden").toArray();
    for (const QJsonValue &column : hiddenColumns)
        hidden.append(column.toInt());
    QList<int> expectedHidden;
    for (int day = 1; day <= days; ++day) {
        const QDate date(m_thursday.year(), m_thursday.month(), day);
        const bool hasOrders = sql("SELECT COUNT(*)" + from + " AND DAY(o.date)=" + QString::number(day)).toInt() > 0;
        for (int column = 0; column < perDay && date.dayOfWeek() > 5 && !hasOrders; ++column)
            expectedHidden.append(2 + (day - 1) * perDay + column);
    }
    QVERIFY(!expectedHidden.isEmpty());
    QCOMPARE(hidden, expectedHidden);
}

void TestWorkbookPlugin::cancelledDialogWritesNothing()
{
    openBoard();
    for (const char *button : {"toolButtonMonthly", "toolButtonExport"}) {
        m_boxes.expectDialog(QStringLiteral("QFileDialog"), [](QDialog *dialog) { dialog->reject(); });
        click(m_board, button);
        BOXES_DONE(m_boxes);
        QVERIFY(m_board->isEnabled());
        QVERIFY(!QApplication::overrideCursor());
    }
}

void TestWorkbookPlugin::unwritableFileIsTold_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("ofPerson");
    QTest::addColumn<QString>("defaultName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("obstacle");
    const QString xls =
        QStringLiteral("Zápis do súboru \"%1\" XLS zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.");
    const QString xlsx =
        QStringLiteral("Zápis do súboru \"%1\" zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.");
    for (const char *obstacle : {"folder", "lock", "disk"}) {
        const auto row = [&](const char *what) -> QTestData & { return QTest::addRow("%s, %s", what, obstacle); };
        row("branch") << "toolButtonMonthly" << false << branchFile << branchTitle << xls << obstacle;
        // The branch's title, on purpose.
        row("person") << "toolButtonMonthly" << true << personFile << branchTitle << xls << obstacle;
        row("control") << "toolButtonExport" << false << controlFile << controlTitle << xlsx << obstacle;
    }
}

/// A folder that takes no files, a file that another program has locked, a disk that is full: the box tells, and the
/// file that was there is as it was.
void TestWorkbookPlugin::unwritableFileIsTold()
{
    QFETCH(QString, button);
    QFETCH(bool, ofPerson);
    QFETCH(QString, defaultName);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, obstacle);
    openBoard();
    if (ofPerson)
        click(m_board, "butOrdersSwitch");
    QFile old(m_folder.filePath(QString::number(++m_files)));
    QVERIFY(old.open(QIODevice::ReadWrite));
    old.write("old");
    QVERIFY(old.flush());
    const QStringList before = QDir(m_folder.path()).entryList(QDir::Files);
    std::unique_ptr<LimitedFiles> fullDisk;
    if (obstacle == QLatin1String("lock"))
        QCOMPARE(flock(old.handle(), LOCK_EX | LOCK_NB), 0);
    else if (obstacle == QLatin1String("disk"))
        fullDisk = std::make_unique<LimitedFiles>(rlim_t(1000));
    const QString fileName = obstacle == QLatin1String("folder") ? QStringLiteral("/proc/zostava.xls") : old.fileName();
    answerFile(defaultName, fileName, obstacle != QLatin1String("folder"));
    m_boxes.expectBox(title, text.arg(fileName));
    click(m_board, button.toLatin1().constData());
    fullDisk.reset();
    BOXES_DONE(m_boxes);
    QVERIFY(m_board->isEnabled());
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(old.seek(0));
    QCOMPARE(old.readAll(), QByteArray("old"));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files), before);
}

QTEST_MAIN(TestWorkbookPlugin)
#include "tst_workbookplugin.moc"
