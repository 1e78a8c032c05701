#include "controllook.h"
#include "exports/controlmonth.h"
#include "exports/controlsheet.h"
#include "recordingbook.h"
#include "session/session.h"
#include "support/logcatcher.h"

#include <QDateTime>
#include <QLocale>
#include <QtTest>

/// What the control export looks like and says; its figures are the subject of tst_controlsheetsums.
class TestControlSheet : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QStringLiteral("sk_SK"))); }
    void cleanup();

    void sheet();
    void widths_data();
    void widths();
    void top();
    void headings();
    void headingsOfOneSlotAndType();
    void lastColumn_data();
    void lastColumn();
    void person();
    void sumsBelowThePeople();
    void sumsOfOneType();
    void bottom_data();
    void bottom();
    void emptyMonth();
    void hiddenDays_data();
    void hiddenDays();
    void hiddenColumnsAreLogged_data();
    void hiddenColumnsAreLogged();
    void withoutSlotsOrTypes_data();
    void withoutSlotsOrTypes();
    void withoutAMonth();
    void hostileNames_data();
    void hostileNames();
    void tooNarrowOrTooShort_data();
    void tooNarrowOrTooShort();
    void withoutASheet();
};

namespace {

QDateTime now()
{
    return {QDate(2020, 4, 1), QTime(7, 5, 9)};
}

/// March 2020 with two slots and three types: 6 columns a day, the total in column 188. The 1st is a Sunday.
ControlMonth march()
{
    ControlMonth month;
    month.day = QDate(2020, 3, 19);
    month.branch = QStringLiteral("Výroba");
    month.segments = {{"Obed", 1}, {"Večera", 2}};
    month.types = {{"Polievka", 7}, {"Šalát", 3}, {"Múčnik", 9}};
    return month;
}

void order(ControlMonth &month, const char *pid, int day, int quantity, int segment = 1, int type = 7)
{
    month.orders.append({QLatin1String(pid), QStringLiteral("Adamec Ján"),
                         QDate(month.day.year(), month.day.month(), day), quantity, segment, type});
}

} // namespace

void TestControlSheet::cleanup()
{
    session().debugLevel = 0;
    QLocale::setDefault(QLocale::c());
}

void TestControlSheet::sheet()
{
    QCOMPARE(controlTitle(), QStringLiteral("ZEP - Kontrolný export stravy"));
    RecordingBook book;
    const LogCatcher log;
    QVERIFY(writeControlSheet(book, march(), now()));
    QCOMPARE(log.lines(), QStringList{"setLocale OK"});
    QCOMPARE(book.sheetCount, 1);
    QCOMPARE(book.sheet.name, QStringLiteral("ZEP - Kontrolný export stravy"));
    QCOMPARE(book.numFormats, QStringList{"#.00"});
    QCOMPARE(book.sheet.page,
             (QStringList{"display gridlines 0", "print gridlines 0", "left 0.1968", "right 0.1968", "top 0.1968",
                          "bottom 0.1968", "fit 1 0", "landscape 1", "paper 9", "footer &P / &N"}));
}

void TestControlSheet::widths_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<int>("total");
    QTest::newRow("28 days") << QDate(2021, 2, 1) << 170;
    QTest::newRow("29 days") << QDate(2020, 2, 1) << 176;
    QTest::newRow("30 days") << QDate(2020, 4, 1) << 182;
    QTest::newRow("31 days") << QDate(2020, 3, 1) << 188;
}

void TestControlSheet::widths()
{
    QFETCH(QDate, day);
    QFETCH(int, total);
    ControlMonth month = march();
    month.day = day;
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    QMap<int, double> widths{{0, 10}, {1, 45}, {total, 6}};
    for (int column = 2; column < total; ++column)
        widths.insert(column, 1.5);
    QCOMPARE(book.sheet.widths, widths);
}

void TestControlSheet::top()
{
    RecordingBook book;
    QVERIFY(writeControlSheet(book, march(), now()));
    const RecordedSheet &sheet = book.sheet;
    QCOMPARE(sheet.rowText(0), QStringLiteral("Kontrolný export stravy - marca 2020"));
    QCOMPARE(sheet.look(0, 0), ControlLook::title);
    QCOMPARE(sheet.mergeAt(0, 0), QStringLiteral("rows 0-1, columns 0-188"));
    QCOMPARE(sheet.rowText(3), QStringLiteral("Stredisko:|Výroba"));
    QCOMPARE(sheet.look(3, 0), ControlLook::caption);
    QCOMPARE(sheet.look(3, 1), ControlLook::branch);
    QCOMPARE(sheet.rowText(6), QStringLiteral("LEGENDA: Ob-Obed, Ve-Večera, P-Polievka, Š-Šalát, M-Múčnik"));
    QCOMPARE(sheet.look(6, 0), ControlLook::legend);
    QCOMPARE(sheet.mergeAt(6, 0), QStringLiteral("rows 6-6, columns 0-30"));
    for (const int row : {1, 2, 4, 5, 7})
        QCOMPARE(sheet.rowText(row), QString());
    for (int column = 0; column <= 188; ++column) {
        QCOMPARE(sheet.at(8, column), QStringLiteral(" "));
        QCOMPARE(sheet.look(8, column), ControlLook::spacer);
    }
    QVERIFY(!sheet.cells.contains({8, 189}));
    QCOMPARE(sheet.heights.value(7), 6.0);
    QCOMPARE(sheet.heights.value(8), 5.0);
    QCOMPARE(sheet.heights.value(9), 18.0);
}

void TestControlSheet::headings()
{
    RecordingBook book;
    QVERIFY(writeControlSheet(book, march(), now()));
    const RecordedSheet &sheet = book.sheet;
    QCOMPARE(sheet.at(9, 0), QStringLiteral("ID"));
    QCOMPARE(sheet.mergeAt(9, 0), QStringLiteral("rows 9-11, columns 0-0"));
    QCOMPARE(sheet.at(9, 1), QStringLiteral("Zamestnanec"));
    QCOMPARE(sheet.mergeAt(9, 1), QStringLiteral("rows 9-11, columns 1-1"));
    QCOMPARE(sheet.at(9, 188), QStringLiteral("Počet"));
    QCOMPARE(sheet.mergeAt(9, 188), QStringLiteral("rows 9-11, columns 188-188"));
    for (const int column : {0, 1, 188})
        QCOMPARE(sheet.look(9, column), ControlLook::header);
    for (int day = 1; day <= 31; ++day) {
        const int column = 2 + (day - 1) * 6;
        QCOMPARE(sheet.at(9, column), QString::number(day) + ".");
        QCOMPARE(sheet.look(9, column), ControlLook::header);
        QCOMPARE(sheet.mergeAt(9, column), QStringLiteral("rows 9-9, columns %1-%2").arg(column).arg(column + 5));
        const QStringList letters{"P", "Š", "M", "P", "Š", "M"};
        for (int offset = 0; offset < 6; ++offset) {
            QCOMPARE(sheet.at(11, column + offset), letters.at(offset));
            QCOMPARE(sheet.look(11, column + offset), ControlLook::narrowHeader);
        }
        QCOMPARE(sheet.at(10, column), QStringLiteral("Ob"));
        QCOMPARE(sheet.at(10, column + 3), QStringLiteral("Ve"));
        for (const int offset : {0, 3}) {
            QCOMPARE(sheet.look(10, column + offset), ControlLook::narrowHeader);
            QCOMPARE(sheet.mergeAt(10, column + offset),
                     QStringLiteral("rows 10-10, columns %1-%2").arg(column + offset).arg(column + offset + 2));
        }
    }
}

/// A single cell is not merged.
void TestControlSheet::headingsOfOneSlotAndType()
{
    ControlMonth month = march();
    month.segments.removeLast();
    month.types = {{"Polievka", 7}};
    order(month, "17", 2, 5);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    QCOMPARE(book.sheet.at(9, 2), QStringLiteral("1."));
    QCOMPARE(book.sheet.look(9, 2), ControlLook::narrowHeader);
    QCOMPARE(book.sheet.at(9, 32), QStringLiteral("31."));
    QCOMPARE(book.sheet.at(9, 33), QStringLiteral("Počet"));
    QCOMPARE(book.sheet.at(10, 32), QStringLiteral("Ob"));
    QCOMPARE(book.sheet.at(11, 32), QStringLiteral("P"));
    QCOMPARE(book.sheet.at(12, 3), QStringLiteral("5"));
    QCOMPARE(book.sheet.at(13, 3), QStringLiteral("5"));
    QCOMPARE(book.sheet.at(14, 3), QStringLiteral("5"));
    // Title, legend, three headings, label and total of the sums, time.
    QCOMPARE(book.sheet.mergeCount(), 8);
}

void TestControlSheet::lastColumn_data()
{
    widths_data();
}

void TestControlSheet::lastColumn()
{
    QFETCH(QDate, day);
    QFETCH(int, total);
    ControlMonth month = march();
    month.day = day;
    order(month, "17", day.daysInMonth(), 3, 2, 9);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    QCOMPARE(book.sheet.at(9, total), QStringLiteral("Počet"));
    QCOMPARE(book.sheet.at(9, total - 6), QString::number(day.daysInMonth()) + ".");
    QCOMPARE(book.sheet.at(12, total - 1), QStringLiteral("3"));
    QCOMPARE(book.sheet.at(12, total), QStringLiteral("3"));
    for (auto cell = book.sheet.cells.cbegin(); cell != book.sheet.cells.cend(); ++cell)
        QVERIFY(cell.key().second <= total);
}

void TestControlSheet::person()
{
    ControlMonth month = march();
    order(month, "P17", 2, 3, 2, 3);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    const RecordedSheet &sheet = book.sheet;
    QCOMPARE(sheet.at(12, 0), QStringLiteral("P17"));
    QVERIFY(!sheet.isNumber(12, 0));
    QCOMPARE(sheet.look(12, 0), ControlLook::cell);
    QCOMPARE(sheet.at(12, 1), QStringLiteral("Adamec Ján"));
    QCOMPARE(sheet.look(12, 1), ControlLook::cellLeft);
    for (int column = 2; column < 188; ++column) {
        const bool isOrder = column == 12;
        QCOMPARE(sheet.isNumber(12, column), isOrder);
        QCOMPARE(sheet.at(12, column), QString(isOrder ? "3" : ""));
        QCOMPARE(sheet.look(12, column), QString(isOrder ? ControlLook::number : ControlLook::cell));
    }
    QCOMPARE(sheet.at(12, 188), QStringLiteral("3"));
    QCOMPARE(sheet.look(12, 188), ControlLook::total);
}

void TestControlSheet::sumsBelowThePeople()
{
    ControlMonth month = march();
    order(month, "17", 2, 3, 2, 3);
    order(month, "18", 2, 4, 2, 9);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    const RecordedSheet &sheet = book.sheet;
    QCOMPARE(sheet.at(14, 0), QStringLiteral("    Súčet za deň a segment - -Obed :"));
    QCOMPARE(sheet.at(16, 0), QStringLiteral("    Súčet za deň a segment - -Večera :"));
    QCOMPARE(sheet.at(14, 188), QStringLiteral("0"));
    QCOMPARE(sheet.at(16, 188), QStringLiteral("7"));
    for (const int row : {14, 16}) {
        QCOMPARE(sheet.look(row, 0), ControlLook::totalLeft);
        QCOMPARE(sheet.mergeAt(row, 0), QStringLiteral("rows %1-%2, columns 0-1").arg(row).arg(row + 1));
        QCOMPARE(sheet.look(row, 188), ControlLook::total);
        QCOMPARE(sheet.mergeAt(row, 188), QStringLiteral("rows %1-%2, columns 188-188").arg(row).arg(row + 1));
    }
    // The 2nd day: lunch in the columns 8 to 10, dinner in 11 to 13.
    QCOMPARE(sheet.rowText(14).split('|').mid(8, 6), (QStringList{"0", "0", "0", "", "", ""}));
    QCOMPARE(sheet.rowText(15).split('|').mid(8, 6), (QStringList{"0", "", "", "", "", ""}));
    QCOMPARE(sheet.rowText(16).split('|').mid(8, 6), (QStringList{"", "", "", "0", "3", "4"}));
    QCOMPARE(sheet.rowText(17).split('|').mid(8, 6), (QStringList{"", "", "", "7", "", ""}));
    QCOMPARE(sheet.mergeAt(15, 8), QStringLiteral("rows 15-15, columns 8-10"));
    QCOMPARE(sheet.mergeAt(17, 11), QStringLiteral("rows 17-17, columns 11-13"));
    QCOMPARE(sheet.look(16, 12), ControlLook::sum);
    QCOMPARE(sheet.look(17, 11), ControlLook::sum);
    // Every cell of the block has a border.
    for (int row = 14; row < 18; ++row) {
        for (int column = 2; column < 188; ++column)
            QVERIFY(sheet.look(row, column).endsWith("1 #c0c0c0"));
    }
}

void TestControlSheet::sumsOfOneType()
{
    ControlMonth month = march();
    month.types = {{"Polievka", 7}};
    order(month, "17", 1, 12, 2);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    QCOMPARE(book.sheet.at(15, 3), QStringLiteral("12"));
    QCOMPARE(book.sheet.at(16, 3), QStringLiteral("12"));
    QCOMPARE(book.sheet.mergeAt(16, 3), QString());
}

void TestControlSheet::bottom_data()
{
    QTest::addColumn<int>("people");
    QTest::newRow("nobody") << 0;
    QTest::newRow("three") << 3;
}

void TestControlSheet::bottom()
{
    QFETCH(int, people);
    ControlMonth month = march();
    for (int person = 0; person < people; ++person)
        order(month, qPrintable(QString::number(person)), 2, 1);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    const RecordedSheet &sheet = book.sheet;
    const int spacer = 12 + people + 4;
    QCOMPARE(sheet.heights.value(spacer), 4.0);
    QCOMPARE(sheet.rowText(spacer).count(' '), 189);
    for (int column = 0; column <= 188; ++column)
        QCOMPARE(sheet.look(spacer, column), ControlLook::spacer);
    QCOMPARE(sheet.heights.value(spacer + 1), 25.0);
    QCOMPARE(sheet.rowText(spacer + 1), QStringLiteral("|NORVIK-IT Workforce Presence System|01.04.2020 07:05:09"));
    QCOMPARE(sheet.look(spacer + 1, 1), ControlLook::footer);
    QCOMPARE(sheet.look(spacer + 1, 2), ControlLook::timeOfDay);
    QCOMPARE(sheet.mergeAt(spacer + 1, 2), QStringLiteral("rows %1-%1, columns 2-188").arg(spacer + 1));
    QCOMPARE(sheet.lastRow(), spacer + 1);
}

/// What a failed query leaves.
void TestControlSheet::emptyMonth()
{
    RecordingBook book;
    QVERIFY(writeControlSheet(book, march(), now()));
    QCOMPARE(book.sheet.at(9, 2), QStringLiteral("1."));
    QCOMPARE(book.sheet.at(12, 0), QStringLiteral("    Súčet za deň a segment - -Obed :"));
    QCOMPARE(book.sheet.at(12, 188), QStringLiteral("0"));
    QCOMPARE(book.sheet.lastRow(), 17);
}

void TestControlSheet::hiddenDays_data()
{
    QTest::addColumn<QVector<int>>("days");
    QTest::addColumn<QVector<int>>("hidden");
    const QVector<int> all{1, 7, 8, 14, 15, 21, 22, 28, 29};
    QTest::newRow("no order") << QVector<int>() << all;
    QTest::newRow("Wednesday") << QVector<int>{4} << all;
    QTest::newRow("Friday") << QVector<int>{6} << all;
    QTest::newRow("Saturday") << QVector<int>{7} << QVector<int>{1, 8, 14, 15, 21, 22, 28, 29};
    QTest::newRow("Sunday") << QVector<int>{29} << QVector<int>{1, 7, 8, 14, 15, 21, 22, 28};
    QTest::newRow("first Sunday") << QVector<int>{1} << QVector<int>{7, 8, 14, 15, 21, 22, 28, 29};
    QTest::newRow("every weekend") << all << QVector<int>();
}

void TestControlSheet::hiddenDays()
{
    QFETCH(QVector<int>, days);
    QFETCH(QVector<int>, hidden);
    ControlMonth month = march();
    // One column of a day is enough to keep all six.
    for (const int day : qAsConst(days))
        order(month, "17", day, 1, 2, 3);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    QVector<int> columns;
    for (const int day : qAsConst(hidden)) {
        for (int offset = 0; offset < 6; ++offset)
            columns.append(2 + (day - 1) * 6 + offset);
    }
    QCOMPARE(book.sheet.hidden, columns);
}

void TestControlSheet::hiddenColumnsAreLogged_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("lines");
    QTest::newRow("usual") << 0 << 0;
    QTest::newRow("level 1") << 1 << 0;
    QTest::newRow("level 2") << 2 << 54;
}

void TestControlSheet::hiddenColumnsAreLogged()
{
    QFETCH(int, level);
    QFETCH(int, lines);
    session().debugLevel = quint8(level);
    RecordingBook book;
    const LogCatcher log;
    QVERIFY(writeControlSheet(book, march(), now()));
    const QStringList hidden = log.lines(QtDebugMsg).filter(QStringLiteral("hiding i-th col "));
    QCOMPARE(hidden.size(), lines);
    if (lines > 0) {
        QCOMPARE(hidden.first(), QStringLiteral("hiding i-th col 2"));
        QCOMPARE(hidden.last(), QStringLiteral("hiding i-th col 175"));
    }
}

void TestControlSheet::withoutSlotsOrTypes_data()
{
    QTest::addColumn<int>("segments");
    QTest::addColumn<int>("types");
    QTest::addColumn<QString>("legend");
    QTest::newRow("no slots") << 0 << 3 << "LEGENDA: P-Polievka, Š-Šalát, M-Múčnik";
    QTest::newRow("no types") << 2 << 0 << "LEGENDA: Ob-Obed, Ve-Večera";
    QTest::newRow("neither") << 0 << 0 << "LEGENDA: ";
}

void TestControlSheet::withoutSlotsOrTypes()
{
    QFETCH(int, segments);
    QFETCH(int, types);
    ControlMonth month = march();
    order(month, "17", 2, 3);
    month.segments.resize(segments);
    month.types.resize(types);
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    const RecordedSheet &sheet = book.sheet;
    QTEST(sheet.at(6, 0), "legend");
    QCOMPARE(sheet.rowText(8), QStringLiteral(" | | "));
    QCOMPARE(sheet.rowText(9), QStringLiteral("ID|Zamestnanec|Počet"));
    QCOMPARE(sheet.rowText(10), QString());
    QCOMPARE(sheet.widths, (QMap<int, double>{{0, 10}, {1, 45}, {2, 6}, {3, 18}, {4, 18}, {5, 18}, {6, 18}, {7, 18}}));
    QCOMPARE(sheet.hidden, QVector<int>());
    // The order has no column, so its person has no row.
    for (int segment = 0; segment < segments; ++segment) {
        QVERIFY(sheet.at(12 + 2 * segment, 0).startsWith("    Súčet za deň a segment - "));
        QCOMPARE(sheet.at(12 + 2 * segment, 2), QStringLiteral("0"));
    }
    const int footer = 13 + 2 * segments;
    QCOMPARE(sheet.rowText(footer), QStringLiteral("|NORVIK-IT Workforce Presence System|01.04.2020 07:05:09"));
    QCOMPARE(sheet.mergeAt(footer, 2), QStringLiteral("rows %1-%1, columns 2-4").arg(footer));
}

void TestControlSheet::withoutAMonth()
{
    ControlMonth month = march();
    order(month, "17", 2, 3);
    month.day = QDate();
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    QCOMPARE(book.sheet.at(0, 0), QStringLiteral("Kontrolný export stravy - "));
    QCOMPARE(book.sheet.rowText(9), QStringLiteral("ID|Zamestnanec|Počet"));
    QCOMPARE(book.sheet.rowText(12), QStringLiteral("    Súčet za deň a segment - -Obed :||0"));
}

void TestControlSheet::hostileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("two");
    QTest::addColumn<QString>("one");
    const QString soup = QString::fromUtf8("🍲");
    QTest::newRow("formula") << "=1+1"
                             << "=1"
                             << "=";
    QTest::newRow("emoji") << soup + soup + soup << soup + soup << soup;
    QTest::newRow("placeholder") << "%1 %2"
                                 << "%1"
                                 << "%";
    QTest::newRow("markup") << "<b>x</b>"
                            << "<b"
                            << "<";
    QTest::newRow("number") << "007"
                            << "00"
                            << "0";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("long") << QString(40000, 'x') << "xx"
                          << "x";
}

void TestControlSheet::hostileNames()
{
    QFETCH(QString, name);
    ControlMonth month = march();
    month.branch = month.segments[0].name = month.types[0].name = name;
    month.orders.append({name, name, QDate(2020, 3, 2), 4, 1, 7});
    RecordingBook book;
    QVERIFY(writeControlSheet(book, month, now()));
    const QString written = name.left(32767);
    QCOMPARE(book.sheet.at(3, 1), written);
    QTEST(book.sheet.at(10, 2), "two");
    QTEST(book.sheet.at(11, 2), "one");
    for (const int column : {0, 1}) {
        QCOMPARE(book.sheet.at(12, column), written);
        QVERIFY(!book.sheet.isNumber(12, column));
    }
    QCOMPARE(book.sheet.at(12, 8), QStringLiteral("4"));
    QVERIFY(book.sheet.at(6, 0).size() <= 32767);
}

void TestControlSheet::tooNarrowOrTooShort_data()
{
    QTest::addColumn<int>("maxColumns");
    QTest::addColumn<int>("maxRows");
    QTest::addColumn<bool>("complete");
    QTest::newRow("enough") << 189 << 19 << true;
    QTest::newRow("no last column") << 188 << 19 << false;
    QTest::newRow("no footer") << 189 << 18 << false;
    QTest::newRow("as narrow as XLS") << 100 << 65536 << false;
}

void TestControlSheet::tooNarrowOrTooShort()
{
    QFETCH(int, maxColumns);
    QFETCH(int, maxRows);
    ControlMonth month = march();
    order(month, "17", 2, 3);
    RecordingBook book;
    book.sheet.maxColumns = maxColumns;
    book.sheet.maxRows = maxRows;
    QTEST(writeControlSheet(book, month, now()), "complete");
}

void TestControlSheet::withoutASheet()
{
    RecordingBook book;
    book.takesSheets = false;
    QVERIFY(!writeControlSheet(book, march(), now()));
}

QTEST_APPLESS_MAIN(TestControlSheet)
#include "tst_controlsheet.moc"
