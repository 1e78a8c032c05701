#include "exports/reportcell.h"

#include <QStandardItemModel>
#include <QtTest>

class TestReportCell : public QObject {
    Q_OBJECT

private slots:
    void named_data();
    void named();
};

void TestReportCell::named_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("column"); // -1 for no cell
    QTest::newRow("first column") << 1 << "0" << 3 << 0;
    QTest::newRow("last column") << 1 << "2" << 3 << 2;
    QTest::newRow("tenth column") << 0 << "9" << 10 << 9;
    QTest::newRow("column beyond those asked for") << 1 << "3" << 3 << -1;
    QTest::newRow("first row") << 0 << "1" << 3 << 1;
    QTest::newRow("row before the first") << -1 << "1" << 3 << -1;
    QTest::newRow("row beyond the last") << 2 << "1" << 3 << -1;
    QTest::newRow("no name") << 1 << "" << 3 << -1;
    QTest::newRow("word") << 1 << "header" << 3 << -1;
    QTest::newRow("letter") << 1 << "a" << 10 << -1;
    QTest::newRow("before the digits") << 1 << "/" << 10 << -1;
    QTest::newRow("after the digits") << 1 << ":" << 10 << -1;
    QTest::newRow("two digits") << 1 << "01" << 10 << -1;
    QTest::newRow("negative") << 1 << "-1" << 10 << -1;
    QTest::newRow("blank") << 1 << " 1" << 10 << -1;
    QTest::newRow("digit of another script") << 1 << QString(QChar(0x0661)) << 10 << -1;
}

void TestReportCell::named()
{
    QFETCH(int, row);
    QFETCH(QString, name);
    QFETCH(int, columns);
    QFETCH(int, column);
    const QStandardItemModel rows(2, 10);
    const QModelIndex cell = reportCell(rows, row, name, columns);
    QCOMPARE(cell, column < 0 ? QModelIndex() : rows.index(row, column));
    QCOMPARE(cell.isValid(), column >= 0);
    const QStandardItemModel narrow(2, 1);
    QCOMPARE(reportCell(narrow, row, name, columns).isValid(), column == 0);
}

QTEST_APPLESS_MAIN(TestReportCell)
#include "tst_reportcell.moc"
