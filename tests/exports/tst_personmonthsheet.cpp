#include "exports/personmonthsheet.h"
#include "monthlook.h"
#include "recordingbook.h"

#include <QLocale>
#include <QStandardItemModel>
#include <QtTest>

class TestPersonMonthSheet : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QStringLiteral("sk_SK"))); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void sheet();
    void cells_data();
    void cells();
    void sizesAndMerges_data();
    void sizesAndMerges();
    void titles_data();
    void titles();
    void longTexts();
    void tooManyRows_data();
    void tooManyRows();
    void withoutASheet();
    void rowsOfAModel();
    void rowsOfNoModel();
};

namespace {

QDateTime now()
{
    return {QDate(2020, 12, 31), QTime(23, 59, 1)};
}

PersonMonth march(int orders)
{
    PersonMonth month{QDate(2020, 3, 19), QStringLiteral("ID: [17] Adamec Ján"), {}};
    for (int order = 0; order < orders; ++order)
        month.orders.append({"05. 03. 2020", "Obed", "=Guláš", 4.5, QString::number(order + 1), 4.5 * (order + 1),
                             "ZEP-adminID: 3", "05.03.2020 11:30:00"});
    return month;
}

} // namespace

void TestPersonMonthSheet::sheet()
{
    QCOMPARE(personMonthTitle(), QStringLiteral("ZEP - Mesačný výpis objednanej stravy"));
    RecordingBook book;
    QVERIFY(writePersonMonth(book, march(2), now()));
    QCOMPARE(book.sheetCount, 1);
    QCOMPARE(book.sheet.name, QStringLiteral("ZEP - Mesačný výpis objednanej "));
    QCOMPARE(book.numFormats, (QStringList{"#0.00", "#0.00 €"}));
    QCOMPARE(book.sheet.page,
             (QStringList{"display gridlines 0", "print gridlines 0", "left 0.1968", "right 0.1968", "top 0.1968",
                          "bottom 0.1968", "fit 1 0", "landscape 1", "paper 9"}));
    QCOMPARE(book.sheet.widths,
             (QMap<int, double>{{0, 10}, {1, 12}, {2, 45}, {3, 12}, {4, 12}, {5, 12}, {6, 40}, {7, 40}}));
}

void TestPersonMonthSheet::cells_data()
{
    QTest::addColumn<int>("orders");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("looks");
    using namespace MonthLook;
    const QStringList spacers{spacer, spacer, spacer, spacer, spacer, spacer, spacer, spacer};
    for (const int orders : {0, 1, 4}) {
        const auto add = [orders](const char *name, int row, const QString &text, const QStringList &looks) {
            QTest::addRow("%s, %d orders", name, orders) << orders << row << text << looks;
        };
        add("title", 0, " Mesačný výpis objednanej stravy - marca 2020, ID: [17] Adamec Ján", {title});
        add("under the title", 1, {}, {});
        add("low row", 2, {}, {});
        add("headings", 3, "Dátum|Typ výdaja|Jedlo|Cena|Počet|C. celkom|Objednané|Vydané",
            {header, header, header, headerRight, header, headerRight, header, header});
        const QStringList row{cell, cell, cellLeft, money, cell, money, cell, cell};
        if (orders > 0)
            add("first order", 4, "05. 03. 2020|Obed|=Guláš|4.5|1|4.5|ZEP-adminID: 3|05.03.2020 11:30:00", row);
        if (orders > 3)
            add("last order", 7, "05. 03. 2020|Obed|=Guláš|4.5|4|18|ZEP-adminID: 3|05.03.2020 11:30:00", row);
        const int last = 3 + orders;
        add("low row after the orders", last + 1, {}, {});
        add("spacer", last + 2, " | | | | | | | ", spacers);
        const QString sum(orders == 0 ? "0" : orders == 1 ? "4.5" : "45");
        add("total", last + 3, "Cena celkom:|||||" + sum,
            {totalLeft, "none", "none", "none", "none", moneyTotal, "none", "none"});
        for (const int air : {4, 5, 6, 7})
            add(qPrintable(QStringLiteral("%1 after the last order").arg(air)), last + air, {}, {});
        add("second spacer", last + 8, " | | | | | | | ", spacers);
        add("footer", last + 9, "|NORVIK-IT Workforce Presence System||31.12.2020 23:59:01",
            {"none", footer, "none", timeOfDay});
    }
}

void TestPersonMonthSheet::cells()
{
    QFETCH(int, orders);
    QFETCH(int, row);
    QFETCH(QStringList, looks);
    RecordingBook book;
    QVERIFY(writePersonMonth(book, march(orders), now()));
    QTEST(book.sheet.rowText(row), "text");
    for (int column = 0; column < looks.size(); ++column)
        QCOMPARE(book.sheet.look(row, column), looks.at(column));
    QCOMPARE(book.sheet.lastRow(), 12 + orders);
    const bool isOrder = row >= 4 && row < 4 + orders;
    const bool isTotal = row == 6 + orders;
    for (int column = 0; column < 8; ++column)
        QCOMPARE(book.sheet.isNumber(row, column), (isOrder && column == 3) || ((isOrder || isTotal) && column == 5));
}

void TestPersonMonthSheet::sizesAndMerges_data()
{
    QTest::addColumn<int>("orders");
    QTest::newRow("empty month") << 0;
    QTest::newRow("one order") << 1;
    QTest::newRow("ninety orders") << 90;
}

void TestPersonMonthSheet::sizesAndMerges()
{
    QFETCH(int, orders);
    RecordingBook book;
    QVERIFY(writePersonMonth(book, march(orders), now()));
    const int last = 3 + orders;
    QCOMPARE(book.sheet.heights,
             (QMap<int, double>{{2, 3}, {3, 25}, {last + 1, 6}, {last + 2, 5}, {last + 7, 6}, {last + 8, 5}}));
    QCOMPARE(book.sheet.mergeCount(), 3);
    QCOMPARE(book.sheet.mergeAt(0, 0), QStringLiteral("rows 0-1, columns 0-7"));
    QCOMPARE(book.sheet.mergeAt(last + 3, 0), QStringLiteral("rows %1-%1, columns 0-1").arg(last + 3));
    QCOMPARE(book.sheet.mergeAt(last + 9, 3), QStringLiteral("rows %1-%1, columns 3-4").arg(last + 9));
}

void TestPersonMonthSheet::titles_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("person");
    QTest::addColumn<QString>("title");
    QTest::newRow("January") << QDate(2021, 1, 7) << "ID: [1] Z"
                             << " Mesačný výpis objednanej stravy - januára 2021, ID: [1] Z";
    QTest::newRow("nobody") << QDate(2021, 1, 7) << "ID: "
                            << " Mesačný výpis objednanej stravy - januára 2021, ID: ";
    QTest::newRow("hostile name") << QDate(2021, 1, 7) << "%1 %2 <b>"
                                  << " Mesačný výpis objednanej stravy - januára 2021, %1 %2 <b>";
    QTest::newRow("no day") << QDate() << "x"
                            << " Mesačný výpis objednanej stravy - , x";
}

void TestPersonMonthSheet::titles()
{
    QFETCH(QDate, day);
    QFETCH(QString, person);
    RecordingBook book;
    QVERIFY(writePersonMonth(book, {day, person, {}}, now()));
    QTEST(book.sheet.at(0, 0), "title");
}

void TestPersonMonthSheet::longTexts()
{
    PersonMonth month = march(1);
    const QString text(40000, 'x');
    month.person = text;
    PersonMonth::Order &order = month.orders[0];
    order.date = order.segment = order.food = order.quantity = order.ordered = order.delivered = text;
    RecordingBook book;
    QVERIFY(writePersonMonth(book, month, now()));
    QCOMPARE(book.sheet.at(0, 0).size(), 32767);
    for (const int column : {0, 1, 2, 4, 6, 7})
        QCOMPARE(book.sheet.at(4, column), text.left(32767));
}

void TestPersonMonthSheet::tooManyRows_data()
{
    QTest::addColumn<int>("maxRows");
    QTest::addColumn<bool>("complete");
    QTest::newRow("enough") << 23 << true;
    QTest::newRow("no footer") << 22 << false;
    QTest::newRow("few") << 10 << false;
}

void TestPersonMonthSheet::tooManyRows()
{
    QFETCH(int, maxRows);
    RecordingBook book;
    book.sheet.maxRows = maxRows;
    QTEST(writePersonMonth(book, march(10), now()), "complete");
}

void TestPersonMonthSheet::withoutASheet()
{
    RecordingBook book;
    book.takesSheets = false;
    QVERIFY(!writePersonMonth(book, march(1), now()));
}

void TestPersonMonthSheet::rowsOfAModel()
{
    QStandardItemModel rows(1, 8);
    const QVariantList values{"05. 03. 2020", "Obed", "Guláš", 4.5, "3", 13.5, "ZEP", "05.03.2020 11:30:00"};
    for (int column = 0; column < 8; ++column)
        rows.setData(rows.index(0, column), values.at(column));
    const QVector<PersonMonth::Order> orders = personMonthOrders(&rows);
    QCOMPARE(orders.size(), 1);
    const PersonMonth::Order &order = orders.at(0);
    QCOMPARE(order.date, QStringLiteral("05. 03. 2020"));
    QCOMPARE(order.segment, QStringLiteral("Obed"));
    QCOMPARE(order.food, QStringLiteral("Guláš"));
    QCOMPARE(order.price, 4.5);
    QCOMPARE(order.quantity, QStringLiteral("3"));
    QCOMPARE(order.sum, 13.5);
    QCOMPARE(order.ordered, QStringLiteral("ZEP"));
    QCOMPARE(order.delivered, QStringLiteral("05.03.2020 11:30:00"));
}

void TestPersonMonthSheet::rowsOfNoModel()
{
    QCOMPARE(personMonthOrders(nullptr).size(), 0);
    const QStandardItemModel empty(0, 8);
    QCOMPARE(personMonthOrders(&empty).size(), 0);
    const QStandardItemModel narrow(1, 2);
    QCOMPARE(personMonthOrders(&narrow).at(0).sum, 0.0);
}

QTEST_APPLESS_MAIN(TestPersonMonthSheet)
#include "tst_personmonthsheet.moc"
