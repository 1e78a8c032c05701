#include "forms.h"
#include "suppliers/mailaddress.h"

#include <QElapsedTimer>

class TestMailAddress : public QObject {
    Q_OBJECT

private slots:
    void pattern_data();
    void pattern();
    void longTexts_data();
    void longTexts();
    void question_data();
    void question();
    void questionOutlivesItsParent();
};

void TestMailAddress::pattern_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isMail");
    const auto row = [](const char *text, bool isMail) { QTest::newRow(text) << QString::fromUtf8(text) << isMail; };
    row("jedalen@firma.sk", true);
    row("JEDALEN@FIRMA.SK", true);
    row("Jan.Novak@Firma.Sk", true);
    row("a@b.sk", true);
    row("1@2.sk", true);
    row("a.b_c%d+e-f@g-h.i.com", true);
    row("_a@b.sk", true);
    row("a@b.info", true);
    row("a@b.c", false);
    row("a@b.museum", false);
    row("a@museum.sk", true);
    row("a@b.museu.sk", true);
    row("a@b.s1", false);
    row("a@b.sk.", false);
    row("a@b..sk", true);
    row("a@-.sk", true);
    row("a@.sk", false);
    row("a..b@c.sk", true);
    row(".a@b.sk", false);
    row("+a@b.sk", false);
    row("-a@b.sk", false);
    row("%1@b.sk", false);
    row("", false);
    row(" ", false);
    row("@", false);
    row("a", false);
    row("a@b", false);
    row("@b.sk", false);
    row("a@", false);
    row("a@b@c.sk", false);
    row("a@@b.sk", false);
    row(" a@b.sk", false);
    row("a@b.sk ", false);
    row("a b@c.sk", false);
    row("a@b c.sk", false);
    row("a@b.sk\n", false);
    row("\ta@b.sk", false);
    row("a@b.sk, c@d.sk", false);
    row("a@b.sk;c@d.sk", false);
    row("Ján <a@b.sk>", false);
    row("<b>a@b.sk</b>", false);
    row("mailto:a@b.sk", false);
    row("'a'@b.sk", false);
    row("a\\b@c.sk", false);
    row("žofia@firma.sk", false);
    row("zofia@čerpadlá.sk", false);
    row("zofia@firma.šk", false);
    row("😀@firma.sk", false);
    row("a_b@c_d.sk", false);
    row("a@127.0.0.1", false);
}

void TestMailAddress::pattern()
{
    QFETCH(QString, text);
    QTEST(isMailAddress(text), "isMail");
}

void TestMailAddress::longTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isMail");
    const QString a(10000, QLatin1Char('a'));
    const QString aDots = QStringLiteral("a.").repeated(5000);
    QTest::newRow("long local part") << a + QStringLiteral("@b.sk") << true;
    QTest::newRow("long domain") << QStringLiteral("a@") + a + QStringLiteral(".sk") << true;
    QTest::newRow("many parts") << QStringLiteral("a@") + aDots + QStringLiteral("sk") << true;
    QTest::newRow("no at") << a << false;
    QTest::newRow("no dot") << QStringLiteral("a@") + a << false;
    QTest::newRow("dots only") << QStringLiteral("a@") + QString(10000, QLatin1Char('.')) << false;
    QTest::newRow("ends badly") << QStringLiteral("a@") + aDots + QLatin1Char('!') << false;
    QTest::newRow("many ats") << QStringLiteral("a@").repeated(5000) + QStringLiteral("b.sk") << false;
    QTest::newRow("blanks") << QString(10000, QLatin1Char(' ')) << false;
}

void TestMailAddress::longTexts()
{
    QFETCH(QString, text);
    QElapsedTimer watch;
    watch.start();
    QTEST(isMailAddress(text), "isMail");
    QVERIFY2(watch.elapsed() < 1000, qPrintable(QString::number(watch.elapsed())));
}

void TestMailAddress::question_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QString>("mail");
    QTest::newRow("address") << "a@b.sk" << true << "a@b.sk";
    QTest::newRow("cancelled") << "a@b.sk" << false << "";
    QTest::newRow("empty") << "" << true << "";
    QTest::newRow("bad") << "a@b.museum" << true << "";
    QTest::newRow("blank behind") << "a@b.sk " << true << "";
}

void TestMailAddress::question()
{
    QFETCH(QString, typed);
    QFETCH(bool, accept);
    QWidget page;
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Pridanie"), QStringLiteral("start"), typed, accept);
    QTEST(askMailAddress(&page, QStringLiteral("Pridanie"), QStringLiteral("Email: "), QStringLiteral("start")),
          "mail");
    BOXES_DONE(boxes);
}

void TestMailAddress::questionOutlivesItsParent()
{
    auto page = std::make_unique<QWidget>();
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("QInputDialog"), [&page](QDialog *) { page.reset(); });
    QCOMPARE(
        askMailAddress(page.get(), QStringLiteral("Pridanie"), QStringLiteral("Email: "), QStringLiteral("a@b.sk")),
        QString());
    BOXES_DONE(boxes);
}

QTEST_MAIN(TestMailAddress)
#include "tst_mailaddress.moc"
