#include "exports/boardreport.h"

#include <QLocale>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

class TestBoardReport : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void money_data();
    void money();
    void total_data();
    void total();
    void values_data();
    void values();
    void valuesStayAsTheyStand();
    void valuesOfOtherRows();
    void valuesWithoutRows_data();
    void valuesWithoutRows();
    void valuesOfANarrowGrid();
    void personHeader_data();
    void personHeader();
    void branchHeader_data();
    void branchHeader();

private:
    QVariant value(int row, const QString &name) const;
};

namespace {

/// A month of two rows and eight columns: "cell 0.0" and so on, numbers in the columns 3 and 5.
std::unique_ptr<QStandardItemModel> month()
{
    auto rows = std::make_unique<QStandardItemModel>(2, 8);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 8; ++column)
            rows->setData(rows->index(row, column), QStringLiteral("cell %1.%2").arg(row).arg(column));
        rows->setData(rows->index(row, 3), 4.5 + row);
        rows->setData(rows->index(row, 5), 13.567 + row);
    }
    return rows;
}

QVariant untouched()
{
    return QStringLiteral("as it came");
}

} // namespace

void TestBoardReport::init()
{
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
}

QVariant TestBoardReport::value(int row, const QString &name) const
{
    QVariant value = untouched();
    BoardReport::setValue(month().get(), 1234.5, row, name, value);
    return value;
}

void TestBoardReport::money_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("text");
    const QString euro = QLocale(QStringLiteral("sk_SK")).currencySymbol(QLocale::CurrencySymbol);
    QVERIFY(!euro.isEmpty());
    QTest::newRow("Slovak, with a point") << "sk_SK" << 4.5 << "4.50 " + euro;
    QTest::newRow("American") << "en_US" << 4.5 << "4.50 $";
    QTest::newRow("C") << "C" << 4.5 << "4.50 " + QLocale::c().currencySymbol(QLocale::CurrencySymbol);
    QTest::newRow("nothing") << "en_US" << 0.0 << "0.00 $";
    QTest::newRow("rounded up") << "en_US" << 0.996 << "1.00 $";
    QTest::newRow("rounded down") << "en_US" << 0.994 << "0.99 $";
    QTest::newRow("without groups") << "en_US" << 1234567.0 << "1234567.00 $";
    QTest::newRow("negative") << "en_US" << -3.25 << "-3.25 $";
}

void TestBoardReport::money()
{
    QFETCH(QString, locale);
    QFETCH(double, amount);
    QLocale::setDefault(QLocale(locale));
    QTEST(BoardReport::moneyText(amount), "text");
}

void TestBoardReport::total_data()
{
    QTest::addColumn<QVariantList>("sums");
    QTest::addColumn<double>("total");
    QTest::newRow("no row") << QVariantList() << 0.0;
    QTest::newRow("one row") << QVariantList{2.5} << 2.5;
    QTest::newRow("numbers") << QVariantList{2.5, 3, -1.25} << 4.25;
    QTest::newRow("texts") << QVariantList{"2.50", "3.25"} << 5.75;
    QTest::newRow("no numbers") << QVariantList{"2.50", "", QVariant(), "x", "1,5"} << 2.5;
}

void TestBoardReport::total()
{
    QFETCH(QVariantList, sums);
    QStandardItemModel rows(0, 8);
    for (const QVariant &sum : qAsConst(sums)) {
        const int row = rows.rowCount();
        rows.insertRow(row);
        for (int column = 0; column < 8; ++column)
            rows.setData(rows.index(row, column), column == 5 ? sum : QVariant(1000));
    }
    QTEST(BoardReport::monthlyTotal(rows), "total");
    QCOMPARE(BoardReport::monthlyTotal(QStandardItemModel(3, 5)), 0.0);
}

void TestBoardReport::values_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    for (const int column : {0, 1, 2, 4, 6, 7}) {
        QTest::addRow("column %d", column)
            << QString::number(column) << QVariant(QStringLiteral("cell 1.%1").arg(column));
    }
    QTest::newRow("price") << "3" << QVariant("5.50 $");
    QTest::newRow("sum") << "5" << QVariant("14.57 $");
    QTest::newRow("total") << "8" << QVariant("1234.50 $");
    for (const char *name : {"", "9", "10", "08", "-1", " 0", "header", "Header", "grouping", "total", "[0]"})
        QTest::newRow(qPrintable(QStringLiteral("\"%1\"").arg(name))) << name << untouched();
}

void TestBoardReport::values()
{
    QFETCH(QString, name);
    QTEST(value(1, name), "value");
}

void TestBoardReport::valuesStayAsTheyStand()
{
    QStandardItemModel rows(1, 8);
    rows.setData(rows.index(0, 4), 3);
    rows.setData(rows.index(0, 3), QStringLiteral("2.5"));
    rows.setData(rows.index(0, 5), QStringLiteral("no number"));
    QVariant value = untouched();
    BoardReport::setValue(&rows, 0, 0, QStringLiteral("4"), value);
    QCOMPARE(value, QVariant(3));
    BoardReport::setValue(&rows, 0, 0, QStringLiteral("3"), value);
    QCOMPARE(value, QVariant("2.50 $"));
    BoardReport::setValue(&rows, 0, 0, QStringLiteral("5"), value);
    QCOMPARE(value, QVariant("0.00 $"));
    // An empty cell is a cell.
    BoardReport::setValue(&rows, 0, 0, QStringLiteral("6"), value);
    QVERIFY(!value.isValid());
}

void TestBoardReport::valuesOfOtherRows()
{
    QCOMPARE(value(0, QStringLiteral("0")), QVariant("cell 0.0"));
    QCOMPARE(value(0, QStringLiteral("5")), QVariant("13.57 $"));
    for (const int row : {-1, 2, 1000}) {
        for (const char *name : {"0", "3", "5", "7"})
            QCOMPARE(value(row, QLatin1String(name)), untouched());
        QCOMPARE(value(row, QStringLiteral("8")), QVariant("1234.50 $"));
    }
}

void TestBoardReport::valuesWithoutRows_data()
{
    QTest::addColumn<bool>("hasModel");
    QTest::newRow("empty month") << true;
    QTest::newRow("no model") << false;
}

void TestBoardReport::valuesWithoutRows()
{
    QFETCH(bool, hasModel);
    const QStandardItemModel empty(0, 8);
    for (const char *name : {"0", "1", "2", "3", "4", "5", "6", "7", "header"}) {
        QVariant value = untouched();
        BoardReport::setValue(hasModel ? &empty : nullptr, 0, 0, QLatin1String(name), value);
        QCOMPARE(value, untouched());
    }
    QVariant value = untouched();
    BoardReport::setValue(hasModel ? &empty : nullptr, 0, 0, QStringLiteral("8"), value);
    QCOMPARE(value, QVariant("0.00 $"));
}

/// The week's grid has five columns.
void TestBoardReport::valuesOfANarrowGrid()
{
    QStandardItemModel rows(1, 5);
    rows.setData(rows.index(0, 4), QStringLiteral("4.50 $"));
    QVariant value = untouched();
    for (const char *name : {"5", "6", "7"})
        BoardReport::setValue(&rows, 0, 0, QLatin1String(name), value);
    QCOMPARE(value, untouched());
    BoardReport::setValue(&rows, 0, 0, QStringLiteral("4"), value);
    QCOMPARE(value, QVariant("4.50 $"));
}

void TestBoardReport::personHeader_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("person");
    QTest::addColumn<QString>("header");
    QTest::newRow("Slovak") << "sk_SK"
                            << "[17] Adamec Ján"
                            << "marca 2020, ID: [17] Adamec Ján";
    QTest::newRow("American") << "en_US"
                              << "[17] Adamec Ján"
                              << "March 2020, ID: [17] Adamec Ján";
    QTest::newRow("C") << "C"
                       << "[17] Adamec Ján"
                       << "March 2020, ID: [17] Adamec Ján";
    QTest::newRow("nobody") << "en_US"
                            << ""
                            << "March 2020, ID: ";
    QTest::newRow("hostile name") << "en_US"
                                  << "%1 <b>[0]</b> %2"
                                  << "March 2020, ID: %1 <b>[0]</b> %2";
}

void TestBoardReport::personHeader()
{
    QFETCH(QString, locale);
    QFETCH(QString, person);
    QLocale::setDefault(QLocale(locale));
    QTEST(BoardReport::personHeader(QDate(2020, 3, 19), person), "header");
}

void TestBoardReport::branchHeader_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("branch");
    QTest::addColumn<QString>("header");
    QTest::newRow("no branch") << "sk_SK" << 0 << "- bez strediska -"
                               << "marca 2020";
    QTest::newRow("branch") << "sk_SK" << 1 << "Výroba"
                            << "marca 2020, Výroba";
    QTest::newRow("American") << "en_US" << 2 << "Výroba"
                              << "March 2020, Výroba";
    QTest::newRow("C") << "C" << 0 << "x"
                       << "March 2020";
    QTest::newRow("empty selector") << "en_US" << -1 << ""
                                    << "March 2020, ";
    QTest::newRow("hostile name") << "en_US" << 1 << "%1 & %2"
                                  << "March 2020, %1 & %2";
}

void TestBoardReport::branchHeader()
{
    QFETCH(QString, locale);
    QFETCH(int, row);
    QFETCH(QString, branch);
    QLocale::setDefault(QLocale(locale));
    QTEST(BoardReport::branchHeader(QDate(2020, 3, 19), row, branch), "header");
}

QTEST_APPLESS_MAIN(TestBoardReport)
#include "tst_boardreport.moc"
