#include "dispatchdata.h"
#include "forms.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QUrl>
#include <QUrlQuery>

using Dialog = Form<DialogReport>;

namespace {

/// What of an address follows the recipients when nothing was ordered.
const char subject[] = "&subject=Strojárne 04.05.2031 - Obed : objednávka &body=";

QString text(const char *recipients, const char *body)
{
    return QStringLiteral("mailto:?") + QString::fromUtf8(recipients) + QString::fromUtf8(subject)
        + QString::fromUtf8(body);
}

/// The value of a field as a mail program reads it: all between "&NAME=" and the next "&", with the escapes resolved.
QString field(const QUrl &url, const char *name)
{
    return QUrlQuery(url).queryItemValue(QLatin1String(name), QUrl::FullyDecoded);
}

/// The names of the fields, in their order.
QString fields(const QUrl &url)
{
    QStringList names;
    const auto items = QUrlQuery(url).queryItems();
    for (const auto &item : items)
        names.append(item.first);
    return names.join(QLatin1Char(' '));
}

/// The address as the mail program gets it, from "&body=" on.
QString encodedBody(const QUrl &url)
{
    const QString address = url.toString(QUrl::FullyEncoded);
    return address.mid(address.indexOf(QLatin1String("&body=")) + 6);
}

} // namespace

/// What the send button hands to the desktop, as the desktop gets it.
class TestDialogReportMail : public QObject {
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void allSuppliers();
    void oneSupplier();
    void allBranches();
    void nothingOrderedInTheSlot();
    void supplierWithoutMail();
    void noSupplier();
    void mailsEnteredByTurns();
    void blindCopies();
    void noBranchMails();
    void sentTwice();
    void menuOfTheOpening();
    void completeEncodedAddress();
    void proxiesStayWithTheDialog();
    void foodNames_data();
    void foodNames();
    void otherNames_data();
    void otherNames();
    void hostileSupplierNameIsNotSent();
    void hostileMails_data();
    void hostileMails();
    void aNameCanAddARecipient();
    void percentSignsOfOneAddressDependOnEachOther();
    void longWords();

private:
    std::unique_ptr<Dialog> dialog(uint bid = 1, uint segmentID = 1) const
    {
        return std::make_unique<Dialog>(DispatchData::day(), segmentID, bid, m_database->db());
    }
    /// Sends with a row of the suppliers current, and gives the addresses as text, escapes resolved.
    QStringList sent(const Dialog &form, int row = 0)
    {
        m_opened.clear();
        form.select("listViewSuppliers", row);
        form.button("pushButtonSend")->click();
        QStringList texts;
        for (const QUrl &url : qAsConst(m_opened))
            texts.append(QUrl::fromPercentEncoding(url.toEncoded()));
        return texts;
    }
    /// The one message to the supplier of food 23.
    QUrl sentToBistro()
    {
        const auto form = dialog();
        sent(*form, 2);
        return m_opened.value(0);
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DispatchData> m_data;
    QList<QUrl> m_opened;
};

void TestDialogReportMail::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "openUrl");
}

void TestDialogReportMail::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
    m_data.reset();
    m_database.reset();
}

void TestDialogReportMail::init()
{
    m_data.reset();
    m_data = std::make_unique<DispatchData>(*m_database);
    m_opened.clear();
}

void TestDialogReportMail::allSuppliers()
{
    const auto form = dialog();
    QCOMPARE(sent(*form),
             (QStringList{text("to=pec@pekaren.sk&cc=druhy@pekaren.sk&cc=treti@pekaren.sk", "Vývar 4 \nGuláš 3 \n"),
                          text("to=", "Rezeň 1 \n"), text("to=gril@gril.sk", "Žiadne objednávky.")}));
    for (const QUrl &url : qAsConst(m_opened)) {
        QVERIFY(url.isValid());
        QCOMPARE(url.scheme(), QStringLiteral("mailto"));
        QCOMPARE(url.path(), QString());
        QVERIFY(!url.hasFragment());
    }
    QCOMPARE(fields(m_opened.first()), QStringLiteral("to cc cc subject body"));
}

void TestDialogReportMail::oneSupplier()
{
    const auto form = dialog();
    QCOMPARE(sent(*form, 1),
             QStringList{text("to=pec@pekaren.sk&cc=druhy@pekaren.sk&cc=treti@pekaren.sk", "Vývar 4 \nGuláš 3 \n")});
    QCOMPARE(sent(*form, 3), QStringList{text("to=gril@gril.sk", "Žiadne objednávky.")});
}

void TestDialogReportMail::allBranches()
{
    const auto form = dialog(0);
    QCOMPARE(sent(*form), QStringList{text("to=objednavky@jedalen.sk&cc=kuchyna@jedalen.sk", "Halušky 6 \n")});
}

void TestDialogReportMail::nothingOrderedInTheSlot()
{
    const auto form = dialog(1, 2);
    const QStringList addresses = sent(*form);
    QCOMPARE(addresses.size(), 3);
    for (const QString &address : addresses)
        QVERIFY2(address.endsWith(QStringLiteral("04.05.2031 - Večera : objednávka &body=Žiadne objednávky.")),
                 qPrintable(address));
}

void TestDialogReportMail::supplierWithoutMail()
{
    const auto form = dialog();
    QCOMPARE(sent(*form, 2), QStringList{text("to=", "Rezeň 1 \n")});
    QCOMPARE(field(m_opened.first(), "to"), QString());
}

void TestDialogReportMail::noSupplier()
{
    const auto form = dialog(2);
    BoxAnswerer boxes;
    QCOMPARE(sent(*form), QStringList());
    QTest::qWait(20);
    BOXES_DONE(boxes);
}

/// Every supplier gets its message, in whatever order the addresses were entered.
void TestDialogReportMail::mailsEnteredByTurns()
{
    m_data->exec("DELETE FROM via_suppliermails");
    m_data->exec("INSERT INTO via_suppliermails (supplierID, mail) VALUES (2, 'a@2.sk'), (3, 'a@3.sk'), (4, 'a@4.sk'), "
                 "(2, 'b@2.sk'), (3, 'b@3.sk'), (4, 'b@4.sk')");
    const auto form = dialog();
    QCOMPARE(
        sent(*form),
        (QStringList{text("to=a@2.sk&cc=b@2.sk", "Vývar 4 \nGuláš 3 \n"), text("to=a@3.sk&cc=b@3.sk", "Rezeň 1 \n"),
                     text("to=a@4.sk&cc=b@4.sk", "Žiadne objednávky.")}));
}

void TestDialogReportMail::blindCopies()
{
    const auto form = dialog();
    const QStringList without = sent(*form);
    for (const QString &address : without)
        QVERIFY(!address.contains(QLatin1String("&bcc=")));
    form->find<QCheckBox>("checkBoxCopyToBranch")->setChecked(true);
    const QStringList with = sent(*form);
    QStringList expected;
    for (QString address : without)
        expected.append(address.replace(QLatin1String("&subject="),
                                        QLatin1String("&bcc=vyroba@firma.sk&bcc=sef@firma.sk&subject=")));
    QCOMPARE(with, expected);
    QCOMPARE(fields(m_opened.first()), QStringLiteral("to cc cc bcc bcc subject body"));
    form->find<QCheckBox>("checkBoxCopyToBranch")->setChecked(false);
    QCOMPARE(sent(*form), without);
}

void TestDialogReportMail::noBranchMails()
{
    m_data->exec("DELETE FROM via_branchmails");
    const auto form = dialog();
    form->find<QCheckBox>("checkBoxCopyToBranch")->setChecked(true);
    QCOMPARE(sent(*form, 3), QStringList{text("to=gril@gril.sk", "Žiadne objednávky.")});
}

void TestDialogReportMail::sentTwice()
{
    const auto form = dialog();
    const QStringList first = sent(*form);
    QCOMPARE(sent(*form), first);
}

/// The orders are those that stood when the dialog opened.
void TestDialogReportMail::menuOfTheOpening()
{
    const auto form = dialog();
    m_data->exec("INSERT INTO via_orders (orderableID, uid, quantity, ordered) VALUES (124, 7, 2, 'x')");
    QCOMPARE(sent(*form, 3), QStringList{text("to=gril@gril.sk", "Žiadne objednávky.")});
    QCOMPARE(sent(*dialog(), 3), QStringList{text("to=gril@gril.sk", "Steak 2 \n")});
}

void TestDialogReportMail::completeEncodedAddress()
{
    const auto form = dialog();
    sent(*form, 1);
    QCOMPARE(m_opened.first().toString(QUrl::FullyEncoded),
             QStringLiteral("mailto:?to=pec@pekaren.sk&cc=druhy@pekaren.sk&cc=treti@pekaren.sk"
                            "&subject=Stroj%C3%A1rne%2004.05.2031%20-%20Obed%20:%20objedn%C3%A1vka%20"
                            "&body=V%C3%BDvar%204%20%0AGul%C3%A1%C5%A1%203%20%0A"));
    QCOMPARE(field(m_opened.first(), "subject"), QStringLiteral("Strojárne 04.05.2031 - Obed : objednávka "));
    QCOMPARE(field(m_opened.first(), "body"), QStringLiteral("Vývar 4 \nGuláš 3 \n"));
}

void TestDialogReportMail::proxiesStayWithTheDialog()
{
    const auto form = dialog();
    const int before = form->findChildren<QSortFilterProxyModel *>().size();
    QCOMPARE(before, 1);
    sent(*form);
    QCOMPARE(form->findChildren<QSortFilterProxyModel *>().size(), before + 3);
}

void TestDialogReportMail::foodNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("encoded"); // the address from "&body=" on
    QTest::addColumn<QString>("body"); // what a mail program makes of it
    const auto row = [](const char *tag, const char *name, const char *encoded, const char *body) {
        QTest::newRow(tag) << QString::fromUtf8(name) << QString::fromUtf8(encoded) << QString::fromUtf8(body);
    };
    row("ampersand", "Fish & chips", "Fish%20&%20chips%201%20%0A", "Fish ");
    row("hash", "Menu #2", "Menu%20#2%201%20%0A", "Menu ");
    row("percent", "100% mäso", "100%25%20m%C3%A4so%201%20%0A", "100% mäso 1 \n");
    row("percent and two hex digits", "50%20zľava", "50%20z%C4%BEava%201%20%0A", "50 zľava 1 \n");
    row("percent at the end", "Mäso 100%", "M%C3%A4so%20100%25%201%20%0A", "Mäso 100% 1 \n");
    row("placeholder", "%1 %2 %3", "%251%20%252%20%253%201%20%0A", "%1 %2 %3 1 \n");
    row("question mark", "Prečo?", "Pre%C4%8Do?%201%20%0A", "Prečo? 1 \n");
    row("markup", "<b>Rezeň</b>", "%3Cb%3EReze%C5%88%3C/b%3E%201%20%0A", "<b>Rezeň</b> 1 \n");
    row("line feed", "Rezeň\nkuracie", "Reze%C5%88%0Akuracie%201%20%0A", "Rezeň\nkuracie 1 \n");
    row("Windows line break", "a\r\nb", "a%0D%0Ab%201%20%0A", "a\r\nb 1 \n");
    row("tab", "a\tb", "a%09b%201%20%0A", "a\tb 1 \n");
    row("quotes", "\"Rezeň\" 'O''Hara'", "%22Reze%C5%88%22%20'O''Hara'%201%20%0A", "\"Rezeň\" 'O''Hara' 1 \n");
    row("diacritics", "Ďateľ, žĺtok", "%C4%8Eate%C4%BE,%20%C5%BE%C4%BAtok%201%20%0A", "Ďateľ, žĺtok 1 \n");
    row("four bytes", "\U0001F372", "%F0%9F%8D%B2%201%20%0A", "\U0001F372 1 \n");
    row("plus", "ryža + šalát", "ry%C5%BEa%20+%20%C5%A1al%C3%A1t%201%20%0A", "ryža + šalát 1 \n");
    row("equals", "a=b;c,d:e", "a=b;c,d:e%201%20%0A", "a=b;c,d:e 1 \n");
    row("brackets", "[a] {b} |c\\d^e`", "[a]%20%7Bb%7D%20%7Cc%5Cd%5Ee%60%201%20%0A", "[a] {b} |c\\d^e` 1 \n");
    row("blanks", "a  b ", "a%20%20b%20%201%20%0A", "a  b  1 \n");
    row("address", "mailto:x@y.sk", "mailto:x@y.sk%201%20%0A", "mailto:x@y.sk 1 \n");
    row("empty", "", "%201%20%0A", " 1 \n");
}

void TestDialogReportMail::foodNames()
{
    QFETCH(QString, name);
    m_data->rename("via_foods", "name", "foodID", 23, name);
    const QUrl url = sentToBistro();
    QVERIFY2(url.isValid(), qPrintable(url.errorString()));
    QTEST(encodedBody(url), "encoded");
    QTEST(field(url, "body"), "body");
    QCOMPARE(field(url, "subject"), QStringLiteral("Strojárne 04.05.2031 - Obed : objednávka "));
}

/// Names of the company and of the slot stand in the subject.
void TestDialogReportMail::otherNames_data()
{
    QTest::addColumn<QString>("company");
    QTest::addColumn<QString>("segment");
    QTest::addColumn<QString>("subject");
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("fragment");
    const QString body = QStringLiteral("Rezeň 1 \n");
    const auto row = [](const char *tag, const char *company, const char *segment, const char *subjectText,
                        const QString &bodyText, const QString &fragment = QString()) {
        QTest::newRow(tag) << QString::fromUtf8(company) << QString::fromUtf8(segment) << QString::fromUtf8(subjectText)
                           << bodyText << fragment;
    };
    row("company with ampersand", "Novák & syn", "Obed", "Novák ", body);
    row("slot with ampersand", "Firma", "Obed & večera", "Firma 04.05.2031 - Obed ", body);
    row("company with hash", "C# s.r.o.", "Obed", "C", QString(),
        QStringLiteral(" s.r.o. 04.05.2031 - Obed : objednávka &body=Rezeň 1 \n"));
    row("slot with hash", "Firma", "Obed #1", "Firma 04.05.2031 - Obed ", QString(),
        QStringLiteral("1 : objednávka &body=Rezeň 1 \n"));
    row("percent", "100 % Firma", "%1%2%3", "100 % Firma 04.05.2031 - %1%2%3 : objednávka ", body);
    row("question marks", "Čo?", "Obed?", "Čo? 04.05.2031 - Obed? : objednávka ", body);
    row("markup", "<b>Firma</b>", "<i>Obed</i>", "<b>Firma</b> 04.05.2031 - <i>Obed</i> : objednávka ", body);
    row("line breaks", "Firma\ns.r.o.", "Obed\r\n1", "Firma\ns.r.o. 04.05.2031 - Obed\r\n1 : objednávka ", body);
    row("quotes", "\"Firma\"", "O'Hara", "\"Firma\" 04.05.2031 - O'Hara : objednávka ", body);
    row("empty", "", "", " 04.05.2031 -  : objednávka ", body);
}

void TestDialogReportMail::otherNames()
{
    QFETCH(QString, company);
    QFETCH(QString, segment);
    session().companyName = company;
    m_data->rename("via_segments", "name", "segmentID", 1, segment);
    const QUrl url = sentToBistro();
    QVERIFY2(url.isValid(), qPrintable(url.errorString()));
    QTEST(field(url, "subject"), "subject");
    QTEST(field(url, "body"), "body");
    QTEST(url.fragment(QUrl::FullyDecoded), "fragment");
}

void TestDialogReportMail::hostileSupplierNameIsNotSent()
{
    const QString address = sentToBistro().toString();
    m_data->rename("via_suppliers", "name", "supplierID", 3, QStringLiteral("A & B #1 100% <b> ?\n\"x\""));
    const auto form = dialog();
    sent(*form, 2);
    QCOMPARE(m_opened.first().toString(), address);
}

void TestDialogReportMail::hostileMails_data()
{
    QTest::addColumn<QString>("mail");
    QTest::addColumn<QString>("encoded");
    QTest::addColumn<QString>("to");
    const auto row = [](const char *tag, const char *mail, const char *encoded, const char *to) {
        QTest::newRow(tag) << QString::fromUtf8(mail) << QString::fromUtf8(encoded) << QString::fromUtf8(to);
    };
    row("ampersand", "a&b@c.sk", "mailto:?to=a&b@c.sk&subject=", "a");
    row("hash", "a#b@c.sk", "mailto:?to=a#b@c.sk&subject=", "a");
    row("percent", "50%zl@c.sk", "mailto:?to=50%25zl@c.sk&subject=", "50%zl@c.sk");
    row("percent and two hex digits", "a%40b@c.sk", "mailto:?to=a%40b@c.sk&subject=", "a@b@c.sk");
    row("question mark", "a?b@c.sk", "mailto:?to=a?b@c.sk&subject=", "a?b@c.sk");
    row("markup", "Ján <a@b.sk>", "mailto:?to=J%C3%A1n%20%3Ca@b.sk%3E&subject=", "Ján <a@b.sk>");
    row("line feed", "a@b.sk\nc@d.sk", "mailto:?to=a@b.sk%0Ac@d.sk&subject=", "a@b.sk\nc@d.sk");
    row("quotes", "\"a b\"@c.sk", "mailto:?to=%22a%20b%22@c.sk&subject=", "\"a b\"@c.sk");
    row("plus", "a+b@c.sk", "mailto:?to=a+b@c.sk&subject=", "a+b@c.sk");
    row("list", "a@b.sk,c@d.sk", "mailto:?to=a@b.sk,c@d.sk&subject=", "a@b.sk,c@d.sk");
}

void TestDialogReportMail::hostileMails()
{
    QFETCH(QString, mail);
    QFETCH(QString, encoded);
    m_data->exec("INSERT INTO via_suppliermails (supplierMailID, supplierID, mail) VALUES (30, 3, 'x')");
    m_data->rename("via_suppliermails", "mail", "supplierMailID", 30, mail);
    const QUrl url = sentToBistro();
    QVERIFY2(url.isValid(), qPrintable(url.errorString()));
    const QString address = url.toString(QUrl::FullyEncoded);
    QVERIFY2(address.startsWith(encoded), qPrintable(address));
    QTEST(field(url, "to"), "to");
}

/// Nothing is escaped, so a name can say what an address can. The user sees the message before it goes out.
void TestDialogReportMail::aNameCanAddARecipient()
{
    m_data->rename("via_foods", "name", "foodID", 23, QStringLiteral("Rezeň&bcc=x@y.sk&subject=Iné"));
    const QUrl url = sentToBistro();
    QCOMPARE(fields(url), QStringLiteral("to subject body bcc subject"));
    QCOMPARE(field(url, "bcc"), QStringLiteral("x@y.sk"));
    QCOMPARE(field(url, "body"), QStringLiteral("Rezeň"));
}

/// As soon as one percent sign of an address is not the beginning of an escape, all of them are meant as they stand.
void TestDialogReportMail::percentSignsOfOneAddressDependOnEachOther()
{
    m_data->rename("via_foods", "name", "foodID", 11, QStringLiteral("50%20zľava"));
    m_data->rename("via_foods", "name", "foodID", 21, QStringLiteral("100% mäso"));
    const auto form = dialog();
    sent(*form, 1);
    QCOMPARE(encodedBody(m_opened.first()), QStringLiteral("50%2520z%C4%BEava%204%20%0A100%25%20m%C3%A4so%203%20%0A"));
    QCOMPARE(field(m_opened.first(), "body"), QStringLiteral("50%20zľava 4 \n100% mäso 3 \n"));
}

void TestDialogReportMail::longWords()
{
    const QString word(10000, QLatin1Char('W'));
    session().companyName = word + QLatin1Char('c');
    m_data->rename("via_segments", "name", "segmentID", 1, word + QLatin1Char('s'));
    m_data->rename("via_foods", "name", "foodID", 23, word + QLatin1Char('f'));
    m_data->exec("INSERT INTO via_suppliermails (supplierMailID, supplierID, mail) VALUES (30, 3, 'x')");
    m_data->rename("via_suppliermails", "mail", "supplierMailID", 30, word + QStringLiteral("@b.sk"));
    const QUrl url = sentToBistro();
    QVERIFY(url.isValid());
    QCOMPARE(field(url, "to"), word + QStringLiteral("@b.sk"));
    QCOMPARE(field(url, "subject"),
             word + QStringLiteral("c 04.05.2031 - ") + word + QStringLiteral("s : objednávka "));
    QCOMPARE(field(url, "body"), word + QStringLiteral("f 1 \n"));
}

QTEST_MAIN(TestDialogReportMail)
#include "tst_dialogreportmail.moc"
