#include "numbersbelow.h"
#include "report/numberstowords.h"

#include <QtTest>

class TestNumbersToWordsArabic : public QObject {
    Q_OBJECT

private slots:
    void smallWords();
    void hundredsWords();
    void scaleWords_data();
    void scaleWords();
    void spells_data();
    void spells();
    void decimals_data();
    void decimals();
    void noScaleWordBeyondTheSextillions();
    void agreesWithTheReference();
    void isAnObject();
};

namespace {

QString arabic(double value)
{
    return numberToWords(value, QStringLiteral("AR"));
}

/// 1 to 19.
QStringList ones()
{
    return QStringLiteral("واحد,اثنان,ثلاثة,أربعة,خمسة,ستة,سبعة,ثمانية,تسعة,عشرة,أحد عشر,اثنا عشر,ثلاثة عشر,أربعة عشر,"
                          "خمسة عشر,ستة عشر,سبعة عشر,ثمانية عشر,تسعة عشر")
        .split(',');
}

/// 20 to 90.
QStringList tens()
{
    return QStringLiteral("عشرون,ثلاثون,أربعون,خمسون,ستون,سبعون,ثمانون,تسعون").split(',');
}

/// 100 to 900.
QStringList hundreds()
{
    return QStringLiteral("مائة,مئتان,ثلاثمائة,أربعمائة,خمسمائة,ستمائة,سبعمائة,ثمانمائة,تسعمائة").split(',');
}

/// The words for a scale: one, two, three to ten, and eleven or more, alone and with something after them.
struct ScaleWords {
    QString one;
    QString two;
    QString few;
    QString manyAlone;
    QString many;
};

/// Whole numbers, read from the highest group down.
class Reference {
public:
    Reference()
    {
        m_belowHundred = QStringList(QString()) + ones();
        const QStringList allWords = tens();
        for (const QString &word : allWords) {
            m_belowHundred.append(word);
            for (int units = 1; units < 10; ++units)
                m_belowHundred.append(m_belowHundred.at(units) + " و " + word);
        }
        m_scales = {
            {"مليار", "ملياران", "مليارات", "مليار", "ملياراً"},
            {"مليون", "مليونان", "ملايين", "مليون", "مليوناً"},
            {"ألف", "ألفان", "آلاف", "ألف", "ألفاً"},
        };
    }

    QString spell(qint64 number) const
    {
        if (number == 0)
            return QStringLiteral("صفر");
        if (number < 3)
            return m_belowHundred.at(static_cast<int>(number));
        if (number == 2000)
            return QStringLiteral("ألفا ");
        QStringList parts;
        qint64 size = 1000000000;
        for (const ScaleWords &words : m_scales) {
            if (number / size % 1000 != 0)
                parts += counted(static_cast<int>(number / size % 1000), number % size == 0, words);
            size /= 1000;
        }
        if (number % 1000 != 0)
            parts += group(static_cast<int>(number % 1000), m_belowHundred.at(1));
        return parts.join(" و ") + ' ';
    }

private:
    QString counted(int count, bool alone, const ScaleWords &words) const
    {
        if (count == 2)
            return words.two;
        if (count % 100 == 1)
            return group(count, words.one);
        const QString &many = alone ? words.manyAlone : words.many;
        return group(count, QString()) + ' ' + (count <= 10 ? words.few : many);
    }

    /// `one` stands for a 1 behind the hundreds.
    QString group(int number, const QString &one) const
    {
        QStringList parts;
        if (number >= 100)
            parts += hundreds().at(number / 100 - 1);
        if (number % 100 != 0)
            parts += number % 100 == 1 ? one : m_belowHundred.at(number % 100);
        return parts.join(" و ");
    }

    QStringList m_belowHundred;
    QVector<ScaleWords> m_scales;
};

} // namespace

void TestNumbersToWordsArabic::smallWords()
{
    const QStringList small = ones();
    QCOMPARE(small.size(), 19);
    QCOMPARE(arabic(1), small.at(0));
    QCOMPARE(arabic(2), small.at(1));
    for (int number = 3; number <= 19; ++number)
        QCOMPARE(arabic(number), small.at(number - 1) + ' ');
    const QStringList words = tens();
    QCOMPARE(words.size(), 8);
    for (int number = 2; number <= 9; ++number)
        QCOMPARE(arabic(10 * number), words.at(number - 2) + ' ');
}

void TestNumbersToWordsArabic::hundredsWords()
{
    const QStringList words = hundreds();
    QCOMPARE(words.size(), 9);
    for (int number = 1; number <= 9; ++number)
        QCOMPARE(arabic(100 * number), words.at(number - 1) + ' ');
}

void TestNumbersToWordsArabic::scaleWords_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("two");
    QTest::addColumn<QString>("few");
    QTest::addColumn<QString>("many");
    QTest::newRow("thousand") << 1e3 << "ألف"
                              << "ألفان"
                              << "آلاف"
                              << "ألفاً";
    QTest::newRow("million") << 1e6 << "مليون"
                             << "مليونان"
                             << "ملايين"
                             << "مليوناً";
    QTest::newRow("milliard") << 1e9 << "مليار"
                              << "ملياران"
                              << "مليارات"
                              << "ملياراً";
    QTest::newRow("trillion") << 1e12 << "تريليون"
                              << "تريليونان"
                              << "تريليونات"
                              << "تريليوناً";
    QTest::newRow("quadrillion") << 1e15 << "كوادريليون"
                                 << "كوادريليونان"
                                 << "كوادريليونات"
                                 << "كوادريليوناً";
    QTest::newRow("quintillion") << 1e18 << "كوينتليون"
                                 << "كوينتليونان"
                                 << "كوينتليونات"
                                 << "كوينتليوناً";
    QTest::newRow("sextillion") << 1e21 << "سكستيليون"
                                << "سكستيليونان"
                                << "سكستيليونات"
                                << "سكستيليوناً";
}

/// Two of a scale alone are the short form for 2000 only: the greater ones are written with an exponent, which does not
/// read as exactly two of them.
void TestNumbersToWordsArabic::scaleWords()
{
    QFETCH(double, size);
    QFETCH(QString, one);
    QFETCH(QString, two);
    QFETCH(QString, few);
    QFETCH(QString, many);
    QCOMPARE(arabic(size), one + ' ');
    QCOMPARE(arabic(2 * size), size == 1e3 ? QStringLiteral("ألفا ") : two + ' ');
    QCOMPARE(arabic(3 * size), "ثلاثة " + few + ' ');
    QCOMPARE(arabic(10 * size), "عشرة " + few + ' ');
    QCOMPARE(arabic(11 * size), "أحد عشر " + one + ' ');
    if (size < 1e15) { // the sums are exact
        QCOMPARE(arabic(size + 5), one + " و خمسة ");
        QCOMPARE(arabic(2 * size + 5), two + " و خمسة ");
        QCOMPARE(arabic(11 * size + 5), "أحد عشر " + many + " و خمسة ");
    } else {
        QCOMPARE(arabic(11 * size + 5 * size / 1000).section(' ', 0, 2), "أحد عشر " + many);
    }
}

void TestNumbersToWordsArabic::spells_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(0, "صفر");
    row(1, "واحد");
    row(2, "اثنان");
    row(3, "ثلاثة ");
    row(12, "اثنا عشر ");
    row(20, "عشرون ");
    row(21, "واحد و عشرون ");
    row(42, "اثنان و أربعون ");
    row(99, "تسعة و تسعون ");
    row(100, "مائة ");
    row(101, "مائة و واحد ");
    row(102, "مائة و اثنان ");
    row(115, "مائة و خمسة عشر ");
    row(200, "مئتان ");
    row(201, "مئتان و واحد ");
    row(365, "ثلاثمائة و خمسة و ستون ");
    row(999, "تسعمائة و تسعة و تسعون ");
    row(1000, "ألف ");
    row(1001, "ألف و واحد ");
    row(1002, "ألف و اثنان ");
    row(2000, "ألفا ");
    row(2001, "ألفان و واحد ");
    row(3000, "ثلاثة آلاف ");
    row(3456, "ثلاثة آلاف و أربعمائة و ستة و خمسون ");
    row(10000, "عشرة آلاف ");
    row(11000, "أحد عشر ألف ");
    row(11005, "أحد عشر ألفاً و خمسة ");
    row(21000, "واحد و عشرون ألف ");
    row(100000, "مائة ألف ");
    row(101000, "مائة و ألف ");
    row(102000, "مائة و اثنان ألف ");
    row(103000, "مائة و ثلاثة ألف ");
    row(200000, "مئتان ألف ");
    row(1000000, "مليون ");
    row(1000001, "مليون و واحد ");
    row(2002000, "مليونان و ألفان ");
    row(1001000, "مليون و ألف ");
    row(1234567, "مليون و مئتان و أربعة و ثلاثون ألفاً و خمسمائة و سبعة و ستون ");
    row(5000000000, "خمسة مليارات ");
}

void TestNumbersToWordsArabic::spells()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(arabic(value), words);
}

void TestNumbersToWordsArabic::decimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("words");
    const auto row = [](double value, const char *words) { QTest::addRow("%.17g", value) << value << words; };
    row(12.5, "اثنا عشر  و خمسة");
    row(12.05, "اثنا عشر  و خمسة"); // the zero before it is lost
    row(12.25, "اثنا عشر  و خمسة و عشرون");
    row(21.11, "واحد و عشرون  و أحد عشر");
    row(3.125, "ثلاثة  و مائة و خمسة و عشرون");
    row(3.2, "ثلاثة  و "); // two of something unnamed is nothing
    row(3.1, "ثلاثة  و ");
    row(3.102, "ثلاثة  و مائة و اثنان");
    row(3.002, "ثلاثة  و ");
    row(100.2, "مائة  و ");
    row(0.5, " و خمسة");
    row(1.5, " و خمسة"); // a lone 1 or 2 is nothing, too
    row(2.5, " و خمسة");
    row(1000.5, "ألف  و خمسة");
    row(2000.5, "ألفا  و خمسة"); // the whole part is exactly two thousand
    // Only six digits count, and of the decimals only the last two beyond three digits.
    row(3.1234, "ثلاثة  و أربعة و ثلاثون");
    row(3.12345, "ثلاثة  و خمسة و أربعون");
    row(3.12300, "ثلاثة  و مائة و ثلاثة و عشرون");
    row(3.12003, "ثلاثة  و ثلاثة");
    row(3.4567891, "ثلاثة  و تسعة و سبعون");
    row(12345.67, "اثنا عشر ألفاً و ثلاثمائة و خمسة و أربعون  و سبعة");
    row(123456.7, "مائة و ثلاثة و عشرون ألفاً و أربعمائة و ستة و خمسون ");
    row(999999.5, "تسعمائة و تسعة و تسعون ألفاً و تسعمائة و تسعة و تسعون ");
    row(2999999.75, "مليونان و تسعمائة و تسعة و تسعون ألفاً و تسعمائة و تسعة و تسعون ");
    row(0.00001, "");
    row(2999.999, "ألفان و تسعمائة و تسعة و تسعون ");
}

void TestNumbersToWordsArabic::decimals()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    QCOMPARE(arabic(value), words);
}

/// The lower groups of these values are what binary digits leave of the zeros, so only the highest is looked at.
void TestNumbersToWordsArabic::noScaleWordBeyondTheSextillions()
{
    QVERIFY(arabic(3e24).startsWith("ثلاثة  و "));
    QVERIFY(arabic(13e24).startsWith("ثلاثة عشر  و "));
    QVERIFY(!arabic(2e24).startsWith("اثنان")); // a lone 1 or 2 has no word there
    QVERIFY(!arabic(1e24).startsWith("واحد"));
}

void TestNumbersToWordsArabic::agreesWithTheReference()
{
    const Reference reference;
    const QVector<qint64> allNumbers = numbersBelow(1000000000000);
    for (const qint64 number : allNumbers)
        QCOMPARE(arabic(static_cast<double>(number)), reference.spell(number));
}

void TestNumbersToWordsArabic::isAnObject()
{
    QObject parent;
    auto *const words = new NumberToArabicWord(11005, &parent);
    QCOMPARE(parent.children(), QObjectList{words});
    QCOMPARE(words->spell(), QStringLiteral("أحد عشر ألفاً و خمسة "));
    QCOMPARE(words->spell(), QStringLiteral("أحد عشر ألفاً و خمسة "));
    QCOMPARE(NumberToArabicWord(-3.5).spell(), QString());
    QCOMPARE(NumberToArabicWord(qInf()).spell(), QString());
    QCOMPARE(NumberToArabicWord(qQNaN()).spell(), QString());
}

QTEST_APPLESS_MAIN(TestNumbersToWordsArabic)
#include "tst_numberstowords_arabic.moc"
