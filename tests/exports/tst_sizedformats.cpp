#include "exports/sizedformats.h"
#include "recordingbook.h"

#include <QtTest>

#include <limits>

class TestSizedFormats : public QObject {
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void moreDigitsAreNeverLarger_data();
    void moreDigitsAreNeverLarger();
    void formats();
    void characters_data();
    void characters();
};

void TestSizedFormats::sizes_data()
{
    QTest::addColumn<bool>("bold");
    QTest::addColumn<int>("characters");
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("size");
    QTest::newRow("one digit") << false << 1 << 1.5 << 10;
    QTest::newRow("two digits") << false << 2 << 1.5 << 7;
    QTest::newRow("three digits") << false << 3 << 1.5 << 5;
    QTest::newRow("four digits") << false << 4 << 1.5 << 3;
    QTest::newRow("never less") << false << 12 << 1.5 << 3;
    QTest::newRow("just fits") << false << 8 << 8.0 << 10;
    QTest::newRow("hardly does not fit") << false << 8 << 7.9 << 9;
    QTest::newRow("bold, one digit") << true << 1 << 1.5 << 10;
    QTest::newRow("bold, two digits") << true << 2 << 1.5 << 6;
    QTest::newRow("bold, three digits") << true << 3 << 1.5 << 4;
    QTest::newRow("bold, room") << true << 3 << 4.5 << 10;
}

void TestSizedFormats::sizes()
{
    QFETCH(bool, bold);
    QFETCH(int, characters);
    QFETCH(double, width);
    RecordingBook book;
    const SizedFormats formats(book, book.addFormat(nullptr), book.addFont(nullptr), 10, bold);
    QTEST(formats.fittingSize(characters, width), "size");
}

void TestSizedFormats::moreDigitsAreNeverLarger_data()
{
    QTest::addColumn<double>("width");
    for (const double width : {0.0, 1.5, 3.0, 4.5, 10.0, 45.0})
        QTest::addRow("width %.1f", width) << width;
}

void TestSizedFormats::moreDigitsAreNeverLarger()
{
    QFETCH(double, width);
    RecordingBook book;
    const SizedFormats formats(book, book.addFormat(nullptr), book.addFont(nullptr), 11, true);
    int previous = 11;
    for (int characters = 1; characters < 20; ++characters) {
        const int size = formats.fittingSize(characters, width);
        QVERIFY(size <= previous);
        QVERIFY(size >= 3);
        QVERIFY(size <= formats.fittingSize(characters, width + 1));
        // Unless even the smallest letters are too large, they fit.
        QVERIFY(size == 3 || characters * size / 10.0 * 7 / 6 <= width);
        previous = size;
    }
}

void TestSizedFormats::formats()
{
    RecordingBook book;
    auto *font = static_cast<RecordedFont *>(book.addFont(nullptr));
    font->setName(QStringLiteral("Roboto"));
    font->setBold(true);
    auto *format = static_cast<RecordedFormat *>(book.addFormat(nullptr));
    format->setAlignH(Spreadsheet::AlignH::Right);
    const SizedFormats formats(book, format, font, 11, true);
    for (int characters = 1; characters < 9; ++characters) {
        const auto *fitting = static_cast<const RecordedFormat *>(formats.fitting(characters, 3));
        QCOMPARE(fitting->text(),
                 QStringLiteral("Roboto %1 bold auto; right bottom").arg(formats.fittingSize(characters, 3)));
    }
    QCOMPARE(font->size, 1);
}

void TestSizedFormats::characters_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("characters");
    for (const qint64 value :
         {qint64(0), qint64(9), qint64(10), qint64(99), qint64(100), qint64(-1), qint64(-10), qint64(123456789),
          std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()})
        QTest::addRow("%lld", value) << value << QString::number(value).size();
}

void TestSizedFormats::characters()
{
    QFETCH(qint64, value);
    QTEST(characterCount(value), "characters");
}

QTEST_APPLESS_MAIN(TestSizedFormats)
#include "tst_sizedformats.moc"
