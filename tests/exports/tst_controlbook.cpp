#include "exports/controlbook.h"
#include "recordingbook.h"

#include <QtTest>

class TestControlBook : public QObject {
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void digitsFit_data();
    void digitsFit();
    void looks();
};

void TestControlBook::sizes_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("size");
    QTest::newRow("nothing") << qint64(0) << 1 << 10;
    QTest::newRow("one digit") << qint64(9) << 1 << 10;
    QTest::newRow("two digits") << qint64(10) << 1 << 6;
    QTest::newRow("three digits") << qint64(100) << 1 << 4;
    QTest::newRow("four digits") << qint64(2000) << 1 << 3;
    QTest::newRow("never less") << qint64(8000000000) << 1 << 3;
    QTest::newRow("minus") << qint64(-1) << 1 << 6;
    QTest::newRow("two columns") << qint64(100) << 2 << 10;
    QTest::newRow("two columns, four digits") << qint64(2000) << 2 << 7;
    QTest::newRow("five columns") << qint64(2000) << 5 << 10;
}

void TestControlBook::sizes()
{
    QFETCH(qint64, value);
    QFETCH(int, columns);
    QTEST(int(ControlBook::fittingSize(value, columns)), "size");
}

void TestControlBook::digitsFit_data()
{
    QTest::addColumn<int>("columns");
    for (const int columns : {1, 2, 3, 8})
        QTest::addRow("%d columns", columns) << columns;
}

/// More digits are never larger, and more columns never make them smaller.
void TestControlBook::digitsFit()
{
    QFETCH(int, columns);
    std::size_t previous = 10;
    for (qint64 value = 1; value < 1000000000000; value *= 10) {
        const std::size_t size = ControlBook::fittingSize(value, columns);
        QVERIFY(size <= previous);
        QVERIFY(size <= ControlBook::fittingSize(value, columns + 1));
        QCOMPARE(ControlBook::fittingSize(value * 10 - 1, columns), size);
        previous = size;
    }
}

void TestControlBook::looks()
{
    RecordingBook book;
    book.setDefaultFont(QStringLiteral("MS Shell Dlg 2"), 10);
    const ControlBook formats(book);
    QCOMPARE(book.numFormats, QStringList{"#.00"});
    const auto look = [](const Spreadsheet::Format *format) {
        return static_cast<const RecordedFormat *>(format)->text();
    };
    QCOMPARE(look(formats.number(1, 1)), QStringLiteral("MS Shell Dlg 2 10 auto; centre middle; 1 #c0c0c0"));
    QCOMPARE(look(formats.number(10, 1)), QStringLiteral("MS Shell Dlg 2 6 auto; centre middle; 1 #c0c0c0"));
    QCOMPARE(look(formats.sum(1, 1)),
             QStringLiteral("MS Shell Dlg 2 10 bold auto; centre middle; fill #fafafa; 1 #c0c0c0"));
    QCOMPARE(look(formats.sum(100, 1)),
             QStringLiteral("MS Shell Dlg 2 4 bold auto; centre middle; fill #fafafa; 1 #c0c0c0"));
}

QTEST_APPLESS_MAIN(TestControlBook)
#include "tst_controlbook.moc"
