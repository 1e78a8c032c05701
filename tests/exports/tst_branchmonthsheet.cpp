#include "exports/branchmonthsheet.h"
#include "monthlook.h"
#include "recordingbook.h"

#include <QLocale>
#include <QStandardItemModel>
#include <QtTest>

class TestBranchMonthSheet : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QStringLiteral("sk_SK"))); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void sheet();
    void cells_data();
    void cells();
    void sizes_data();
    void sizes();
    void merges_data();
    void merges();
    void sumsOfManyPeople();
    void largeSumsHaveSmallerLetters_data();
    void largeSumsHaveSmallerLetters();
    void hostileNames_data();
    void hostileNames();
    void tooManyRows_data();
    void tooManyRows();
    void withoutASheet();
    void rowsOfAModel();
    void rowsOfNoModel();
};

namespace {

QDateTime now()
{
    return {QDate(2020, 4, 1), QTime(7, 5, 9)};
}

BranchMonth march(int people)
{
    BranchMonth month;
    month.day = QDate(2020, 3, 19);
    month.branch = QStringLiteral("Výroba");
    for (int person = 0; person < people; ++person)
        month.people.append({QString::number(17 + person), "P" + QString::number(person), "Adamec Ján", 2.0 + person,
                             4.25 + 10 * person});
    return month;
}

} // namespace

void TestBranchMonthSheet::sheet()
{
    QCOMPARE(branchMonthTitle(), QStringLiteral("ZEP - Mesačný výpis objednávok zamestnancov"));
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, march(2), now()));
    QCOMPARE(book.sheetCount, 1);
    QCOMPARE(book.sheet.name, QStringLiteral("ZEP - Mesačný výpis objednávok "));
    QCOMPARE(book.numFormats, (QStringList{"#0.00", "#0.00 €"}));
    QCOMPARE(book.sheet.page,
             (QStringList{"display gridlines 0", "print gridlines 0", "left 0.1968", "right 0.1968", "top 0.1968",
                          "bottom 0.1968", "fit 1 0", "landscape 1", "paper 9", "repeat 5 6"}));
    QCOMPARE(book.sheet.widths, (QMap<int, double>{{0, 10}, {1, 18}, {2, 45}, {3, 25}, {4, 10}}));
    QCOMPARE(book.sheet.hidden, QVector<int>());
}

void TestBranchMonthSheet::cells_data()
{
    QTest::addColumn<int>("people");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("looks");
    using namespace MonthLook;
    const QStringList spacers{spacer, spacer, spacer, spacer, spacer};
    const QStringList none;
    for (const int people : {0, 1, 3}) {
        const auto add = [people](const char *name, int row, const QString &text, const QStringList &looks) {
            QTest::addRow("%s, %d people", name, people) << people << row << text << looks;
        };
        add("title", 0, " Mesačný výpis objednávok zamestnancov - marca 2020", {title});
        add("under the title", 1, {}, none);
        add("air", 2, {}, none);
        add("branch", 3, "Stredisko:|Výroba", {caption, branch});
        for (int row = 4; row < 8; ++row)
            add(qPrintable(QStringLiteral("air in row %1").arg(row)), row, {}, none);
        add("spacer", 8, " | | | | ", spacers);
        add("headings", 9, "ID|pamID|Meno|Počet objednávok|Suma", {header, header, header, header, headerRight});
        const QStringList row{cell, cell, cellLeft, cell, money};
        if (people > 0)
            add("first person", 10, "17|P0|Adamec Ján|2|4.25", row);
        if (people > 2)
            add("last person", 12, "19|P2|Adamec Ján|4|24.25", row);
        const int end = 10 + people;
        add("low row", end, {}, none);
        add("second spacer", end + 1, " | | | | ", spacers);
        const QString sums(people == 0 ? "0|0" : people == 1 ? "2|4.25" : "9|42.75");
        add("sums", end + 2, "|||" + sums, {"none", "none", "none", total, moneyTotal});
        for (const int air : {3, 4, 5, 6})
            add(qPrintable(QStringLiteral("%1 after the last person").arg(air)), end + air, {}, none);
        add("third spacer", end + 7, " | | | | ", spacers);
        add("footer", end + 8, "|NORVIK-IT Workforce Presence System||01.04.2020 07:05:09",
            {"none", footer, "none", timeOfDay});
    }
}

void TestBranchMonthSheet::cells()
{
    QFETCH(int, people);
    QFETCH(int, row);
    QFETCH(QStringList, looks);
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, march(people), now()));
    QTEST(book.sheet.rowText(row), "text");
    for (int column = 0; column < looks.size(); ++column)
        QCOMPARE(book.sheet.look(row, column), looks.at(column));
    QCOMPARE(book.sheet.lastRow(), 18 + people);
    const bool isPerson = row >= 10 && row < 10 + people;
    const bool isSum = row == 12 + people;
    for (int column = 0; column < 5; ++column)
        QCOMPARE(book.sheet.isNumber(row, column), (isPerson || isSum) && column >= 3);
}

void TestBranchMonthSheet::sizes_data()
{
    QTest::addColumn<int>("people");
    QTest::newRow("empty month") << 0;
    QTest::newRow("one person") << 1;
    QTest::newRow("seven people") << 7;
}

void TestBranchMonthSheet::sizes()
{
    QFETCH(int, people);
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, march(people), now()));
    QCOMPARE(book.sheet.heights,
             (QMap<int, double>{
                 {7, 6}, {8, 5}, {9, 18}, {10 + people, 6}, {11 + people, 5}, {16 + people, 6}, {17 + people, 5}}));
}

void TestBranchMonthSheet::merges_data()
{
    sizes_data();
}

void TestBranchMonthSheet::merges()
{
    QFETCH(int, people);
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, march(people), now()));
    QCOMPARE(book.sheet.mergeCount(), 2);
    QCOMPARE(book.sheet.mergeAt(0, 0), QStringLiteral("rows 0-1, columns 0-4"));
    QCOMPARE(book.sheet.mergeAt(18 + people, 3), QStringLiteral("rows %1-%1, columns 3-4").arg(18 + people));
}

void TestBranchMonthSheet::largeSumsHaveSmallerLetters_data()
{
    QTest::addColumn<double>("sum");
    QTest::addColumn<int>("size");
    QTest::newRow("0.00 €") << 0.0 << 11;
    QTest::newRow("999.99 €") << 999.99 << 11;
    QTest::newRow("1000.00 €") << 1000.0 << 10;
    QTest::newRow("30000.00 €") << 30000.0 << 9;
    QTest::newRow("250000.00 €") << 250000.0 << 8;
    QTest::newRow("-30000.00 €") << -30000.0 << 8;
}

/// Programs show "###" instead of a number that does not fit.
void TestBranchMonthSheet::largeSumsHaveSmallerLetters()
{
    QFETCH(double, sum);
    QFETCH(int, size);
    BranchMonth month = march(1);
    month.people[0].sum = sum;
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, month, now()));
    QVERIFY2(book.sheet.look(13, 4).startsWith(QStringLiteral("MS Shell Dlg 2 %1 bold").arg(size)),
             qPrintable(book.sheet.look(13, 4)));
    QVERIFY(book.sheet.look(13, 4).endsWith("number format 165"));
}

void TestBranchMonthSheet::sumsOfManyPeople()
{
    BranchMonth month = march(0);
    double quantity = 0;
    double sum = 0;
    for (int person = 0; person < 5000; ++person) {
        const double portions = person % 23;
        const double money = (person * 37 % 1000) / 100.0;
        quantity += portions;
        sum += money;
        month.people.append({QString::number(person), {}, "x", portions, money});
    }
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, month, now()));
    QCOMPARE(book.sheet.cells.value({5012, 3}).number, quantity);
    QCOMPARE(book.sheet.cells.value({5012, 4}).number, sum);
}

void TestBranchMonthSheet::hostileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("formula") << "=1+1";
    QTest::newRow("emoji") << QString::fromUtf8("🍲 Ján");
    QTest::newRow("placeholders") << "%1 %2 %3";
    QTest::newRow("markup") << "<b>&amp;</b>";
    QTest::newRow("line break") << "Adamec\nJán";
    QTest::newRow("number") << "007";
    QTest::newRow("empty") << "";
    QTest::newRow("long") << QString(40000, 'x');
}

void TestBranchMonthSheet::hostileNames()
{
    QFETCH(QString, name);
    BranchMonth month = march(1);
    month.branch = name;
    month.people[0].pid = month.people[0].pamId = month.people[0].name = name;
    RecordingBook book;
    QVERIFY(writeBranchMonth(book, month, now()));
    const QString written = name.left(32767);
    for (int column = 0; column < 3; ++column) {
        QCOMPARE(book.sheet.at(10, column), written);
        QVERIFY(!book.sheet.isNumber(10, column));
    }
    QCOMPARE(book.sheet.at(3, 1), written);
}

void TestBranchMonthSheet::tooManyRows_data()
{
    QTest::addColumn<int>("maxRows");
    QTest::addColumn<bool>("complete");
    QTest::newRow("enough") << 29 << true;
    QTest::newRow("no footer") << 28 << false;
    QTest::newRow("few") << 15 << false;
}

void TestBranchMonthSheet::tooManyRows()
{
    QFETCH(int, maxRows);
    RecordingBook book;
    book.sheet.maxRows = maxRows;
    QTEST(writeBranchMonth(book, march(10), now()), "complete");
}

void TestBranchMonthSheet::withoutASheet()
{
    RecordingBook book;
    book.takesSheets = false;
    QVERIFY(!writeBranchMonth(book, march(1), now()));
}

void TestBranchMonthSheet::rowsOfAModel()
{
    QStandardItemModel rows(2, 6);
    const QVariantList first{"17", "P17", "Adamec Ján", qint64(5), "5 as text", "15.75"};
    const QVariantList second{QVariant(), QVariant(), "Zeman", "no number", "", "none"};
    for (int column = 0; column < 6; ++column) {
        rows.setData(rows.index(0, column), first.at(column));
        rows.setData(rows.index(1, column), second.at(column));
    }
    const QVector<BranchMonth::Person> people = branchMonthPeople(&rows);
    QCOMPARE(people.size(), 2);
    QCOMPARE(people.at(0).pid, QStringLiteral("17"));
    QCOMPARE(people.at(0).pamId, QStringLiteral("P17"));
    QCOMPARE(people.at(0).name, QStringLiteral("Adamec Ján"));
    QCOMPARE(people.at(0).quantity, 5.0);
    QCOMPARE(people.at(0).sum, 15.75);
    QCOMPARE(people.at(1).pid, QString());
    QCOMPARE(people.at(1).quantity, 0.0);
    QCOMPARE(people.at(1).sum, 0.0);
}

void TestBranchMonthSheet::rowsOfNoModel()
{
    QCOMPARE(branchMonthPeople(nullptr).size(), 0);
    const QStandardItemModel empty(0, 6);
    QCOMPARE(branchMonthPeople(&empty).size(), 0);
    // The rows of another printout have fewer columns.
    const QStandardItemModel narrow(1, 2);
    QCOMPARE(branchMonthPeople(&narrow).at(0).sum, 0.0);
}

QTEST_APPLESS_MAIN(TestBranchMonthSheet)
#include "tst_branchmonthsheet.moc"
