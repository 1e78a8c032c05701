#include "exports/rowheight.h"

#include <QtTest>

class TestRowHeight : public QObject {
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void heights_data();
    void heights();
};

void TestRowHeight::lines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("lines");
    QTest::newRow("empty") << "" << 10.0 << 1;
    QTest::newRow("short") << "Obed" << 10.0 << 1;
    QTest::newRow("just fits") << "0123456789" << 10.0 << 1;
    QTest::newRow("one letter too many") << "01234567890" << 10.0 << 2;
    QTest::newRow("narrow letters") << "05. 03. 2020" << 10.0 << 1;
    QTest::newRow("wide letters") << "mmmmmmm" << 10.0 << 2;
    QTest::newRow("breaks between words") << "01234 56789" << 8.0 << 2;
    QTest::newRow("word moves to the next line") << "012 34567 01234" << 8.0 << 3;
    QTest::newRow("blanks hang over") << "01234567       " << 8.0 << 1;
    QTest::newRow("blanks between") << "01234567     0" << 8.0 << 2;
    QTest::newRow("long word") << "0123456701234567012" << 8.0 << 3;
    QTest::newRow("long word after a short one") << "0 012345678" << 8.0 << 3;
    QTest::newRow("line breaks") << "a\nb\n\nc" << 8.0 << 4;
    QTest::newRow("only line breaks") << "\n\n" << 8.0 << 3;
    QTest::newRow("wide letter in no room") << "mmm" << 1.0 << 3;
    QTest::newRow("no room") << "abc" << 0.0 << 3;
    QTest::newRow("emoji are one letter") << QString::fromUtf8("🍲🍲🍲🍲") << 4.0 << 1;
    QTest::newRow("slot") << "Večera - druhá zmena" << 12.0 << 2;
    QTest::newRow("dish") << "Vyprážaný bravčový rezeň so zemiakovým šalátom a citrónom" << 45.0 << 2;
}

void TestRowHeight::lines()
{
    QFETCH(QString, text);
    QFETCH(double, width);
    QTEST(lineCount(text, width), "lines");
}

void TestRowHeight::heights_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<double>("height");
    QTest::newRow("one line") << 1 << 13.0;
    QTest::newRow("two lines") << 2 << 26.0;
    QTest::newRow("31 lines") << 31 << 403.0;
    QTest::newRow("too many lines") << 32 << 409.0;
    QTest::newRow("by far too many") << 100000 << 409.0;
}

void TestRowHeight::heights()
{
    QFETCH(int, lines);
    QTEST(rowHeight(lines), "height");
}

QTEST_APPLESS_MAIN(TestRowHeight)
#include "tst_rowheight.moc"
