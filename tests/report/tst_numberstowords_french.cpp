#include "numbersbelow.h"
#include "report/numberstowords.h"
#include "report/numberwords/languages.h"

#include <QtTest>

class TestNumbersToWordsFrench : public QObject {
    Q_OBJECT

private slots:
    void smallWords();
    void spells_data();
    void spells();
    void variantsDiffer_data();
    void variantsDiffer();
    void agreesWithTheReference_data();
    void agreesWithTheReference();
    void negativeNumberHasNoWord();
};

namespace {

QStringList belowTwenty()
{
    return QStringLiteral(
               "zéro et-un deux trois quatre cinq six sept huit neuf dix onze douze treize quatorze quinze seize "
               "dix-sept dix-huit dix-neuf")
        .split(' ');
}

/// The words of 0 to 99 are made stem by stem: each stem counts on until the next one starts. 80 is written with an
/// "s" unless the stem is "huitante".
class Reference {
public:
    explicit Reference(const QString &variant)
        : m_belowHundred(belowTwenty())
    {
        addStem("vingt", 20, 30);
        addStem("trente", 30, 40);
        addStem("quarante", 40, 50);
        addStem("cinquante", 50, 60);
        if (variant == "FR_FR") {
            addStem("soixante", 60, 80);
            addStem("quatre-vingt", 80, 100);
        } else {
            addStem("soixante", 60, 70);
            addStem("septante", 70, 80);
            addStem(variant == "FR_BE" ? "quatre-vingt" : "huitante", 80, 90);
            addStem("nonante", 90, 100);
        }
        if (variant != "FR_CH")
            m_belowHundred[80].append('s');
    }

    QString spell(int number) const
    {
        if (number < 1000)
            return group(number);
        QString text;
        const int milliards = number / 1000000000;
        if (milliards != 0)
            text += milliards == 1 ? QStringLiteral("un-milliard-") : group(milliards) + "-milliards-";
        const int millions = number / 1000000 % 1000;
        if (millions != 0)
            text += millions == 1 ? QStringLiteral("un-million-") : group(millions) + "-millions-";
        const int thousands = number / 1000 % 1000;
        if (thousands != 0)
            text += thousands == 1 ? QStringLiteral("mille-") : group(thousands) + "-mille-";
        return number % 1000 == 0 ? text : text + group(number % 1000);
    }

private:
    void addStem(const QString &stem, int first, int end)
    {
        m_belowHundred.append(stem);
        for (int number = first + 1; number < end; ++number)
            m_belowHundred.append(stem + '-' + m_belowHundred.at(number - first));
    }

    QString group(int number) const
    {
        if (number == 999)
            return QString();
        if (number < 100)
            return m_belowHundred.at(number);
        if (number < 200)
            return "cent-" + m_belowHundred.at(number - 100);
        const QString hundreds = m_belowHundred.at(number / 100) + "-cent";
        return number % 100 == 0 ? hundreds + 's' : hundreds + '-' + m_belowHundred.at(number % 100);
    }

    QStringList m_belowHundred;
};

} // namespace

void TestNumbersToWordsFrench::smallWords()
{
    const QStringList small = belowTwenty();
    QCOMPARE(small.size(), 20);
    const QStringList tens = QStringLiteral("vingt trente quarante cinquante soixante").split(' ');
    for (const char *const variant : {"FR_FR", "FR_BE", "FR_CH"}) {
        for (int number = 0; number < 20; ++number)
            QCOMPARE(numberToWords(number, variant), small.at(number));
        for (int number = 2; number <= 6; ++number)
            QCOMPARE(numberToWords(10 * number, variant), tens.at(number - 2));
    }
}

void TestNumbersToWordsFrench::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(0, "zéro");
    row(1, "et-un");
    row(2, "deux");
    row(17, "dix-sept");
    row(21, "vingt-et-un");
    row(22, "vingt-deux");
    row(42, "quarante-deux");
    row(61, "soixante-et-un");
    row(100, "cent-zéro");
    row(101, "cent-et-un");
    row(102, "cent-deux");
    row(111, "cent-onze");
    row(121, "cent-vingt-et-un");
    row(200, "deux-cents");
    row(201, "deux-cent-et-un");
    row(250, "deux-cent-cinquante");
    row(900, "neuf-cents");
    row(999, "");
    row(1000, "mille-");
    row(1001, "mille-et-un");
    row(1100, "mille-cent-zéro");
    row(1200, "mille-deux-cents");
    row(1999, "mille-");
    row(2000, "deux-mille-");
    row(2020, "deux-mille-vingt");
    row(21000, "vingt-et-un-mille-");
    row(100000, "cent-zéro-mille-");
    row(200000, "deux-cents-mille-");
    row(999000, "-mille-");
    row(1000000, "un-million-");
    row(1000001, "un-million-et-un");
    row(1999000, "un-million--mille-");
    row(2000000, "deux-millions-");
    row(2001002, "deux-millions-mille-deux");
    row(1000000000, "un-milliard-");
    row(1001001000, "un-milliard-un-million-mille-");
    row(2000000000, "deux-milliards-");
    row(2100000000, "deux-milliards-cent-zéro-millions-");
    // Cut to a whole number that must fit 32 bits.
    row(0.99, "zéro");
    row(1.99, "et-un");
    row(999.5, "");
    row(2000.75, "deux-mille-");
    row(2147483648.0, "");
    row(1e18, "");
}

void TestNumbersToWordsFrench::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(numberToWords(value, QStringLiteral("FR_FR")), words);
    QCOMPARE(numberToWords(value, QStringLiteral("FR_BE")), words);
    QCOMPARE(numberToWords(value, QStringLiteral("FR_CH")), words);
}

void TestNumbersToWordsFrench::variantsDiffer_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("france");
    QTest::addColumn<QString>("belgium");
    QTest::addColumn<QString>("switzerland");
    const auto row = [](int value, const char *france, const char *belgium, const char *switzerland) {
        QTest::addRow("%d", value) << value << france << belgium << switzerland;
    };
    row(70, "soixante-dix", "septante", "septante");
    row(71, "soixante-onze", "septante-et-un", "septante-et-un");
    row(75, "soixante-quinze", "septante-cinq", "septante-cinq");
    row(77, "soixante-dix-sept", "septante-sept", "septante-sept");
    row(79, "soixante-dix-neuf", "septante-neuf", "septante-neuf");
    row(80, "quatre-vingts", "quatre-vingts", "huitante");
    row(81, "quatre-vingt-et-un", "quatre-vingt-et-un", "huitante-et-un");
    row(89, "quatre-vingt-neuf", "quatre-vingt-neuf", "huitante-neuf");
    row(90, "quatre-vingt-dix", "nonante", "nonante");
    row(91, "quatre-vingt-onze", "nonante-et-un", "nonante-et-un");
    row(96, "quatre-vingt-seize", "nonante-six", "nonante-six");
    row(99, "quatre-vingt-dix-neuf", "nonante-neuf", "nonante-neuf");
    row(180, "cent-quatre-vingts", "cent-quatre-vingts", "cent-huitante");
    row(371, "trois-cent-soixante-onze", "trois-cent-septante-et-un", "trois-cent-septante-et-un");
    row(998, "neuf-cent-quatre-vingt-dix-huit", "neuf-cent-nonante-huit", "neuf-cent-nonante-huit");
    row(80000, "quatre-vingts-mille-", "quatre-vingts-mille-", "huitante-mille-");
    row(90070, "quatre-vingt-dix-mille-soixante-dix", "nonante-mille-septante", "nonante-mille-septante");
    row(2147483647,
        "deux-milliards-cent-quarante-sept-millions-quatre-cent-quatre-vingt-trois-mille-six-cent-quarante-sept",
        "deux-milliards-cent-quarante-sept-millions-quatre-cent-quatre-vingt-trois-mille-six-cent-quarante-sept",
        "deux-milliards-cent-quarante-sept-millions-quatre-cent-huitante-trois-mille-six-cent-quarante-sept");
}

void TestNumbersToWordsFrench::variantsDiffer()
{
    QFETCH(int, value);
    QTEST(numberToWords(value, QStringLiteral("FR_FR")), "france");
    QTEST(numberToWords(value, QStringLiteral("FR_BE")), "belgium");
    QTEST(numberToWords(value, QStringLiteral("FR_CH")), "switzerland");
}

void TestNumbersToWordsFrench::agreesWithTheReference_data()
{
    QTest::addColumn<QString>("variant");
    QTest::newRow("France") << "FR_FR";
    QTest::newRow("Belgium") << "FR_BE";
    QTest::newRow("Switzerland") << "FR_CH";
}

void TestNumbersToWordsFrench::agreesWithTheReference()
{
    QFETCH(QString, variant);
    const Reference reference(variant);
    const QVector<qint64> allNumbers = numbersBelow(2147483648);
    for (const qint64 number : allNumbers)
        QCOMPARE(numberToWords(static_cast<double>(number), variant), reference.spell(static_cast<int>(number)));
}

void TestNumbersToWordsFrench::negativeNumberHasNoWord()
{
    for (const int number : {-1, -20, -1000, std::numeric_limits<int>::min()})
        QCOMPARE(NumberWords::spellFrench(number, NumberWords::France), QString());
}

QTEST_APPLESS_MAIN(TestNumbersToWordsFrench)
#include "tst_numberstowords_french.moc"
