#include "suppliers/ordermail.h"

#include <QElapsedTimer>
#include <QtTest>

using namespace OrderMail;

Q_DECLARE_METATYPE(OrderMail::Recipients)
Q_DECLARE_METATYPE(OrderMail::Order)

namespace {

/// A message in short: "supplier>to,copy,copy".
QStringList shortTexts(const QVector<Recipients> &messages)
{
    QStringList texts;
    for (const Recipients &message : messages)
        texts.append(QString::number(message.supplierID) + QLatin1Char('>')
                     + (QStringList{message.to} + message.copies).join(QLatin1Char(',')));
    return texts;
}

/// Rows in short: "1a 1b 2" are two rows of supplier 1 and one of supplier 2 without an address.
QVector<AddressRow> rowsOf(const QString &text)
{
    QVector<AddressRow> rows;
    const QStringList parts = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &part : parts)
        rows.append({part.leftRef(1).toUInt(), part.mid(1)});
    return rows;
}

Order lunch(const QVector<Item> &items)
{
    return {QStringLiteral("Strojárne"), QDate(2031, 5, 4), QStringLiteral("Obed"), items};
}

} // namespace

/// The order as the address of a mail.
class TestOrderMail : public QObject {
    Q_OBJECT

private slots:
    void recipients_data();
    void recipients();
    void manyRows();
    void address_data();
    void address();
    void itemsStandInTheirOrder();
};

void TestOrderMail::recipients_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("no rows") << "" << QStringList();
    QTest::newRow("one") << "1a" << QStringList{"1>a"};
    QTest::newRow("copies") << "1a 1b 1c" << QStringList{"1>a,b,c"};
    QTest::newRow("several suppliers") << "2a 2b 1c 3d 3e" << QStringList{"2>a,b", "1>c", "3>d,e"};
    QTest::newRow("no address") << "1a 2 3b" << QStringList{"1>a", "2>", "3>b"};
    QTest::newRow("the same address twice") << "1a 1a" << QStringList{"1>a,a"};
    QTest::newRow("key 0") << "0a 0b 1c" << QStringList{"0>a,b", "1>c"};
    // Rows of one supplier apart take each other along and skip what stands between them.
    QTest::newRow("skipped between") << "1a 2b 1c" << QStringList{"1>a,c"};
    QTest::newRow("skipped between, more behind") << "1a 2b 1c 3d" << QStringList{"1>a,c", "3>d"};
    QTest::newRow("skipped in part") << "1a 2b 1c 2d" << QStringList{"1>a,c", "2>d"};
    QTest::newRow("several skipped") << "1a 2b 3c 1d 3e" << QStringList{"1>a,d", "3>e"};
    QTest::newRow("apart twice") << "1a 2b 1c 2d 1e 2f" << QStringList{"1>a,c,e", "2>f"};
}

void TestOrderMail::recipients()
{
    QFETCH(QString, rows);
    QTEST(shortTexts(OrderMail::recipients(rowsOf(rows))), "messages");
}

void TestOrderMail::manyRows()
{
    QVector<AddressRow> rows;
    for (uint row = 0; row < 3000; ++row)
        rows.append({row / 3 + 1, QString::number(row)});
    QElapsedTimer watch;
    watch.start();
    const QStringList messages = shortTexts(OrderMail::recipients(rows));
    QVERIFY2(watch.elapsed() < 5000, qPrintable(QString::number(watch.elapsed())));
    QCOMPARE(messages.size(), 1000);
    QCOMPARE(messages.constLast(), QStringLiteral("1000>2997,2998,2999"));
}

void TestOrderMail::address_data()
{
    QTest::addColumn<Recipients>("recipients");
    QTest::addColumn<QStringList>("blindCopies");
    QTest::addColumn<Order>("order");
    QTest::addColumn<QString>("text");
    const Recipients one{1, QStringLiteral("a@b.sk"), {}};
    const Recipients more{1, QStringLiteral("a@b.sk"), {QStringLiteral("c@d.sk"), QStringLiteral("e@f.sk")}};
    const QVector<Item> items{{QStringLiteral("Guláš"), QStringLiteral("12")},
                              {QStringLiteral("Šúľance"), QStringLiteral("3")}};
    const QString subject = QStringLiteral("&subject=Strojárne 04.05.2031 - Obed : objednávka &body=");
    const QString none = QStringLiteral("Žiadne objednávky.");

    QTest::newRow("one item") << one << QStringList() << lunch({items.first()})
                              << "mailto:?to=a@b.sk" + subject + "Guláš 12 \n";
    QTest::newRow("items") << one << QStringList() << lunch(items)
                           << "mailto:?to=a@b.sk" + subject + "Guláš 12 \nŠúľance 3 \n";
    QTest::newRow("nothing ordered") << one << QStringList() << lunch({}) << "mailto:?to=a@b.sk" + subject + none;
    QTest::newRow("copies") << more << QStringList() << lunch({})
                            << "mailto:?to=a@b.sk&cc=c@d.sk&cc=e@f.sk" + subject + none;
    QTest::newRow("blind copies") << one << QStringList{"x@y.sk", "z@y.sk"} << lunch({})
                                  << "mailto:?to=a@b.sk&bcc=x@y.sk&bcc=z@y.sk" + subject + none;
    QTest::newRow("copies and blind copies")
        << more << QStringList{"x@y.sk"} << lunch(items)
        << "mailto:?to=a@b.sk&cc=c@d.sk&cc=e@f.sk&bcc=x@y.sk" + subject + "Guláš 12 \nŠúľance 3 \n";
    QTest::newRow("no address") << Recipients{1, QString(), {}} << QStringList() << lunch({})
                                << "mailto:?to=" + subject + none;
    QTest::newRow("no names, no date") << one << QStringList() << Order{QString(), QDate(), QString(), {Item()}}
                                       << QStringLiteral("mailto:?to=a@b.sk&subject=  -  : objednávka &body=  \n");
    QTest::newRow("placeholders stay")
        << Recipients{1, QStringLiteral("%1@b.sk"), {QStringLiteral("%2@b.sk")}} << QStringList{"%1%2%3@b.sk"}
        << Order{QStringLiteral("%3 %1"),
                 QDate(2031, 12, 24),
                 QStringLiteral("%2 %L1 %99"),
                 {{QStringLiteral("100% %1 %2"), QStringLiteral("%1")}}}
        << QStringLiteral("mailto:?to=%1@b.sk&cc=%2@b.sk&bcc=%1%2%3@b.sk&subject=%3 %1 24.12.2031 - %2 %L1 %99 : "
                          "objednávka &body=100% %1 %2 %1 \n");
    QTest::newRow("nothing is encoded")
        << one << QStringList()
        << Order{QStringLiteral("A & B #1"),
                 QDate(2031, 12, 24),
                 QStringLiteral("\"Obed\"?"),
                 {{QStringLiteral("<b>50%20</b>\nďalší"), QStringLiteral("1")}}}
        << QStringLiteral("mailto:?to=a@b.sk&subject=A & B #1 24.12.2031 - \"Obed\"? : objednávka &body=<b>50%20</b>\n"
                          "ďalší 1 \n");
}

void TestOrderMail::address()
{
    QFETCH(Recipients, recipients);
    QFETCH(QStringList, blindCopies);
    QFETCH(Order, order);
    QTEST(OrderMail::address(recipients, blindCopies, order), "text");
}

void TestOrderMail::itemsStandInTheirOrder()
{
    QVector<Item> items;
    for (int item = 0; item < 1000; ++item)
        items.append({QStringLiteral("jedlo %1").arg(item), QString::number(1000 - item)});
    const QString text = OrderMail::address({1, QStringLiteral("a@b.sk"), {}}, {}, lunch(items));
    const QStringList lines = text.mid(text.indexOf(QLatin1String("&body=")) + 6).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 1001);
    QCOMPARE(lines.first(), QStringLiteral("jedlo 0 1000 "));
    QCOMPARE(lines.at(999), QStringLiteral("jedlo 999 1 "));
    QCOMPARE(lines.last(), QString());
}

QTEST_MAIN(TestOrderMail)
#include "tst_ordermail.moc"
