#include "numbersbelow.h"
#include "report/numberstowords.h"

#include <QtTest>

class TestNumbersToWordsItalian : public QObject {
    Q_OBJECT

private slots:
    void smallWords();
    void spells_data();
    void spells();
    void agreesWithTheReference();
};

namespace {

QString italian(double value)
{
    return numberToWords(value, QStringLiteral("ITA"));
}

QStringList upToTwenty()
{
    return QStringLiteral("zero uno due tre quattro cinque sei sette otto nove dieci undici dodici tredici quattordici "
                          "quindici sedici diciasette diciotto diciannove venti")
        .split(' ');
}

QStringList tensWords()
{
    return QStringLiteral("venti trenta quaranta cinquanta sessanta settanta ottanta novanta").split(' ');
}

/// From the lowest group up; the tens before a vowel are a list of their own.
class Reference {
public:
    Reference()
    {
        m_belowHundred = upToTwenty().mid(0, 20);
        m_belowHundred[0].clear();
        const QStringList tens = tensWords();
        const QStringList elided =
            QStringLiteral("vent trent quarant cinquant sessant settant ottant novant").split(' ');
        for (int number = 20; number < 100; ++number) {
            const int units = number % 10;
            const QStringList &stems = units == 1 || units == 8 ? elided : tens;
            m_belowHundred.append(stems.at(number / 10 - 2) + m_belowHundred.at(units));
        }
    }

    QString spell(qint64 number) const
    {
        if (number == 0)
            return QStringLiteral("zero");
        return counted(number / 1000000000, "un miliardo ", " miliardi ")
            + counted(number / 1000000 % 1000, "un milione ", " milioni ")
            + counted(number / 1000 % 1000, "mille", "mila ") + group(number % 1000);
    }

private:
    QString counted(qint64 number, const QString &one, const QString &more) const
    {
        if (number < 2)
            return number == 0 ? QString() : one;
        return group(number) + more;
    }

    QString group(qint64 number) const
    {
        QString hundreds;
        if (number >= 200)
            hundreds = m_belowHundred.at(static_cast<int>(number / 100));
        if (number >= 100)
            hundreds += "cento";
        return hundreds + m_belowHundred.at(static_cast<int>(number % 100));
    }

    QStringList m_belowHundred;
};

} // namespace

void TestNumbersToWordsItalian::smallWords()
{
    const QStringList small = upToTwenty();
    QCOMPARE(small.size(), 21);
    for (int number = 0; number <= 20; ++number)
        QCOMPARE(italian(number), small.at(number));
    const QStringList tens = tensWords();
    QCOMPARE(tens.size(), 8);
    for (int number = 2; number <= 9; ++number)
        QCOMPARE(italian(10 * number), tens.at(number - 2));
}

void TestNumbersToWordsItalian::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(17, "diciasette");
    row(21, "ventuno");
    row(23, "ventitre");
    row(28, "ventotto");
    row(31, "trentuno");
    row(42, "quarantadue");
    row(81, "ottantuno");
    row(88, "ottantotto");
    row(99, "novantanove");
    row(100, "cento");
    row(101, "centouno");
    row(108, "centootto");
    row(117, "centodiciasette");
    row(180, "centoottanta");
    row(199, "centonovantanove");
    row(200, "duecento");
    row(999, "novecentonovantanove");
    row(1000, "mille");
    row(1001, "milleuno");
    row(1100, "millecento");
    row(1999, "millenovecentonovantanove");
    row(2000, "duemila ");
    row(2001, "duemila uno");
    row(10000, "diecimila ");
    row(21000, "ventunomila ");
    row(100000, "centomila ");
    row(101000, "centounomila ");
    row(999999, "novecentonovantanovemila novecentonovantanove");
    row(1000000, "un milione ");
    row(1001000, "un milione mille");
    row(1999999, "un milione novecentonovantanovemila novecentonovantanove");
    row(2000000, "due milioni ");
    row(1000000000, "un miliardo ");
    row(1001000000, "un miliardo un milione ");
    row(2000000000, "due miliardi ");
    row(3000000005.0, "tre miliardi cinque");
    row(1e11, "cento miliardi ");
    row(1e12, "mille miliardi ");
    row(2e12, "duemila  miliardi ");
    // The largest number below 2^63; from there up the rest is left out.
    row(9223372036854774784.0,
        "nove miliardi duecentoventitre milioni trecentosettantaduemila trentasei miliardi "
        "ottocentocinquantaquattro milioni settecentosettantaquattromila settecentoottantaquattro");
    row(9223372036854775808.0, "nove miliardi duecentoventitre milioni trecentosettantaduemila trentasei miliardi ");
    // Below 21 only whole numbers have a word; above, decimals are cut.
    row(0.5, "");
    row(20.01, "");
    row(21.9, "ventuno");
    row(199.9, "centonovantanove");
    row(1999.9, "millenovecentonovantanove");
}

void TestNumbersToWordsItalian::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(italian(value), words);
}

void TestNumbersToWordsItalian::agreesWithTheReference()
{
    const Reference reference;
    const QVector<qint64> allNumbers = numbersBelow(1000000000000);
    for (const qint64 number : allNumbers)
        QCOMPARE(italian(static_cast<double>(number)), reference.spell(number));
}

QTEST_APPLESS_MAIN(TestNumbersToWordsItalian)
#include "tst_numberstowords_italian.moc"
