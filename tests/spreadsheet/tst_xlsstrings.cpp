#include "spreadsheet/book.h"
#include "xlsreader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Spreadsheet;

/// Shared strings over the borders of records, read back by an independent reader. A record holds 8,224 bytes; the
/// first one begins with 8 bytes of counts, and each string with 3 bytes.
class TestXlsStrings : public QObject {
    Q_OBJECT

private slots:
    void borders_data();
    void borders();
    void longest_data();
    void longest();
    void emptyAtBorder();
    void many_data();
    void many();
    void repeated();
    void scripts();

private:
    void check(const QStringList &texts);

    QTemporaryDir m_folder;
};

/// Writes the texts below each other and reads them back.
void TestXlsStrings::check(const QStringList &texts)
{
    const QString name = m_folder.filePath("book.xls");
    const BookPointer book = xlCreateBookA();
    Sheet *sheet = book->addSheet("s");
    for (int row = 0; row < texts.size(); ++row)
        QVERIFY(sheet->writeStr(row, 0, texts.at(row)));
    QVERIFY2(book->save(name), qPrintable(book->errorMessage()));
    const XlsFile file(name);
    QCOMPARE(file.cellCount(), texts.size());
    for (int row = 0; row < texts.size(); ++row)
        QVERIFY2(file.text(row, 0) == texts.at(row), qPrintable(QString("row %1 of %2").arg(row).arg(texts.size())));
}

void TestXlsStrings::borders_data()
{
    QTest::addColumn<QChar>("letter");
    QTest::newRow("8 bits") << QChar('a');
    QTest::newRow("16 bits") << QChar(0x10d);
}

/// Two strings of which the first leaves 0 to 40 bytes of the record, then a record full again and the same there.
/// Several books in one file, as sheets would share their strings: each step is a book of its own, read in one go.
void TestXlsStrings::borders()
{
    QFETCH(QChar, letter);
    for (int left = 0; left <= 12; ++left) {
        for (const QChar filler : {QChar('x'), QChar(0x11b)}) {
            const int bytes = 8224 - 8 - 3 - left;
            const QString first(filler.unicode() > 0xff ? bytes / 2 : bytes, filler);
            const QString second = QString(7, letter) + QString::number(left);
            const QString third(8190 + left, 'y');
            check({first, second, third, second + "2", third + "z", QString(4100, letter), "end"});
        }
    }
}

void TestXlsStrings::longest_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("8 bits") << QString(32767, 'x');
    QTest::newRow("16 bits") << QString(32767, QChar(0x159));
    QString emoji;
    while (emoji.size() + 2 <= 32767)
        emoji += "\U0001F35C";
    QTest::newRow("emoji") << emoji + "x";
    QString mixed(32767, 'x');
    mixed[32766] = QChar(0x20ac);
    QTest::newRow("wide at the end") << mixed;
}

void TestXlsStrings::longest()
{
    QFETCH(QString, text);
    check({text, "a", text.mid(2), "č", text.mid(4), ""});
}

void TestXlsStrings::emptyAtBorder()
{
    check({""});
    for (int left = 0; left <= 8; ++left)
        check({QString(8224 - 8 - 3 - left, 'x'), "", "č", "a"});
}

void TestXlsStrings::many_data()
{
    QTest::addColumn<int>("count");
    // EXTSST names groups of 8, and of more from 8,192 texts on.
    for (const int count : {1, 7, 8, 9, 8191, 8192, 8193, 20000})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void TestXlsStrings::many()
{
    QFETCH(int, count);
    QStringList texts;
    for (int number = 0; number < count; ++number)
        texts.append(QString("Zamestnanec %1 ").arg(number * 7919)
                     + QString(number % 23, QChar(number % 3 ? 0x17e : 0x7a)));
    check(texts);
}

void TestXlsStrings::repeated()
{
    QStringList texts;
    for (int number = 0; number < 5000; ++number)
        texts.append(number % 2 ? "áno" : "nie");
    check(texts);
}

void TestXlsStrings::scripts()
{
    QStringList texts;
    for (ushort code = 1; code < 0x3000; code = ushort(code + 1))
        texts.append(QString(1 + code % 3, QChar(code)));
    check(texts);
}

QTEST_MAIN(TestXlsStrings)
#include "tst_xlsstrings.moc"
