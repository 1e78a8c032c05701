#include "conversion.h"
#include "spreadsheet/book.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace Spreadsheet;

/// What other programs find in XLS files, by way of the CSV file that they make of them.
class TestXlsPrograms : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void texts_data() { programs(); }
    void texts();
    void numbers_data() { programs(); }
    void numbers();
    void table_data() { programs(); }
    void table();

private:
    static void programs();
    QVector<QStringList> converted(const QString &program) const;

    static constexpr int tableRows = 1500;
    static constexpr int tableColumns = 250;

    const QTemporaryDir m_folder;
    const QString m_fileName = m_folder.filePath("book.xls");
    QStringList m_texts;
    QVector<QStringList> m_table; ///< as programs show it
};

void TestXlsPrograms::programs()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("LibreOffice") << "soffice";
    QTest::newRow("Gnumeric") << "ssconvert";
}

QVector<QStringList> TestXlsPrograms::converted(const QString &program) const
{
    return convertedToCsv(program, m_fileName, m_folder.filePath(program));
}

/// Texts in column 0, numbers in columns 1 and 2, and to their right a table of texts and numbers, two in five cells of
/// which are there. The texts are some thousands, so that they take many records.
void TestXlsPrograms::initTestCase()
{
    const BookPointer book = xlCreateBookA();
    Sheet *sheet = book->addSheet("Mesačný výpis");
    QVERIFY(sheet->setCol(2, 2, 15)); // Gnumeric shortens what does not fit
    m_texts = QStringList{"Šťavnatý guláš, \"ľúbezný\"",
                          "=1+2",
                          "+421 2 123",
                          "  blanks around  ",
                          "<b>&amp;</b>",
                          "one\ntwo",
                          "\U0001F372 \U0001F468\u200D\U0001F373",
                          "0123",
                          "1.5.2026",
                          "TRUE",
                          QString(32767, 'x'),
                          QString(32767, QChar(0x10d))};
    for (int row = 0; row < m_texts.size(); ++row)
        QVERIFY(sheet->writeStr(row, 0, m_texts.at(row)));
    const QVector<QPair<double, QString>> numbers = {
        {4.35, "#0.00 €"}, {4.5, "#.00"}, {1234.567, "#0.00"}, {0, "#0.00 €"}};
    for (int row = 0; row < numbers.size(); ++row) {
        Format *format = book->addFormat();
        format->setNumFormat(book->addCustomNumFormat(numbers.at(row).second));
        QVERIFY(sheet->writeNum(row, 1, numbers.at(row).first, format));
    }
    int row = 0;
    for (const double value : {4.35, -0.125, 123456789.0, 536870912.0, 0.1, -7.0})
        QVERIFY(sheet->writeNum(row++, 2, value));
    QRandomGenerator random(20261121);
    for (row = 0; row < tableRows; ++row) {
        m_table.append(QStringList());
        for (int col = 0; col < tableColumns; ++col) {
            QString shown;
            const int kind = random.bounded(5);
            const int value = random.bounded(1, 5000);
            if (kind == 0 && sheet->writeNum(row, 3 + col, value))
                shown = QString::number(value);
            else if (kind == 1 && sheet->writeStr(row, 3 + col, QString("Jedlo č. %1").arg(value)))
                shown = QString("Jedlo č. %1").arg(value);
            m_table.last().append(shown);
        }
    }
    QVERIFY(sheet->setMerge(2000, 2001, 0, 3));
    QVERIFY2(book->save(m_fileName), qPrintable(book->errorMessage()));
}

void TestXlsPrograms::texts()
{
    QFETCH(QString, program);
    const QVector<QStringList> rows = converted(program);
    for (int row = 0; row < m_texts.size(); ++row)
        QCOMPARE(cell(rows, row, 0), m_texts.at(row));
}

void TestXlsPrograms::numbers()
{
    QFETCH(QString, program);
    const QVector<QStringList> rows = converted(program);
    const QStringList formatted = {"4.35 €", "4.50", "1234.57", "0.00 €"};
    for (int row = 0; row < formatted.size(); ++row)
        QCOMPARE(cell(rows, row, 1), formatted.at(row));
    const QStringList plain = {"4.35", "-0.125", "123456789", "536870912", "0.1", "-7"};
    for (int row = 0; row < plain.size(); ++row)
        QCOMPARE(cell(rows, row, 2), plain.at(row));
}

void TestXlsPrograms::table()
{
    QFETCH(QString, program);
    const QVector<QStringList> rows = converted(program);
    for (int row = 0; row < tableRows; ++row) {
        for (int col = 0; col < tableColumns; ++col)
            QCOMPARE(cell(rows, row, 3 + col), m_table.at(row).at(col));
    }
}

QTEST_GUILESS_MAIN(TestXlsPrograms)
#include "tst_xlsprograms.moc"
