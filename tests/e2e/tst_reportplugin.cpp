#include "printout.h"
#include "program.h"
#include "support/boxanswerer.h"
#include "support/testdatabase.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QToolBar>

/// The printouts of the demo firm through the built plug-in: every figure on paper is what plain SQL gives.
class TestReportPlugin : public QObject {
    Q_OBJECT

public slots:
    void openFile(const QUrl &url) { m_opened.append(url.toLocalFile()); }
    void openMail(const QUrl &url) { m_mails.append(url); }

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void weeklyMenu_data();
    void weeklyMenu();
    void emptyWeek();
    void monthOfAPerson();
    void monthOfAPersonWithoutOrders();
    void monthOfABranch_data();
    void monthOfABranch();
    void monthOfTwoThousand();
    void ordersOfAPersonsDay();
    void orderForTheSuppliers();
    void pickUpList();
    void ordersGoOutByMail();
    void savedAsHtml();
    void namesOnPaper_data();
    void namesOnPaper();

private:
    void openBoard(int branch = 0);
    void showPerson(const QString &name);
    /// Expects previews, one after the other, and saves each to a file; the names of the files.
    QStringList expectPreviews(int count, const char *action = "actExpToPdf");
    void savePreview(const QStringList &files, const char *action);
    QString print(const QWidget *parent, const char *button);
    void inDispatch(const std::function<void(QDialog *)> &act);
    /// All cells of a query's rows, joined with blanks; a NULL is "NULL".
    QString sql(const QString &query) const;
    QStringList sqlWords(const QString &query) const;
    QString inMonth() const;
    static void hasPagesInOrder(const Printout &printout, const QString &tableHead);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<Program> m_program;
    const QWidget *m_board = nullptr;
    QTemporaryDir m_folder;
    int m_files = 0;
    QStringList m_opened;
    QList<QUrl> m_mails;
    BoxAnswerer m_boxes;
    QDate m_thursday; ///< of last week, whose days are all locked
};

namespace {

constexpr PrintoutBands weeklyBands{40, 26, 50};
constexpr PrintoutBands monthlyBands{40, 56, 40};
constexpr PrintoutBands branchBands{110, 40, 50};
constexpr PrintoutBands listBands{110, 40, 50};

QString longestName()
{
    return QStringLiteral("Bartolomejčíková-Podhradská Maximiliána Alexandrína");
}

QString money(const QString &amount)
{
    return QStringLiteral("CONCAT(CAST(ROUND(%1, 2) AS DECIMAL(12, 2)), ' €')").arg(amount);
}

QString monthText(const QDate &date)
{
    return QLocale().toString(date, QStringLiteral("MMMM yyyy"));
}

} // namespace

void TestReportPlugin::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openFile");
    QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "openMail");
    m_database = std::make_unique<TestDatabase>();
    m_database->loadDemoFirm();
    const QDate today = QDate::currentDate();
    m_thursday = today.addDays(4 - today.dayOfWeek() - 7);
}

void TestReportPlugin::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
    QLocale::setDefault(QLocale::c());
}

void TestReportPlugin::init()
{
    QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).clear();
    m_opened.clear();
    m_mails.clear();
}

void TestReportPlugin::cleanup()
{
    m_program.reset();
    BOXES_DONE(m_boxes);
}

/// The board on last week, in the view of menus.
void TestReportPlugin::openBoard(int branch)
{
    m_program = std::make_unique<Program>(
        m_database->db(), QVariantMap{{QStringLiteral("companyName"), QStringLiteral("Strojárne, a. s.")}});
    m_board = m_program->open(QStringLiteral("Menu"));
    click(m_board, "butMenuSwitch");
    child<QComboBox>(m_board, "comboBoxBranches")->setCurrentIndex(branch);
    click(m_board, "toolButtonL");
}

void TestReportPlugin::showPerson(const QString &name)
{
    click(m_board, "butOrdersSwitch");
    auto *people = child<QComboBox>(m_board, "comboBoxPeople");
    const int row = people->findText(name, Qt::MatchEndsWith);
    QVERIFY(row >= 0);
    people->setCurrentIndex(row);
}

QStringList TestReportPlugin::expectPreviews(int count, const char *action)
{
    QStringList files;
    for (int preview = 0; preview < count; ++preview)
        files.append(m_folder.filePath(QString::number(++m_files)));
    savePreview(files, action);
    return files;
}

/// Saves the next preview to the first of the files, and those that follow it to the others.
void TestReportPlugin::savePreview(const QStringList &files, const char *action)
{
    if (files.isEmpty())
        return;
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [=](QDialog *preview) {
        m_boxes.expectDialog(QStringLiteral("QFileDialog"), [=](QDialog *dialog) {
            child<QLineEdit>(dialog, "fileNameEdit")->setText(files.first());
            dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
        });
        const QList<QAction *> actions = preview->findChild<QToolBar *>()->actions();
        for (QAction *candidate : actions) {
            if (candidate->objectName() == QLatin1String(action))
                candidate->trigger();
        }
        savePreview(files.mid(1), action);
        QTest::keyClick(preview, Qt::Key_Escape);
    });
}

QString TestReportPlugin::print(const QWidget *parent, const char *button)
{
    const QStringList files = expectPreviews(1);
    click(parent, button);
    return files.first();
}

/// Works in the dispatch of the lunches of last week's Thursday.
void TestReportPlugin::inDispatch(const std::function<void(QDialog *)> &act)
{
    m_boxes.expectDialog(QStringLiteral("DialogReport"), [=](QDialog *dialog) {
        act(dialog);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    click(card(m_board, 1, m_thursday), "toolButtonMenuReport");
    BOXES_DONE(m_boxes);
}

QString TestReportPlugin::sql(const QString &query) const
{
    return m_database->rows(query).join(QLatin1Char(' ')).replace(QLatin1Char('|'), QLatin1Char(' ')).simplified();
}

QStringList TestReportPlugin::sqlWords(const QString &query) const
{
    QStringList words = sql(query).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.sort();
    return words;
}

QString TestReportPlugin::inMonth() const
{
    const QDate first(m_thursday.year(), m_thursday.month(), 1);
    return QStringLiteral("o.date BETWEEN '%1' AND '%2'")
        .arg(first.toString(Qt::ISODate), first.addMonths(1).addDays(-1).toString(Qt::ISODate));
}

/// Page numbers, the table's head on each page, and no text on another or outside the paper.
void TestReportPlugin::hasPagesInOrder(const Printout &printout, const QString &tableHead)
{
    QVERIFY(printout.pages() > 0);
    for (int page = 1; page <= printout.pages(); ++page) {
        QCOMPARE(printout.pager(page), QStringLiteral("%1 / %2").arg(page).arg(printout.pages()));
        QCOMPARE(printout.tableHead(page), tableHead);
    }
    QCOMPARE(printout.collisions(), QStringList());
}

void TestReportPlugin::weeklyMenu_data()
{
    QTest::addColumn<int>("branch");
    QTest::addColumn<QString>("condition");
    QTest::newRow("all branches") << 0 << "o.bid IS NULL";
    QTest::newRow("a branch") << 1 << "o.bid=1";
}

void TestReportPlugin::weeklyMenu()
{
    QFETCH(int, branch);
    QFETCH(QString, condition);
    openBoard(branch);
    const Printout printout(print(m_board, "toolButtonWeekly"), weeklyBands);
    BOXES_DONE(m_boxes);
    QCOMPARE(printout.title(), QStringLiteral("Týždenné menu"));
    hasPagesInOrder(printout, QStringLiteral("Typ Názov Cena"));

    QString names;
    QString types;
    QString prices;
    for (int day = -3; day <= 3; ++day) {
        const QDate date = m_thursday.addDays(day);
        const QStringList services = m_database->rows(QStringLiteral("SELECT segmentID, name FROM via_segments"));
        for (const QString &service : services) {
            const QString from =
                QStringLiteral("FROM via_orderables o JOIN via_foods f USING (foodID) JOIN via_types t USING (typeID) "
                               "JOIN via_suppliers s USING (supplierID) WHERE o.locked>0 AND o.date='%1' AND "
                               "o.segmentID=%2 AND %3 ORDER BY t.position, o.position")
                    .arg(date.toString(Qt::ISODate), service.section('|', 0, 0), condition);
            const QString foods = sql("SELECT CONCAT(s.shortcut, ' ', f.name) " + from);
            if (foods.isEmpty())
                continue;
            names +=
                service.section('|', 1) + QLocale().toString(date, QStringLiteral(" d.M.yyyy - dddd ")) + foods + ' ';
            types += sql("SELECT t.name " + from) + ' ';
            prices += sql("SELECT " + money("o.price") + ' ' + from) + ' ';
        }
    }
    QVERIFY(!names.isEmpty());
    QCOMPARE(printout.column(172, 605), names.simplified());
    QCOMPARE(printout.column(20, 172), types.simplified());
    QCOMPARE(printout.column(605, 776), prices.simplified());
}

void TestReportPlugin::emptyWeek()
{
    openBoard();
    child<QComboBox>(m_board, "comboBox")->setCurrentIndex(0);
    const int days =
        m_database
            ->value(QStringLiteral("SELECT COUNT(*) FROM via_orderables WHERE locked>0 AND bid IS NULL AND "
                                   "date > CURDATE() - INTERVAL WEEKDAY(CURDATE()) DAY + INTERVAL 20 DAY"))
            .toInt();
    QCOMPARE(days, 0);
    const Printout printout(print(m_board, "toolButtonWeekly"), weeklyBands);
    QCOMPARE(printout.pages(), 1);
    hasPagesInOrder(printout, QStringLiteral("Typ Názov Cena"));
    QCOMPARE(printout.column(0, 800), QString());
}

void TestReportPlugin::monthOfAPerson()
{
    openBoard();
    showPerson(longestName());
    const Printout printout(print(m_board, "toolButtonMonthly"), monthlyBands);
    BOXES_DONE(m_boxes);
    const QString person = child<QComboBox>(m_board, "comboBoxPeople")->currentText();
    QCOMPARE(printout.title(),
             QStringLiteral("Mesačný výpis objednanej stravy - %1, ID: %2").arg(monthText(m_thursday), person));
    const QVector<QRectF> title = printout.titlePlaces();
    QCOMPARE(title.size(), printout.title().count(QLatin1Char(' ')) + 1);
    for (const QRectF &word : title)
        QVERIFY2(word.top() > -1 && word.bottom() < 36, "the title leaves its panel");
    hasPagesInOrder(printout, QStringLiteral("Dátum Cena Počet Objednané Jedlo Typ výdaju Cena celkom Vydané"));

    const QString from =
        QStringLiteral(" FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN via_foods f "
                       "USING (foodID) JOIN via_segments s USING (segmentID) JOIN people p USING (uid) "
                       "WHERE CONCAT(p.surname, ' ', p.name)='%1' AND %2 ORDER BY o.date, o.segmentID")
            .arg(longestName(), inMonth());
    QVERIFY(!sql("SELECT r.uid" + from).isEmpty());
    QCOMPARE(printout.column(0, 107), sql("SELECT DATE_FORMAT(o.date, '%d. %m. %Y'), s.name" + from));
    QCOMPARE(printout.columnWords(107, 354), sqlWords("SELECT f.name" + from));
    QCOMPARE(printout.columnWords(354, 428), sqlWords("SELECT " + money("o.price") + from));
    const QString sums = sql("SELECT CONCAT(r.quantity, ' ', " + money("r.quantity*o.price") + ")" + from) + ' '
        + sql("SELECT " + money("SUM(r.quantity*o.price)") + from);
    QStringList sumWords = sums.split(' ');
    sumWords.sort();
    QCOMPARE(printout.columnWords(428, 503), sumWords);
    QCOMPARE(printout.column(428, 503).section(' ', -2), sums.section(' ', -2));
    QCOMPARE(printout.columnWords(503, 800),
             sqlWords("SELECT r.ordered, IFNULL(DATE_FORMAT(r.delivered, '%d.%m.%Y %H:%i:%s'), '')" + from));
}

void TestReportPlugin::monthOfAPersonWithoutOrders()
{
    m_database->exec(
        QStringLiteral("INSERT INTO people (uid, pid, name, surname) VALUES (5000, 5000, 'Nový', 'Adam')"));
    openBoard();
    showPerson(QStringLiteral("Adam Nový"));
    const Printout printout(print(m_board, "toolButtonMonthly"), monthlyBands);
    m_database->exec(QStringLiteral("DELETE FROM people WHERE uid=5000"));
    BOXES_DONE(m_boxes);
    QCOMPARE(printout.pages(), 1);
    QCOMPARE(printout.title(),
             QStringLiteral("Mesačný výpis objednanej stravy - %1, ID: [5000] Adam Nový").arg(monthText(m_thursday)));
    QCOMPARE(printout.column(0, 800), QStringLiteral("0.00 €"));
}

void TestReportPlugin::monthOfABranch_data()
{
    QTest::addColumn<int>("branch");
    QTest::addColumn<QString>("people");
    QTest::addColumn<QString>("header");
    const QString month = monthText(m_thursday);
    QTest::newRow("everybody with orders") << 0 << "r.quantity > 0" << month;
    QTest::newRow("members of a branch") << 1 << "p.uid IN (SELECT uid FROM brape WHERE bid=1)"
                                         << month + QStringLiteral(", Podhradie – výroba");
}

void TestReportPlugin::monthOfABranch()
{
    QFETCH(int, branch);
    QFETCH(QString, people);
    QFETCH(QString, header);
    openBoard(branch);
    const Printout printout(print(m_board, "toolButtonMonthly"), branchBands);
    BOXES_DONE(m_boxes);
    QCOMPARE(printout.title(), "Mesačný výpis objednávok zamestnancov " + header);
    hasPagesInOrder(printout, QStringLiteral("ID pamID Meno počet objednávok Suma"));

    const QString from =
        QStringLiteral(" FROM people p LEFT JOIN (SELECT r.uid, r.quantity, r.quantity*o.price price FROM via_orders r "
                       "JOIN via_orderables o USING (orderableID) WHERE %1) r ON r.uid=p.uid WHERE p.status<>0 AND %2")
            .arg(inMonth(), people);
    const QString perPerson = from + QStringLiteral(" GROUP BY p.pid ORDER BY p.pid");
    const QString total = QStringLiteral("IFNULL(SUM(r.quantity), 0)");
    const QString sum = money(QStringLiteral("IFNULL(SUM(r.price), 0)"));
    QCOMPARE(printout.column(0, 49), sql("SELECT p.pid" + perPerson));
    QCOMPARE(printout.column(49, 115), sql("SELECT IFNULL(p.pamId, '')" + perPerson));
    QCOMPARE(printout.column(115, 299), sql("SELECT CONCAT(p.surname, ' ', p.name)" + perPerson));
    QCOMPARE(printout.column(299, 554), sql("SELECT " + total + perPerson) + ' ' + sql("SELECT " + total + from));
    QCOMPARE(printout.column(554, 800), sql("SELECT " + sum + perPerson) + ' ' + sql("SELECT " + sum + from));

    const QColor grey(235, 235, 235);
    for (int row = 0; row < 8; ++row) {
        const double middle = printout.headTop(1) + branchBands.header + 28 * row + 14;
        QCOMPARE(printout.colorAt(1, 2, middle), row % 2 == 1 ? grey : QColor(Qt::white));
    }
}

void TestReportPlugin::monthOfTwoThousand()
{
    const QString item = m_database->value("SELECT orderableID FROM via_orderables o WHERE " + inMonth()).toString();
    m_database->exec(QStringLiteral("INSERT INTO people (uid, pid, pamId, name, surname) SELECT 10000+seq, 10000+seq, "
                                    "CONCAT('P', seq), 'Ján', CONCAT('Zamestnanec-', seq) FROM seq_1_to_2000"));
    m_database->exec(QStringLiteral("INSERT INTO via_orders (orderableID, uid, quantity) SELECT %1, 10000+seq, "
                                    "1+MOD(seq, 3) FROM seq_1_to_2000")
                         .arg(item));
    openBoard();
    const Printout printout(print(m_board, "toolButtonMonthly"), branchBands);
    BOXES_DONE(m_boxes);
    const QString all =
        QStringLiteral(" FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN people p USING "
                       "(uid) WHERE p.status<>0 AND ")
        + inMonth();
    const QString people = sql("SELECT p.pid" + all + " GROUP BY p.pid ORDER BY p.pid");
    const QString figures =
        sql("SELECT SUM(r.quantity)" + all) + ' ' + sql("SELECT " + money("SUM(r.quantity*o.price)") + all);
    m_database->exec(QStringLiteral("DELETE FROM via_orders WHERE uid > 10000"));
    m_database->exec(QStringLiteral("DELETE FROM people WHERE uid > 10000"));

    QCOMPARE(printout.column(0, 49), people);
    QCOMPARE(printout.column(299, 554).section(' ', -1) + ' ' + printout.column(554, 800).section(' ', -2), figures);
    QVERIFY(printout.pages() > 55);
    for (int page = 1; page <= printout.pages(); ++page)
        QCOMPARE(printout.pager(page), QStringLiteral("%1 / %2").arg(page).arg(printout.pages()));
}

void TestReportPlugin::ordersOfAPersonsDay()
{
    const QString lunch =
        QStringLiteral(" o.date='%1' AND o.segmentID=2 AND o.bid IS NULL ").arg(m_thursday.toString(Qt::ISODate));
    const QString name = sql(
        "SELECT CONCAT(p.surname, ' ', p.name) FROM people p JOIN via_orders r USING (uid) JOIN via_orderables o USING "
        "(orderableID) WHERE"
        + lunch + "GROUP BY p.uid ORDER BY COUNT(*) DESC LIMIT 1");
    openBoard();
    showPerson(name);
    const QString person = child<QComboBox>(m_board, "comboBoxPeople")->currentText();
    const Printout printout(print(card(m_board, 1, m_thursday), "toolButtonPersonReport"), listBands);
    BOXES_DONE(m_boxes);
    QCOMPARE(printout.title(),
             QStringLiteral("Objednávka %1, Obed, %2").arg(m_thursday.toString(QStringLiteral("d. M. yyyy")), person));
    hasPagesInOrder(printout, QStringLiteral("Položka Počet"));
    const QString from =
        QStringLiteral(
            " FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN via_foods f USING (foodID) JOIN "
            "via_types t USING (typeID) JOIN via_suppliers s USING (supplierID) JOIN people p USING (uid) WHERE "
            "CONCAT(p.surname, ' ', p.name)='%1' AND %2 ORDER BY t.position, o.position")
            .arg(name, lunch);
    QStringList lines;
    QString type;
    const QStringList rows = m_database->rows("SELECT t.name, s.shortcut, f.name" + from);
    for (const QString &row : rows) {
        if (row.section('|', 0, 0) != type)
            lines.append(type = row.section('|', 0, 0));
        lines.append(row.section('|', 1).replace('|', ' '));
    }
    QVERIFY(!rows.isEmpty());
    QCOMPARE(printout.column(0, 638), lines.join(' '));
    QCOMPARE(printout.column(638, 800), sql("SELECT r.quantity" + from));
}

void TestReportPlugin::orderForTheSuppliers()
{
    const QStringList suppliers =
        m_database->rows(QStringLiteral("SELECT supplierID, s.name FROM via_suppliers s JOIN via_supplierbranch b "
                                        "USING (supplierID) WHERE b.bid IS NULL"));
    QVERIFY(suppliers.size() > 1);
    openBoard();
    QStringList files;
    inDispatch([&](QDialog *dialog) {
        auto *list = child<QAbstractItemView>(dialog, "listViewSuppliers");
        QCOMPARE(list->model()->rowCount(), suppliers.size() + 1);
        files = expectPreviews(suppliers.size());
        click(dialog, "pushButtonPrint");
        BOXES_DONE(m_boxes);
    });
    QCOMPARE(files.size(), suppliers.size());
    for (int supplier = 0; supplier < suppliers.size(); ++supplier) {
        const Printout printout(files.at(supplier), listBands);
        QCOMPARE(printout.title(),
                 QStringLiteral("Objednávka Predbežná objednávka - Strojárne, a. s. %1, Obed: %2")
                     .arg(m_thursday.toString(QStringLiteral("d. M. yyyy")), suppliers.at(supplier).section('|', 1)));
        hasPagesInOrder(printout, QStringLiteral("Položka Počet"));
        const QString from =
            QStringLiteral(" FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN via_foods f "
                           "USING (foodID) JOIN via_types t USING (typeID) WHERE o.date='%1' AND "
                           "o.segmentID=2 AND o.bid IS NULL AND f.supplierID=%2 GROUP BY f.foodID ORDER "
                           "BY t.position, o.position")
                .arg(m_thursday.toString(Qt::ISODate), suppliers.at(supplier).section('|', 0, 0));
        QCOMPARE(printout.column(0, 588), sql("SELECT f.name" + from));
        QCOMPARE(printout.column(588, 800), sql("SELECT SUM(r.quantity)" + from));
    }
}

void TestReportPlugin::pickUpList()
{
    openBoard();
    QString file;
    inDispatch([&](QDialog *dialog) { file = print(dialog, "pushButtonPrintOrders"); });
    const Printout printout(file, listBands);
    QCOMPARE(printout.title(),
             QStringLiteral("Výpis objednávok Zoznam ku dňu: %1, Obed")
                 .arg(m_thursday.toString(QStringLiteral("d. M. yyyy"))));
    hasPagesInOrder(printout, QStringLiteral("Meno Názov Počet Vydané"));
    const QString from =
        QStringLiteral(
            " FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN via_foods f USING (foodID) JOIN "
            "via_suppliers s USING (supplierID) JOIN people p USING (uid) WHERE o.date='%1' AND o.segmentID=2 "
            "AND o.bid IS NULL ORDER BY p.surname")
            .arg(m_thursday.toString(Qt::ISODate));
    QCOMPARE(printout.columnWords(0, 200), sqlWords("SELECT p.surname, p.name, CONCAT('*[', p.pid, ']')" + from));
    QCOMPARE(printout.columnWords(200, 600), sqlWords("SELECT s.shortcut, f.name" + from));
    QCOMPARE(printout.columnWords(600, 650), sqlWords("SELECT r.quantity" + from));
}

void TestReportPlugin::ordersGoOutByMail()
{
    openBoard();
    inDispatch([](QDialog *dialog) {
        child<QCheckBox>(dialog, "checkBoxCopyToBranch")->setChecked(true);
        click(dialog, "pushButtonSend");
    });
    const QStringList suppliers = m_database->rows(QStringLiteral(
        "SELECT s.supplierID, GROUP_CONCAT(m.mail ORDER BY m.supplierMailID) FROM via_suppliers s JOIN "
        "via_supplierbranch b "
        "USING (supplierID) JOIN via_suppliermails m USING (supplierID) WHERE b.bid IS NULL GROUP BY s.supplierID"));
    QCOMPARE(m_mails.size(), suppliers.size());
    const QString copies =
        sql(QStringLiteral("SELECT CONCAT('&bcc=', mail) FROM via_branchmails WHERE bid IS NULL")).remove(' ');
    QVERIFY(!copies.isEmpty());
    for (int index = 0; index < suppliers.size(); ++index) {
        QString expected = "to=" + suppliers.at(index).section('|', 1).replace(",", "&cc=") + copies
            + QStringLiteral("&subject=Strojárne, a. s. %1 - Obed : objednávka &body=")
                  .arg(m_thursday.toString(QStringLiteral("dd.MM.yyyy")));
        const QStringList items = m_database->rows(
            QStringLiteral(
                "SELECT f.name, SUM(r.quantity) FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN "
                "via_foods f USING (foodID) JOIN via_types t USING (typeID) WHERE o.date='%1' AND o.segmentID=2 "
                "AND o.bid IS NULL AND f.supplierID=%2 GROUP BY f.foodID ORDER BY t.position, o.position")
                .arg(m_thursday.toString(Qt::ISODate), suppliers.at(index).section('|', 0, 0)));
        for (const QString &item : items)
            expected += item.section('|', 0, 0) + ' ' + item.section('|', 1) + " \n";
        if (items.isEmpty())
            expected += QStringLiteral("Žiadne objednávky.");
        QCOMPARE(m_mails.at(index).scheme(), QStringLiteral("mailto"));
        QCOMPARE(m_mails.at(index).query(QUrl::FullyDecoded), expected);
    }
}

void TestReportPlugin::savedAsHtml()
{
    openBoard();
    const QString fileName = expectPreviews(1, "actExpToHtml").constFirst();
    click(m_board, "toolButtonMonthly");
    BOXES_DONE(m_boxes);
    QCOMPARE(m_opened, QStringList{fileName});
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll());
    QVERIFY(html.startsWith(QLatin1String("<HTML><HEAD><meta charset=\"UTF-8\"></HEAD><BODY>")));
    QVERIFY(html.endsWith(QLatin1String("</BODY></HTML>")));
    const QString cells =
        QStringLiteral(" FROM via_orders r JOIN via_orderables o USING (orderableID) JOIN people p USING "
                       "(uid) WHERE p.status<>0 AND ")
        + inMonth();
    const QString total = sql("SELECT " + money("SUM(r.quantity*o.price)") + cells);
    QVERIFY(html.contains('>' + total + QLatin1String("</div>")));
}

void TestReportPlugin::namesOnPaper_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("paper");
    QTest::addColumn<QString>("html");
    const QString signs = QStringLiteral("Fish & chips #2 100% %1 ? \"a\" 'b'");
    QTest::newRow("signs") << signs << signs << signs;
    const QString markup = QStringLiteral("<b>tučné</b> & <i>");
    QTest::newRow("markup") << markup << markup << markup;
    const QString tokens = QStringLiteral("[0] <Page> <Sum([4])>");
    QTest::newRow("tokens") << tokens << tokens << tokens;
    QTest::newRow("line break") << "prvý\ndruhý"
                                << "prvý druhý"
                                << "prvý\ndruhý";
    const QString word = QStringLiteral("Vyprážanobravčovorezňovo").repeated(4);
    QTest::newRow("long word") << word << word << word;
}

/// A name on the week's menu: on paper as the column of foods reads, in HTML as it stands in the file.
void TestReportPlugin::namesOnPaper()
{
    QFETCH(QString, name);
    QFETCH(QString, paper);
    QFETCH(QString, html);
    const QString food =
        sql(QStringLiteral("SELECT o.foodID FROM via_orderables o WHERE o.locked>0 AND o.bid IS NULL AND "
                           "o.date='%1' AND o.segmentID=2 ORDER BY o.position LIMIT 1")
                .arg(m_thursday.toString(Qt::ISODate)));
    const QString before = m_database->value("SELECT name FROM via_foods WHERE foodID=" + food).toString();
    QSqlQuery rename(m_database->db());
    rename.prepare(QStringLiteral("UPDATE via_foods SET name=? WHERE foodID=") + food);
    rename.bindValue(0, name);
    QVERIFY(rename.exec());
    openBoard();
    const QString shortcut =
        sql("SELECT s.shortcut FROM via_foods f JOIN via_suppliers s USING (supplierID) WHERE f.foodID=" + food);
    const Printout printout(print(m_board, "toolButtonWeekly"), weeklyBands);
    const QString htmlFile = expectPreviews(1, "actExpToHtml").constFirst();
    click(m_board, "toolButtonWeekly");
    rename.bindValue(0, before);
    QVERIFY(rename.exec());
    BOXES_DONE(m_boxes);

    const QString column = printout.column(172, 605);
    QVERIFY2(column.contains(' ' + shortcut + ' ' + paper + ' '), qPrintable(column));
    // A long word runs over what stands beside it.
    QCOMPARE(printout.collisions().isEmpty(), name.size() < 60);
    QFile file(htmlFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.contains('>' + shortcut + ' ' + html + QLatin1String("</div>")));
}

QTEST_MAIN(TestReportPlugin)
#include "tst_reportplugin.moc"
