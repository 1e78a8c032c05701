#include "numbersbelow.h"
#include "report/numberstowords.h"
#include "report/numberwords/languages.h"

#include <QtTest>

class TestNumbersToWordsSpanish : public QObject {
    Q_OBJECT

private slots:
    void smallWords();
    void spells_data();
    void spells();
    void spellsCents_data();
    void spellsCents();
    void agreesWithTheReference();
};

namespace {

QString spanish(double value)
{
    return numberToWords(value, QStringLiteral("ESP"));
}

/// 1 to 20; the list of words that end with a blank is written with commas here.
QStringList upToTwenty()
{
    return QStringLiteral("uno ,dos ,tres ,cuatro ,cinco ,seis ,siete ,ocho ,nueve ,diez ,once ,doce ,trece ,catorce ,"
                          "quince ,diez y seis ,diez y siete ,diez y ocho ,diez y nueve ,veinte ")
        .split(',');
}

QStringList tensWords()
{
    return QStringLiteral("veinte ,treinta ,cuarenta ,cincuenta ,sesenta ,setenta ,ochenta ,noventa ").split(',');
}

/// Whole numbers, from the lowest group up.
class Reference {
public:
    Reference()
    {
        m_belowHundred = QStringList(QString()) + upToTwenty().mid(0, 19);
        const QStringList allTenses = tensWords();
        for (const QString &tens : allTenses) {
            m_belowHundred.append(tens);
            for (int units = 1; units < 10; ++units)
                m_belowHundred.append(tens + "y " + m_belowHundred.at(units));
        }
    }

    QString spell(qint64 number) const
    {
        const QStringList one{"mil ", "millón ", "millardo ", "billón "};
        const QStringList more{"mil ", "millones ", "millardos ", "billónes "};
        QString text = group(static_cast<int>(number % 1000));
        for (int scale = 0; scale < 4; ++scale) {
            number /= 1000;
            const int three = static_cast<int>(number % 1000);
            QString count = group(three);
            if (count.endsWith("uno "))
                count.replace(count.size() - 4, 4, "un ");
            if (three != 0)
                text.prepend(count + (three == 1 ? one : more).at(scale));
        }
        return text;
    }

private:
    QString group(int number) const
    {
        if (number == 100)
            return QStringLiteral("cien ");
        QString hundreds;
        if (number > 100)
            hundreds = number < 200 ? QStringLiteral("ciento ") : m_belowHundred.at(number / 100) + "cientos ";
        return hundreds + m_belowHundred.at(number % 100);
    }

    QStringList m_belowHundred;
};

} // namespace

void TestNumbersToWordsSpanish::smallWords()
{
    const QStringList small = upToTwenty();
    QCOMPARE(small.size(), 20);
    for (int number = 1; number <= 20; ++number)
        QCOMPARE(spanish(number), small.at(number - 1));
    const QStringList tens = tensWords();
    QCOMPARE(tens.size(), 8);
    for (int number = 2; number <= 9; ++number)
        QCOMPARE(spanish(10 * number), tens.at(number - 2));
}

void TestNumbersToWordsSpanish::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(0, "");
    row(1, "uno ");
    row(16, "diez y seis ");
    row(20, "veinte ");
    row(21, "veinte y uno ");
    row(30, "treinta ");
    row(42, "cuarenta y dos ");
    row(99, "noventa y nueve ");
    row(100, "cien ");
    row(101, "ciento uno ");
    row(110, "ciento diez ");
    row(116, "ciento diez y seis ");
    row(120, "ciento veinte ");
    row(200, "dos cientos ");
    row(500, "cinco cientos ");
    row(701, "siete cientos uno ");
    row(999, "nueve cientos noventa y nueve ");
    row(1000, "un mil ");
    row(1001, "un mil uno ");
    row(2000, "dos mil ");
    row(11000, "once mil ");
    row(21000, "veinte y un mil ");
    row(31021, "treinta y un mil veinte y uno ");
    row(100000, "cien mil ");
    row(100100, "cien mil cien ");
    row(101000, "ciento un mil ");
    row(1000000, "un millón ");
    row(1001001, "un millón un mil uno ");
    row(2000000, "dos millones ");
    row(21000000, "veinte y un millones ");
    row(101000000, "ciento un millones ");
    row(1000000000, "un millardo ");
    row(2000000000, "dos millardos ");
    row(1e12, "un billón ");
    row(2e12, "dos billónes ");
    row(1001001001001, "un billón un millardo un millón un mil uno ");
    row(999999999999999,
        "nueve cientos noventa y nueve billónes nueve cientos noventa y nueve millardos nueve cientos noventa y nueve "
        "millones nueve cientos noventa y nueve mil nueve cientos noventa y nueve ");
    // Fifteen digits at most.
    row(1e15, "");
    row(1e300, "");
    // Decimals are cut.
    row(0.99, "");
    row(1.99, "uno ");
    row(1000.5, "un mil ");
}

void TestNumbersToWordsSpanish::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(spanish(value), words);
}

void TestNumbersToWordsSpanish::spellsCents_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(5, "cinco ");
    row(21.05, "veinte y uno con cinco ");
    row(1.01, "uno con uno ");
    row(0.5, "con cincuenta ");
    row(3.29, "tres con veinte y nueve ");
    row(3.999, "tres con noventa y nueve ");
    row(3.99999999, "tres con noventa y nueve ");
    row(3.001, "tres ");
    row(1000.21, "un mil con veinte y uno ");
    row(0, "");
}

void TestNumbersToWordsSpanish::spellsCents()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(NumberWords::spellSpanish(value, true), words);
}

void TestNumbersToWordsSpanish::agreesWithTheReference()
{
    const Reference reference;
    const QVector<qint64> allNumbers = numbersBelow(1000000000000000);
    for (const qint64 number : allNumbers)
        QCOMPARE(spanish(static_cast<double>(number)), reference.spell(number));
    for (int cents = 1; cents < 100; ++cents) {
        QCOMPARE(NumberWords::spellSpanish((4200 + cents) / 100.0, true),
                 "cuarenta y dos con " + reference.spell(cents));
    }
}

QTEST_APPLESS_MAIN(TestNumbersToWordsSpanish)
#include "tst_numberstowords_spanish.moc"
