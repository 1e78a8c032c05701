#include "conversion.h"
#include "spreadsheet/writers.h"
#include "xlsxdata.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace Spreadsheet;

/// What other programs find in our files, by way of the CSV file that they make of them.
class TestXlsxPrograms : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void texts_data() { programs(); }
    void texts();
    void numbers_data() { programs(); }
    void numbers();
    void crossTable_data() { programs(); }
    void crossTable();

private:
    static void programs();
    QVector<QStringList> converted(const QString &program) const;

    const QTemporaryDir m_folder;
    const QString m_fileName = m_folder.filePath(QStringLiteral("book.xlsx"));
    QStringList m_texts;
    QVector<QVector<int>> m_quantities;
};

void TestXlsxPrograms::programs()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("LibreOffice") << QStringLiteral("soffice");
    QTest::newRow("Gnumeric") << QStringLiteral("ssconvert");
}

QVector<QStringList> TestXlsxPrograms::converted(const QString &program) const
{
    return convertedToCsv(program, m_fileName, m_folder.filePath(program));
}

/// Texts in column 0, numbers in columns 1 and 2 of the rows below, and to their right a table of quantities of which
/// two in five are there.
void TestXlsxPrograms::initTestCase()
{
    XlsxData book;
    m_texts = QStringList{QStringLiteral("Šťavnatý guláš, \"ľúbezný\""),
                          QStringLiteral("=1+2"),
                          QStringLiteral("+421 2 123"),
                          QStringLiteral("  blanks around  "),
                          QStringLiteral("<b>&amp;</b>"),
                          QStringLiteral("one\ntwo"),
                          QStringLiteral("🍲 👩‍👩‍👧"),
                          QStringLiteral("0123"),
                          QStringLiteral("1.5.2026"),
                          QStringLiteral("TRUE"),
                          QString(32767, QLatin1Char('x'))};

    for (int row = 0; row < m_texts.size(); ++row)
        book.writeText(row, 0, m_texts.at(row));
    book.writeText(m_texts.size(), 0, QStringLiteral("x_x0041_y"));
    book.writeNumber(0, 1, 4.35);
    book.writeNumber(1, 1, -0.125);
    book.writeNumber(2, 1, 123456789);
    book.writeNumber(0, 2, 4.5, book.addNumFormat(QStringLiteral("#0.00 €")));
    book.writeNumber(1, 2, 1234.567, book.addNumFormat(QStringLiteral("#0.00")));
    QRandomGenerator random(20261121);
    for (int row = 0; row < 40; ++row) {
        m_quantities.append(QVector<int>());
        for (int col = 0; col < 465; ++col) {
            m_quantities.last().append(random.bounded(5) < 2 ? random.bounded(1, 10) : 0);
            if (m_quantities.last().last() != 0)
                book.writeNumber(row, 3 + col, m_quantities.last().last());
        }
    }
    book.sheet().merges = {{50, 51, 0, 3}};
    QString error;
    QVERIFY2(writeXlsx(book.data, m_fileName, &error), qPrintable(error));
}

void TestXlsxPrograms::texts()
{
    QFETCH(QString, program);
    const QVector<QStringList> rows = converted(program);
    for (int row = 0; row < m_texts.size(); ++row)
        QCOMPARE(cell(rows, row, 0), m_texts.at(row));
    // The last one is as the file format has it; Gnumeric does not know that.
    QCOMPARE(cell(rows, m_texts.size(), 0),
             program == QLatin1String("soffice") ? QStringLiteral("x_x0041_y") : QStringLiteral("x_x005F_x0041_y"));
}

void TestXlsxPrograms::numbers()
{
    QFETCH(QString, program);
    const QVector<QStringList> rows = converted(program);
    QCOMPARE(cell(rows, 0, 1), QStringLiteral("4.35"));
    QCOMPARE(cell(rows, 1, 1), QStringLiteral("-0.125"));
    QCOMPARE(cell(rows, 2, 1), QStringLiteral("123456789"));
    QCOMPARE(cell(rows, 0, 2), QStringLiteral("4.50 €"));
    QCOMPARE(cell(rows, 1, 2), QStringLiteral("1234.57"));
}

void TestXlsxPrograms::crossTable()
{
    QFETCH(QString, program);
    const QVector<QStringList> rows = converted(program);
    for (int row = 0; row < m_quantities.size(); ++row) {
        for (int col = 0; col < m_quantities.at(row).size(); ++col) {
            const int quantity = m_quantities.at(row).at(col);
            QCOMPARE(cell(rows, row, 3 + col), quantity == 0 ? QString() : QString::number(quantity));
        }
    }
}

QTEST_GUILESS_MAIN(TestXlsxPrograms)
#include "tst_xlsxprograms.moc"
