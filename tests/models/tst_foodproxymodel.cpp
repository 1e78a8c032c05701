#include "gridmodel.h"
#include "models/foodproxymodel.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QtTest>

namespace {

QStringList catalogue()
{
    return {
        QStringLiteral("1|1|Polievka|kuracia s rezancami"),   QStringLiteral("2|1|Hovädzí vývar|"),
        QStringLiteral("3|2|Kurací rezeň|polnený syrom"),     QStringLiteral("4|2|Guláš <b>%1</b>|s [knedľou] 5*"),
        QStringLiteral("5|22|Šalát Čučoriedka|polkami KURA"),
    };
}

/// The rule as it is told, one expression a word and row.
bool plainlyAccepts(const QAbstractItemModel &foods, int row, const QString &filterText, int filterType)
{
    const QString name = foods.index(row, 2).data().toString().toLower();
    const QString description = foods.index(row, 3).data().toString().toLower();
    const QStringList words = filterText.toLower().split(QLatin1Char(' '));
    int matched = 0;
    for (const QString &word : words) {
        const QRegExp pattern(QStringLiteral("*%1*").arg(word), Qt::CaseSensitive, QRegExp::Wildcard);
        if (pattern.exactMatch(name + QLatin1Char(' ') + description))
            ++matched;
    }
    if (matched != words.size() && !filterText.isEmpty())
        return false;
    return filterType == 0 || foods.index(row, 1).data().toInt() == filterType;
}

} // namespace

class TestFoodProxyModel : public QObject {
    Q_OBJECT

private slots:
    void init();
    void showsAllFoodsAndOnlyTheirNames();
    void filtersByTextAndType_data();
    void filtersByTextAndType();
    void slotsStandInTheMetaObject();
    void eachSlotFiltersAtOnce();
    void sameAsThePlainRule();
    void followsItsSource();

private:
    std::unique_ptr<QStandardItemModel> m_foods;
};

void TestFoodProxyModel::init()
{
    m_foods = std::make_unique<QStandardItemModel>();
    appendRows(*m_foods, catalogue());
}

void TestFoodProxyModel::showsAllFoodsAndOnlyTheirNames()
{
    FoodProxyModel proxy;
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(m_foods.get());
    QCOMPARE(proxy.columnCount(), 1);
    QCOMPARE(rowTexts(proxy), columnTexts(*m_foods, 2));
}

void TestFoodProxyModel::filtersByTextAndType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("foodIDs");

    QTest::newRow("no filter") << QString() << 0 << "12345";
    QTest::newRow("two blanks") << QStringLiteral("  ") << 0 << "12345";
    QTest::newRow("words in name and description") << QStringLiteral("kur pol") << 0 << "135";
    QTest::newRow("in the other order") << QStringLiteral("POL KUR") << 0 << "135";
    QTest::newRow("over the border of name and description") << QStringLiteral("vývar ") << 0 << "2";
    QTest::newRow("pattern over the border") << QStringLiteral("polievka?kur") << 0 << "1";
    QTest::newRow("asterisk") << QStringLiteral("*") << 0 << "12345";
    QTest::newRow("opening bracket") << QStringLiteral("[") << 0 << "";
    QTest::newRow("closed bracket") << QStringLiteral("[gč]u") << 0 << "45";
    QTest::newRow("percent and markup as typed") << QStringLiteral("<b>%1") << 0 << "4";
    QTest::newRow("Slovak capitals") << QStringLiteral("ŠALÁT ČUČ") << 0 << "5";
    QTest::newRow("type") << QString() << 1 << "12";
    QTest::newRow("a type whose number begins another's") << QString() << 2 << "34";
    QTest::newRow("type and text") << QStringLiteral("kur") << 2 << "3";
    QTest::newRow("text of another type") << QStringLiteral("vývar") << 2 << "";
    QTest::newRow("unknown type") << QString() << 99 << "";
    QTest::newRow("key and type are not searched") << QStringLiteral("22") << 0 << "";
}

void TestFoodProxyModel::filtersByTextAndType()
{
    QFETCH(const QString, text);
    QFETCH(const int, type);
    QFETCH(const QString, foodIDs);

    FoodProxyModel proxy;
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(m_foods.get());
    proxy.textCatcher(text);
    proxy.typeCatcher(type);
    QString shown;
    for (int row = 0; row < proxy.rowCount(); ++row)
        shown += m_foods->index(proxy.mapToSource(proxy.index(row, 0)).row(), 0).data().toString();
    QCOMPARE(shown, foodIDs);
    proxy.textCatcher(QString());
    proxy.typeCatcher(0);
    QCOMPARE(proxy.rowCount(), m_foods->rowCount());
}

void TestFoodProxyModel::slotsStandInTheMetaObject()
{
    const QMetaObject &meta = FoodProxyModel::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("textCatcher(QString)"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("typeCatcher(int)"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);
}

void TestFoodProxyModel::eachSlotFiltersAtOnce()
{
    FoodProxyModel proxy;
    proxy.setSourceModel(m_foods.get());
    QCOMPARE(proxy.rowCount(), 5);
    QSignalSpy changed(&proxy, &QAbstractItemModel::layoutChanged);
    QVERIFY(changed.isValid());
    proxy.textCatcher(QStringLiteral("kur"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(proxy.rowCount(), 3);
    proxy.typeCatcher(1);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(proxy.rowCount(), 1);
}

void TestFoodProxyModel::sameAsThePlainRule()
{
    QRandomGenerator generator(7);
    const QString alphabet = QStringLiteral("kuračplšK*?[] ");
    FoodProxyModel proxy;
    proxy.setSourceModel(m_foods.get());
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (int length = generator.bounded(5); length > 0; --length)
            text += alphabet.at(generator.bounded(alphabet.size()));
        const int type = generator.bounded(3);
        proxy.textCatcher(text);
        proxy.typeCatcher(type);
        for (int row = 0; row < m_foods->rowCount(); ++row) {
            const bool shown = proxy.mapFromSource(m_foods->index(row, 2)).isValid();
            QVERIFY2(shown == plainlyAccepts(*m_foods, row, text, type), qPrintable(text));
        }
    }
}

void TestFoodProxyModel::followsItsSource()
{
    FoodProxyModel proxy;
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(m_foods.get());
    proxy.textCatcher(QStringLiteral("kur"));
    m_foods->item(1, 2)->setText(QStringLiteral("Kurací vývar"));
    QCOMPARE(proxy.rowCount(), 4);
    m_foods->removeRow(0);
    QCOMPARE(proxy.rowCount(), 3);
}

QTEST_GUILESS_MAIN(TestFoodProxyModel)
#include "tst_foodproxymodel.moc"
