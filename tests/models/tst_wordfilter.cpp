#include "models/wordfilter.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

/// The rule without any haste: one expression for each word and row.
bool plainlyAccepts(const QString &searchText, const QString &text)
{
    const QStringList words = searchText.toLower().split(QLatin1Char(' '));
    int hits = 0;
    for (const QString &word : words) {
        const QRegExp pattern(QStringLiteral("*%1*").arg(word), Qt::CaseSensitive, QRegExp::Wildcard);
        hits += pattern.exactMatch(text) ? 1 : 0;
    }
    return hits == words.size() || searchText.isEmpty();
}

QString randomText(QRandomGenerator &generator, const QString &alphabet)
{
    QString text;
    for (int length = generator.bounded(10); length > 0; --length)
        text += alphabet.at(generator.bounded(alphabet.size()));
    return text;
}

} // namespace

class TestWordFilter : public QObject {
    Q_OBJECT

private slots:
    void accepts_data();
    void accepts();
    void sameAsThePlainRule();
};

void TestWordFilter::accepts_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    const QString soup = QStringLiteral("polievka kuracia so slížikmi 100% [a] c\\d");

    QTest::newRow("empty search") << QString() << soup << true;
    QTest::newRow("empty search, empty text") << QString() << QString() << true;
    QTest::newRow("two blanks are three empty words") << QStringLiteral("  ") << QString() << true;
    QTest::newRow("one word") << QStringLiteral("kurac") << soup << true;
    QTest::newRow("another word") << QStringLiteral("hov") << soup << false;
    QTest::newRow("two words in the other order") << QStringLiteral("kur pol") << soup << true;
    QTest::newRow("one of two is missing") << QStringLiteral("kur hov") << soup << false;
    QTest::newRow("search in capitals") << QStringLiteral("SLÍŽ") << soup << true;
    QTest::newRow("accents count") << QStringLiteral("sliz") << soup << false;
    QTest::newRow("blank at the end") << QStringLiteral("kur ") << soup << true;
    QTest::newRow("asterisk alone") << QStringLiteral("*") << soup << true;
    QTest::newRow("asterisk on empty text") << QStringLiteral("*") << QString() << true;
    QTest::newRow("asterisk between") << QStringLiteral("pol*slí") << soup << true;
    QTest::newRow("pieces in the wrong order") << QStringLiteral("slí*pol") << soup << false;
    QTest::newRow("pieces do not overlap") << QStringLiteral("ab*ba") << QStringLiteral("aba") << false;
    QTest::newRow("question mark is one character") << QStringLiteral("k?racia") << soup << true;
    QTest::newRow("question mark is not none") << QStringLiteral("ku?racia") << soup << false;
    QTest::newRow("question mark needs a character") << QStringLiteral("?") << QString() << false;
    QTest::newRow("as many as there are") << QStringLiteral("???") << QStringLiteral("abc") << true;
    QTest::newRow("one more than there are") << QStringLiteral("????") << QStringLiteral("abc") << false;
    QTest::newRow("set") << QStringLiteral("[kp]ol") << soup << true;
    QTest::newRow("set without it") << QStringLiteral("[xy]ol") << soup << false;
    QTest::newRow("negated set") << QStringLiteral("[^p]ol") << QStringLiteral("pol") << false;
    QTest::newRow("opening bracket matches nothing") << QStringLiteral("[") << soup << false;
    QTest::newRow("until it is closed") << QStringLiteral("[a") << soup << false;
    QTest::newRow("now it is closed") << QStringLiteral("[a]") << soup << true;
    QTest::newRow("closing bracket alone matches nothing") << QStringLiteral("]") << soup << false;
    QTest::newRow("percent number is no place marker") << QStringLiteral("%1") << QStringLiteral("a %1 b") << true;
    QTest::newRow("percent is a character") << QStringLiteral("100%") << soup << true;
    QTest::newRow("dot is a character") << QStringLiteral(".") << QStringLiteral("a") << false;
    QTest::newRow("brace, plus and bar are characters") << QStringLiteral("{a+|") << QStringLiteral("x{a+|y") << true;
    QTest::newRow("across lines") << QStringLiteral("a*b") << QStringLiteral("a\nb") << true;
}

void TestWordFilter::accepts()
{
    QFETCH(const QString, search);
    QFETCH(const QString, text);
    QFETCH(const bool, accepted);

    QCOMPARE(WordFilter(search).accepts(text), accepted);
    QCOMPARE(plainlyAccepts(search, text), accepted);
    QVERIFY(WordFilter().accepts(text));
}

void TestWordFilter::sameAsThePlainRule()
{
    QRandomGenerator generator(20260112);
    const QString typed = QStringLiteral("abAB**??[]\\^-! ");
    const QString stored = QStringLiteral("aabb]c[\\ -*^?\n");
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 40000; ++round) {
        const QString search = randomText(generator, typed);
        const QString text = randomText(generator, stored);
        const bool expected = plainlyAccepts(search, text);
        QVERIFY2(WordFilter(search).accepts(text) == expected, qPrintable(search + QStringLiteral(" in ") + text));
        ++(expected ? accepted : refused);
    }
    QVERIFY(accepted > 2000);
    QVERIFY(refused > 2000);
}

QTEST_GUILESS_MAIN(TestWordFilter)
#include "tst_wordfilter.moc"
