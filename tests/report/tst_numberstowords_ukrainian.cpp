#include "numbersbelow.h"
#include "report/numberstowords.h"
#include "report/numberwords/languages.h"

#include <QtTest>

class TestNumbersToWordsUkrainian : public QObject {
    Q_OBJECT

private slots:
    void spells_data();
    void spells();
    void hundredthsAreRounded_data();
    void hundredthsAreRounded();
    void stemLeavesTheCurrencyOut_data();
    void stemLeavesTheCurrencyOut();
    void agreesWithTheReference();
    void agreesWithTheReferenceOnEveryKopeck();
};

namespace {

QString ukrainian(double value)
{
    return numberToWords(value, QStringLiteral("UKR"));
}

/// Whole hryvnias and kopecks, from the highest level down.
class Reference {
public:
    Reference()
    {
        const QStringList small =
            QStringLiteral("три чотири п'ять шість сім вісім дев'ять десять одинадцять дванадцять тринадцять "
                           "чотирнадцять п'ятнадцять шістнадцять сімнадцять вісімнадцять дев'ятнадцять")
                .split(' ');
        m_masculine = QStringList{"", "один", "два"} + small;
        m_feminine = QStringList{"", "одна", "дві"} + small;
    }

    QString spell(qint64 hryvnias, int kopecks) const
    {
        QStringList parts;
        if (hryvnias >= 1000000000)
            parts += level(hryvnias / 1000000000, m_masculine, {"мілліард", "мільярди", "мільярдів"});
        if (hryvnias >= 1000000)
            parts += level(hryvnias / 1000000 % 1000, m_masculine, {"мілльон", "мильони", "мільонів"});
        if (hryvnias >= 1000)
            parts += level(hryvnias / 1000 % 1000, m_feminine, {"тисяча", "тисячі", "тисяч"});
        parts += hryvnias == 0 ? QStringLiteral("ноль гривень,")
                               : level(hryvnias % 1000, m_feminine, {"гривня,", "гривні,", "гривень,"});
        parts += QString::number(kopecks).rightJustified(2, '0');
        parts += form(kopecks, {"копійка", "копійки", "копійок"});
        QString text = parts.join(' ');
        text[0] = text.at(0).toUpper();
        return text;
    }

private:
    /// `forms` are for one, for two to four, for many.
    static QString form(qint64 number, const QStringList &forms)
    {
        const auto lastTwo = static_cast<int>(number % 100);
        if (lastTwo >= 10 && lastTwo < 20)
            return forms.at(2);
        const QString formOfDigit = QStringLiteral("2011122222"); // by the last digit
        return forms.at(formOfDigit.at(lastTwo % 10).digitValue());
    }

    static QString level(qint64 number, const QStringList &small, const QStringList &forms)
    {
        const QStringList hundreds =
            QStringLiteral("сто двісти триста чотириста п'ятсот шістсот сімсот вісімсот дев'ятсот").split(' ');
        const QStringList tens =
            QStringLiteral("двадцять тридцять сорок п'ятдесят шістдесят сімдесят вісімдесят дев'яносто").split(' ');
        const auto value = static_cast<int>(number);
        QStringList parts;
        if (value >= 100)
            parts += hundreds.at(value / 100 - 1);
        if (value % 100 >= 20)
            parts += tens.at(value % 100 / 10 - 2);
        const int rest = value % 100 < 20 ? value % 100 : value % 10;
        if (rest != 0)
            parts += small.at(rest);
        return (parts << form(number, forms)).join(' ');
    }

    QStringList m_masculine;
    QStringList m_feminine;
};

} // namespace

void TestNumbersToWordsUkrainian::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(0, "Ноль гривень, 00 копійок");
    row(0.01, "Ноль гривень, 01 копійка");
    row(0.04, "Ноль гривень, 04 копійки");
    row(0.11, "Ноль гривень, 11 копійок");
    row(0.21, "Ноль гривень, 21 копійка");
    row(1, "Одна гривня, 00 копійок");
    row(2, "Дві гривні, 00 копійок");
    row(4.5, "Чотири гривні, 50 копійок");
    row(5, "П'ять гривень, 00 копійок");
    row(10, "Десять гривень, 00 копійок");
    row(12.12, "Дванадцять гривень, 12 копійок");
    row(19, "Дев'ятнадцять гривень, 00 копійок");
    row(20, "Двадцять гривень, 00 копійок");
    row(21.05, "Двадцять одна гривня, 05 копійок");
    row(22.22, "Двадцять дві гривні, 22 копійки");
    row(40, "Сорок гривень, 00 копійок");
    row(91, "Дев'яносто одна гривня, 00 копійок");
    row(100, "Сто гривень, 00 копійок");
    row(111, "Сто одинадцять гривень, 00 копійок");
    row(200, "Двісти гривень, 00 копійок");
    row(999.99, "Дев'ятсот дев'яносто дев'ять гривень, 99 копійок");
    row(1000, "Одна тисяча гривень, 00 копійок");
    row(1001, "Одна тисяча одна гривня, 00 копійок");
    row(2000, "Дві тисячі гривень, 00 копійок");
    row(11000, "Одинадцять тисяч гривень, 00 копійок");
    row(21300, "Двадцять одна тисяча триста гривень, 00 копійок");
    row(500000, "П'ятсот тисяч гривень, 00 копійок");
    row(1001000, "Один мілльон одна тисяча гривень, 00 копійок");
    row(2345678.9, "Два мильони триста сорок п'ять тисяч шістсот сімдесят вісім гривень, 90 копійок");
    row(5005005, "П'ять мільонів п'ять тисяч п'ять гривень, 00 копійок");
    row(2002002002.02, "Два мільярди два мильони дві тисячі дві гривні, 02 копійки");
    row(999999999999,
        "Дев'ятсот дев'яносто дев'ять мільярдів дев'ятсот дев'яносто дев'ять мільонів дев'ятсот дев'яносто "
        "дев'ять тисяч дев'ятсот дев'яносто дев'ять гривень, 00 копійок");
    // A level of zeros keeps its bare form.
    row(1000000, "Один мілльон тисяч гривень, 00 копійок");
    row(2000001, "Два мильони тисяч одна гривня, 00 копійок");
    row(1000000000, "Один мілліард мільонів тисяч гривень, 00 копійок");
    row(7000400000.0, "Сім мільярдів мільонів чотириста тисяч гривень, 00 копійок");
    // There is no scale word from 10^12 up, and no text from 2^53 up.
    row(1e12, "Один мільярдів мільонів тисяч гривень, 00 копійок");
    row(9007199254740864.0,
        "Дев'ять сім сто дев'яносто дев'ять мільярдів двісти п'ятдесят чотири мильони сімсот сорок тисяч "
        "вісімсот шістдесят чотири гривні, 00 копійок");
    row(9007199254740992.0, "");
    row(1e300, "");
}

void TestNumbersToWordsUkrainian::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(ukrainian(value), words);
}

void TestNumbersToWordsUkrainian::hundredthsAreRounded_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(3.004, "Три гривні, 00 копійок");
    row(3.005, "Три гривні, 01 копійка");
    row(3.0049, "Три гривні, 00 копійок"); // the fourth decimal is cut before the third rounds
    row(3.125, "Три гривні, 13 копійок");
    row(3.875, "Три гривні, 88 копійок");
    row(3.994, "Три гривні, 99 копійок");
    // A hundred kopecks read "00" and add nothing to the hryvnias.
    row(3.996, "Три гривні, 00 копійок");
    row(0.999, "Ноль гривень, 00 копійок");
    row(999.999, "Дев'ятсот дев'яносто дев'ять гривень, 00 копійок");
}

void TestNumbersToWordsUkrainian::hundredthsAreRounded()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(ukrainian(value), words);
}

void TestNumbersToWordsUkrainian::stemLeavesTheCurrencyOut_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(0, "Ноль 00 ");
    row(2, "Дві 00 ");
    row(21.05, "Двадцять одна 05 ");
    row(1000, "Одна тисяча 00 ");
    row(2000003, "Два мильони тисяч три 00 ");
}

void TestNumbersToWordsUkrainian::stemLeavesTheCurrencyOut()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(NumberWords::spellUkrainian(value, true), words);
}

void TestNumbersToWordsUkrainian::agreesWithTheReference()
{
    const Reference reference;
    const QVector<qint64> allNumbers = numbersBelow(1000000000000);
    for (const qint64 number : allNumbers)
        QCOMPARE(ukrainian(static_cast<double>(number)), reference.spell(number, 0));
}

void TestNumbersToWordsUkrainian::agreesWithTheReferenceOnEveryKopeck()
{
    const Reference reference;
    for (const qint64 hryvnias : {0, 1, 13, 999, 1000, 123456, 99999999}) {
        for (int kopecks = 0; kopecks < 100; ++kopecks) {
            const double value = static_cast<double>(100 * hryvnias + kopecks) / 100;
            QCOMPARE(ukrainian(value), reference.spell(hryvnias, kopecks));
        }
    }
}

QTEST_APPLESS_MAIN(TestNumbersToWordsUkrainian)
#include "tst_numberstowords_ukrainian.moc"
