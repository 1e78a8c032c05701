#include "numbersbelow.h"
#include "report/numberstowords.h"

#include <QtTest>

class TestNumbersToWordsEnglish : public QObject {
    Q_OBJECT

private slots:
    void smallWords();
    void spells_data();
    void spells();
    void agreesWithTheReference();
};

namespace {

QString english(double value)
{
    return numberToWords(value, QStringLiteral("ENG"));
}

QStringList upToTwenty()
{
    return QStringLiteral(
               "zero one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen "
               "sixteen seventeen eighteen nineteen twenty")
        .split(' ');
}

QStringList tensWords()
{
    return QStringLiteral("twenty thirty forty fifty sixty seventy eighty ninety").split(' ');
}

/// One word list for the whole number, group by group of its decimal digits.
class Reference {
public:
    QString spell(qint64 number) const
    {
        if (number == 0)
            return m_small.first();
        const QString digits = QString::number(number).rightJustified(12, '0');
        const QStringList scales{" billion", " million", " thousand", QString()};
        QStringList parts;
        for (int group = 0; group < 4; ++group) {
            const QString three = digits.mid(3 * group, 3);
            if (three != "000")
                parts.append(groupWords(three) + scales.at(group));
        }
        return parts.join(' ');
    }

private:
    QString groupWords(const QString &three) const
    {
        QStringList parts;
        if (three.at(0) != '0')
            parts.append(m_small.at(three.at(0).digitValue()) + " hundred");
        const int below = three.midRef(1).toInt();
        if (below > 20 && below % 10 != 0)
            parts.append(m_tens.at(below / 10 - 2) + '-' + m_small.at(below % 10));
        else if (below > 20)
            parts.append(m_tens.at(below / 10 - 2));
        else if (below > 0)
            parts.append(m_small.at(below));
        return parts.join(' ');
    }

    const QStringList m_small = upToTwenty();
    const QStringList m_tens = tensWords();
};

} // namespace

void TestNumbersToWordsEnglish::smallWords()
{
    const QStringList small = upToTwenty();
    QCOMPARE(small.size(), 21);
    for (int number = 0; number <= 20; ++number)
        QCOMPARE(english(number), small.at(number));
    const QStringList tens = tensWords();
    QCOMPARE(tens.size(), 8);
    for (int number = 2; number <= 9; ++number)
        QCOMPARE(english(10 * number), tens.at(number - 2));
}

void TestNumbersToWordsEnglish::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(21, "twenty-one");
    row(29, "twenty-nine");
    row(42, "forty-two");
    row(99, "ninety-nine");
    row(100, "one hundred");
    row(101, "one hundred one");
    row(110, "one hundred ten");
    row(115, "one hundred fifteen");
    row(200, "two hundred");
    row(342, "three hundred forty-two");
    row(999, "nine hundred ninety-nine");
    row(1000, "one thousand");
    row(1001, "one thousand one");
    row(1100, "one thousand one hundred");
    row(1234, "one thousand two hundred thirty-four");
    row(10000, "ten thousand");
    row(21000, "twenty-one thousand");
    row(100000, "one hundred thousand");
    row(999999, "nine hundred ninety-nine thousand nine hundred ninety-nine");
    row(1000000, "one million");
    row(1000001, "one million one");
    row(2500000, "two million five hundred thousand");
    row(15000020, "fifteen million twenty");
    row(1000000000, "one billion");
    row(1234567890,
        "one billion two hundred thirty-four million five hundred sixty-seven thousand eight hundred ninety");
    row(2147483647,
        "two billion one hundred forty-seven million four hundred eighty-three thousand six hundred forty-seven");
    // From 2^31 up the rest is left out.
    row(2147483648.0, "two billion");
    row(3000000005.0, "three billion");
    row(1e12, "one thousand billion");
    row(1e18, "one billion billion");
    // Below 21 only whole numbers have a word; above, decimals are cut.
    row(0.5, "");
    row(1.000001, "");
    row(20.5, "");
    row(21.5, "twenty-one");
    row(99.999, "ninety-nine");
    row(100.5, "one hundred");
    row(1000.99, "one thousand");
    row(2147483647.5,
        "two billion one hundred forty-seven million four hundred eighty-three thousand six hundred forty-seven");
}

void TestNumbersToWordsEnglish::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(english(value), words);
}

void TestNumbersToWordsEnglish::agreesWithTheReference()
{
    const Reference reference;
    const QVector<qint64> allNumbers = numbersBelow(2147483648);
    for (const qint64 number : allNumbers)
        QCOMPARE(english(static_cast<double>(number)), reference.spell(number));
}

QTEST_APPLESS_MAIN(TestNumbersToWordsEnglish)
#include "tst_numberstowords_english.moc"
