#include "numbersbelow.h"
#include "report/numberstowords.h"

#include <QtTest>

class TestNumbersToWordsGerman : public QObject {
    Q_OBJECT

private slots:
    void smallWords();
    void spells_data();
    void spells();
    void agreesWithTheReference();
};

namespace {

QString german(double value)
{
    return numberToWords(value, QStringLiteral("GER"));
}

QStringList upToTwenty()
{
    return QStringLiteral(
               "null ein zwei drei vier fünf sechs sieben acht neun zehn elf zwölf dreizehn vierzehn fünfzehn "
               "sechzehn siebzehn achtzehn neunzehn zwanzig")
        .split(' ');
}

QStringList tensWords()
{
    return QStringLiteral("zwanzig dreissig vierzig fünfzig sechszig siebzig achtzig neunzig").split(' ');
}

/// From the lowest group up.
class Reference {
public:
    Reference()
    {
        m_belowHundred = upToTwenty().mid(0, 20);
        m_belowHundred[0].clear();
        const QStringList tens = tensWords();
        for (int number = 20; number < 100; ++number) {
            const QString units = number % 10 == 0 ? QString() : m_belowHundred.at(number % 10) + "und";
            m_belowHundred.append(units + tens.at(number / 10 - 2));
        }
    }

    QString spell(qint64 number) const
    {
        if (number < 2)
            return number == 0 ? QStringLiteral("null") : QStringLiteral("eins");
        QString text = group(number % 1000);
        const qint64 thousands = number / 1000 % 1000;
        if (thousands != 0)
            text = group(thousands) + "tausend" + text;
        const qint64 millions = number / 1000000 % 1000;
        if (millions != 0)
            text = (millions == 1 ? QStringLiteral("einemillion") : group(millions) + "millionen") + text;
        const qint64 milliards = number / 1000000000;
        if (milliards != 0)
            text = (milliards == 1 ? QStringLiteral("einemilliarde") : group(milliards) + "milliarden") + text;
        return text;
    }

private:
    QString group(qint64 number) const
    {
        const QString hundreds =
            number < 100 ? QString() : m_belowHundred.at(static_cast<int>(number / 100)) + "hundert";
        return hundreds + m_belowHundred.at(static_cast<int>(number % 100));
    }

    QStringList m_belowHundred;
};

} // namespace

void TestNumbersToWordsGerman::smallWords()
{
    const QStringList small = upToTwenty();
    QCOMPARE(small.size(), 21);
    for (int number = 0; number <= 20; ++number)
        QCOMPARE(german(number), number == 1 ? QStringLiteral("eins") : small.at(number));
    const QStringList tens = tensWords();
    QCOMPARE(tens.size(), 8);
    for (int number = 2; number <= 9; ++number)
        QCOMPARE(german(10 * number), tens.at(number - 2));
}

void TestNumbersToWordsGerman::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(1, "eins");
    row(21, "einundzwanzig");
    row(31, "einunddreissig");
    row(42, "zweiundvierzig");
    row(66, "sechsundsechszig");
    row(99, "neunundneunzig");
    row(100, "einhundert");
    row(101, "einhundertein");
    row(111, "einhundertelf");
    row(121, "einhunderteinundzwanzig");
    row(130, "einhundertdreissig");
    row(200, "zweihundert");
    row(999, "neunhundertneunundneunzig");
    row(1000, "eintausend");
    row(1001, "eintausendein");
    row(1100, "eintausendeinhundert");
    row(2000, "zweitausend");
    row(21000, "einundzwanzigtausend");
    row(100000, "einhunderttausend");
    row(101000, "einhunderteintausend");
    row(999999, "neunhundertneunundneunzigtausendneunhundertneunundneunzig");
    row(1000000, "einemillion");
    row(1000001, "einemillionein");
    row(1999999, "einemillionneunhundertneunundneunzigtausendneunhundertneunundneunzig");
    row(2000000, "zweimillionen");
    row(21000000, "einundzwanzigmillionen");
    row(101000000, "einhunderteinmillionen");
    row(1000000000, "einemilliarde");
    row(1001000000, "einemilliardeeinemillion");
    row(2000000000, "zweimilliarden");
    row(3000000005.0, "dreimilliardenfünf");
    row(1e12, "eintausendmilliarden");
    row(1e15, "einemillionmilliarden");
    // The largest number below 2^63; from there up the rest is left out.
    row(9223372036854774784.0,
        "neunmilliardenzweihundertdreiundzwanzigmillionendreihundertzweiundsiebzigtausendsechsunddreissigmilliarden"
        "achthundertvierundfünfzigmillionensiebenhundertvierundsiebzigtausendsiebenhundertvierundachtzig");
    row(9223372036854775808.0,
        "neunmilliardenzweihundertdreiundzwanzigmillionendreihundertzweiundsiebzigtausendsechsunddreissigmilliarden");
    // Below 21 only whole numbers have a word; above, decimals are cut.
    row(0.5, "");
    row(1.5, "");
    row(20.99, "");
    row(21.5, "einundzwanzig");
    row(99.999, "neunundneunzig");
    row(1001.25, "eintausendein");
    row(1999999.5, "einemillionneunhundertneunundneunzigtausendneunhundertneunundneunzig");
}

void TestNumbersToWordsGerman::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(german(value), words);
}

void TestNumbersToWordsGerman::agreesWithTheReference()
{
    const Reference reference;
    const QVector<qint64> allNumbers = numbersBelow(1000000000000);
    for (const qint64 number : allNumbers)
        QCOMPARE(german(static_cast<double>(number)), reference.spell(number));
}

QTEST_APPLESS_MAIN(TestNumbersToWordsGerman)
#include "tst_numberstowords_german.moc"
