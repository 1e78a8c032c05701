#include "report/numberstowords.h"

#include "support/logcatcher.h"

#include <QtTest>

#include <limits>

/// The choice of the language, and the values that every language treats alike.
class TestNumbersToWords : public QObject {
    Q_OBJECT

private slots:
    void everyKey_data();
    void everyKey();
    void otherKeysAreEnglish_data();
    void otherKeysAreEnglish();
    void noTextBelowZeroOrWithoutEnd_data() { addKeys(); }
    void noTextBelowZeroOrWithoutEnd();
    void negativeZeroIsZero_data() { addKeys(); }
    void negativeZeroIsZero();
    void hugeValuesEnd_data() { addKeys(); }
    void hugeValuesEnd();
    void sameAnswerTwice_data() { addKeys(); }
    void sameAnswerTwice();

private:
    static void addKeys();
};

void TestNumbersToWords::addKeys()
{
    QTest::addColumn<QString>("key");
    for (const char *const key : {"UKR", "GER", "ENG", "ESP", "FR_FR", "FR_BE", "FR_CH", "ITA", "AR", "XX"})
        QTest::newRow(key) << key;
}

void TestNumbersToWords::everyKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("zero");
    QTest::addColumn<QString>("eightyTwo");
    QTest::newRow("UKR") << "UKR"
                         << "Ноль гривень, 00 копійок"
                         << "Вісімдесят дві гривні, 00 копійок";
    QTest::newRow("GER") << "GER"
                         << "null"
                         << "zweiundachtzig";
    QTest::newRow("ENG") << "ENG"
                         << "zero"
                         << "eighty-two";
    QTest::newRow("ESP") << "ESP"
                         << ""
                         << "ochenta y dos ";
    QTest::newRow("FR_FR") << "FR_FR"
                           << "zéro"
                           << "quatre-vingt-deux";
    QTest::newRow("FR_BE") << "FR_BE"
                           << "zéro"
                           << "quatre-vingt-deux";
    QTest::newRow("FR_CH") << "FR_CH"
                           << "zéro"
                           << "huitante-deux";
    QTest::newRow("ITA") << "ITA"
                         << "zero"
                         << "ottantadue";
    QTest::newRow("AR") << "AR"
                        << "صفر"
                        << "اثنان و ثمانون ";
}

void TestNumbersToWords::everyKey()
{
    QFETCH(QString, key);
    QTEST(numberToWords(0, key), "zero");
    QTEST(numberToWords(82, key), "eightyTwo");
}

void TestNumbersToWords::otherKeysAreEnglish_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("unknown") << "XX";
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("lower case") << "ger";
    QTest::newRow("mixed case") << "Ita";
    QTest::newRow("blank before") << " UKR";
    QTest::newRow("blank after") << "UKR ";
    QTest::newRow("start of a key") << "FR";
    QTest::newRow("longer than a key") << "FR_FRA";
    QTest::newRow("Russian has no key") << "RUS";
    QTest::newRow("zero character") << QString::fromLatin1("GER\0x", 5);
    QTest::newRow("wide letters") << QString::fromUtf8("ＧＥＲ");
    QTest::newRow("placeholder and markup") << "%1<b>'\"\\";
    QTest::newRow("10,000 characters") << QString(10000, 'A');
}

void TestNumbersToWords::otherKeysAreEnglish()
{
    QFETCH(QString, key);
    QCOMPARE(numberToWords(42, key), QStringLiteral("forty-two"));
    QCOMPARE(numberToWords(1, key), QStringLiteral("one"));
}

void TestNumbersToWords::noTextBelowZeroOrWithoutEnd()
{
    QFETCH(QString, key);
    LogCatcher log;
    for (const double value :
         {-0.001, -0.5, -1.0, -2.0, -21.0, -999.0, -1234567.89, -1e18, -1e300, -qInf(), qInf(), qQNaN()})
        QCOMPARE(numberToWords(value, key), QString());
    QCOMPARE(log.lines(), QStringList());
}

void TestNumbersToWords::negativeZeroIsZero()
{
    QFETCH(QString, key);
    QCOMPARE(numberToWords(-0.0, key), numberToWords(0.0, key));
}

/// Far beyond every table, and the smallest number above nothing: an answer, and no endless loop.
void TestNumbersToWords::hugeValuesEnd()
{
    QFETCH(QString, key);
    const bool readsQuotients = key == "ENG" || key == "XX" || key == "GER" || key == "ITA";
    for (const double value : {1e25, 1e100, std::numeric_limits<double>::max()}) {
        const QString text = numberToWords(value, key);
        if (readsQuotients)
            QVERIFY2(text.contains("lion") || text.contains("liard"), qPrintable(text));
        else if (key != "AR")
            QCOMPARE(text, QString());
        QVERIFY(text.size() < 10000);
    }
    const QString tiny = key == "UKR" || key.startsWith("FR") ? numberToWords(0, key) : QString();
    QCOMPARE(numberToWords(std::numeric_limits<double>::denorm_min(), key), tiny);
}

void TestNumbersToWords::sameAnswerTwice()
{
    QFETCH(QString, key);
    const QString first = numberToWords(1234.56, key);
    QVERIFY(!first.isEmpty());
    QCOMPARE(numberToWords(1234.56, key), first);
}

QTEST_APPLESS_MAIN(TestNumbersToWords)
#include "tst_numberstowords.moc"
