#include "gridmodel.h"
#include "models/daymenuproxymodel.h"
#include "session/menucolumns.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QtTest>

namespace {

const char monday[] = "2026-03-02";
const char tuesday[] = "2026-03-03";

QString row(const char *food, const char *name, const char *segment = "", const char *date = "", const char *total = "")
{
    return menuRow(QLatin1String(food), QLatin1String(name), QLatin1String(segment), QLatin1String(date),
                   QLatin1String(total), QString(), QLatin1String("9"));
}

QStringList weekGrid()
{
    return {
        row("0", "Soups", "", "", " "),    row("1", "Broth", "1", monday, "2"),
        row("2", "Onion", "2", monday),    row("3", "Garlic", "1", tuesday, "1"),
        row("0", "Meals", "", "", " "),    row("4", "Goulash", "11", monday, "5"),
        row("5", "Steak", "1", tuesday),   row("0", "Empty", "", "", " "),
        row("0", "Desserts", "", "", " "), row("6", "Cake", "1", monday),
        row("7", "Pie", "1", monday, "1"), row("0", "Last", "", "", " "),
    };
}

/// The settings of a card.
struct Card {
    QDate date;
    uint segment = 0;
    int person = -1;
};

class Reference {
public:
    Reference(const QAbstractItemModel &grid, const Card &card)
        : m_grid(grid)
        , m_card(card)
    {
    }

    /// The rule step by step.
    bool accepts(int row) const
    {
        if (isOfCard(row))
            return m_card.person == -1 || total(row) > 0;
        if (row == m_grid.rowCount() - 1)
            return false;
        if (cell(row, MenuColumn::FoodId).toInt() != 0)
            return false;
        for (int below = row + 1; below < m_grid.rowCount(); ++below) {
            if (cell(below, MenuColumn::FoodId).toInt() == 0)
                return false;
            if (isOfCard(below) && (m_card.person == -1 || total(below) > 0))
                return true;
        }
        return false;
    }

private:
    QVariant cell(int row, int column) const { return m_grid.index(row, column).data(); }
    int total(int row) const { return cell(row, MenuColumn::Total).toInt(); }
    bool isOfCard(int row) const
    {
        return cell(row, MenuColumn::SegmentId).toUInt() == m_card.segment
            && cell(row, MenuColumn::Date).toDate() == m_card.date;
    }

    const QAbstractItemModel &m_grid;
    const Card m_card;
};

/// Counts the rows that it is asked about.
class CountingProxy : public DayMenuProxyModel {
public:
    int asked() const { return m_asked; }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        ++m_asked;
        return DayMenuProxyModel::filterAcceptsRow(row, parent);
    }

private:
    mutable int m_asked = 0;
};

void setCard(DayMenuProxyModel &proxy, const Card &card)
{
    proxy.setDate(card.date);
    proxy.setSegment(card.segment);
    proxy.setPerson(card.person);
}

const char *pick(QRandomGenerator &generator, std::initializer_list<const char *> from)
{
    return *(from.begin() + generator.bounded(int(from.size())));
}

QStringList randomGrid(QRandomGenerator &generator)
{
    QStringList rows;
    for (int count = generator.bounded(12); count > 0; --count) {
        if (generator.bounded(3) == 0)
            rows.append(row("0", "type", pick(generator, {"", "", "", "1"}), pick(generator, {"", "", "", monday}),
                            pick(generator, {" ", "", "1"})));
        else
            rows.append(row(pick(generator, {"1", "20", "-1"}), "food", pick(generator, {"1", "2", "11"}),
                            pick(generator, {monday, tuesday}), pick(generator, {"", "0", "1", "12", "-3"})));
    }
    return rows;
}

} // namespace

class TestDayMenuProxyModel : public QObject {
    Q_OBJECT

private slots:
    void showsOneCell_data();
    void showsOneCell();
    void showsTheLimitWhenEnabled();
    void cardThatWasNotSetShowsNothing();
    void settersOnlyStore();
    void filtersOnceForAllSettings();
    void sameAsThePlainRule();
};

void TestDayMenuProxyModel::showsOneCell_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<uint>("segment");
    QTest::addColumn<int>("person");
    QTest::addColumn<QStringList>("rows");

    QTest::newRow("menu") << monday << 1U << -1
                          << QStringList{QStringLiteral("Soups| "), QStringLiteral("Broth|2"),
                                         QStringLiteral("Desserts| "), QStringLiteral("Cake|"),
                                         QStringLiteral("Pie|1")};
    QTest::newRow("orders of a person") << monday << 1U << 7
                                        << QStringList{QStringLiteral("Soups| "), QStringLiteral("Broth|2"),
                                                       QStringLiteral("Desserts| "), QStringLiteral("Pie|1")};
    QTest::newRow("person 0 is a person")
        << tuesday << 1U << 0 << QStringList{QStringLiteral("Soups| "), QStringLiteral("Garlic|1")};
    QTest::newRow("another day") << tuesday << 1U << -1
                                 << QStringList{QStringLiteral("Soups| "), QStringLiteral("Garlic|1"),
                                                QStringLiteral("Meals| "), QStringLiteral("Steak|")};
    QTest::newRow("another slot") << monday << 2U << -1
                                  << QStringList{QStringLiteral("Soups| "), QStringLiteral("Onion|")};
    QTest::newRow("a slot whose number begins with another's")
        << monday << 11U << -1 << QStringList{QStringLiteral("Meals| "), QStringLiteral("Goulash|5")};
    QTest::newRow("nothing ordered") << monday << 2U << 7 << QStringList();
    QTest::newRow("cell without an item") << "2026-03-04" << 1U << -1 << QStringList();
}

void TestDayMenuProxyModel::showsOneCell()
{
    QFETCH(const QString, date);
    QFETCH(const uint, segment);
    QFETCH(const int, person);
    QFETCH(const QStringList, rows);

    QStandardItemModel grid;
    appendRows(grid, weekGrid());
    DayMenuProxyModel proxy;
    const QAbstractItemModelTester tester(&proxy);
    setCard(proxy, {QDate::fromString(date, Qt::ISODate), segment, person});
    proxy.setSourceModel(&grid);
    QCOMPARE(rowTexts(proxy), rows);
}

void TestDayMenuProxyModel::showsTheLimitWhenEnabled()
{
    QStandardItemModel grid;
    appendRows(grid, weekGrid());
    DayMenuProxyModel proxy;
    setCard(proxy, {QDate(2026, 3, 2), 2});
    proxy.setOrderLimitEnabled(true);
    proxy.setSourceModel(&grid);
    QCOMPARE(rowTexts(proxy), (QStringList{QStringLiteral("Soups| |9"), QStringLiteral("Onion||9")}));
    proxy.setOrderLimitEnabled(false);
    QCOMPARE(proxy.columnCount(), 3);
    proxy.setSourceModel(nullptr);
    proxy.setSourceModel(&grid);
    QCOMPARE(proxy.columnCount(), 2);
}

void TestDayMenuProxyModel::cardThatWasNotSetShowsNothing()
{
    QStandardItemModel grid;
    appendRows(grid, weekGrid());
    DayMenuProxyModel proxy;
    proxy.setSourceModel(&grid);
    QCOMPARE(proxy.rowCount(), 0);
}

void TestDayMenuProxyModel::settersOnlyStore()
{
    QStandardItemModel grid;
    appendRows(grid, weekGrid());
    DayMenuProxyModel proxy;
    setCard(proxy, {QDate(2026, 3, 2), 2});
    proxy.setSourceModel(&grid);
    QCOMPARE(proxy.rowCount(), 2);
    setCard(proxy, {QDate(2026, 3, 2), 1});
    QCOMPARE(proxy.rowCount(), 2);
    proxy.invalidate();
    QCOMPARE(proxy.rowCount(), 5);
    proxy.setPerson(7);
    proxy.invalidate();
    QCOMPARE(proxy.rowCount(), 4);
    proxy.setPerson(-1);
    proxy.setDate(QDate(2026, 3, 3));
    proxy.invalidate();
    QCOMPARE(columnTexts(proxy, 0),
             (QStringList{QStringLiteral("Soups"), QStringLiteral("Garlic"), QStringLiteral("Meals"),
                          QStringLiteral("Steak")}));
}

void TestDayMenuProxyModel::filtersOnceForAllSettings()
{
    QStandardItemModel grid;
    appendRows(grid, weekGrid());
    CountingProxy proxy;
    setCard(proxy, {QDate(2026, 3, 2), 1, 7});
    proxy.setOrderLimitEnabled(true);
    proxy.setSourceModel(&grid);
    QCOMPARE(proxy.rowCount(), 4);
    QCOMPARE(proxy.asked(), grid.rowCount());
    setCard(proxy, {QDate(2026, 3, 3), 1, -1});
    proxy.invalidate();
    QCOMPARE(proxy.rowCount(), 4);
    QCOMPARE(proxy.asked(), 2 * grid.rowCount());
}

void TestDayMenuProxyModel::sameAsThePlainRule()
{
    QRandomGenerator generator(42);
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        QStandardItemModel grid;
        appendRows(grid, randomGrid(generator));
        const Card card{QDate(2026, 3, 2 + generator.bounded(2)), uint(1 + generator.bounded(2)),
                        generator.bounded(2) == 0 ? -1 : 5};
        DayMenuProxyModel proxy;
        setCard(proxy, card);
        proxy.setSourceModel(&grid);
        const Reference reference(grid, card);
        for (int sourceRow = 0; sourceRow < grid.rowCount(); ++sourceRow) {
            const bool shown = proxy.mapFromSource(grid.index(sourceRow, MenuColumn::Name)).isValid();
            QCOMPARE(shown, reference.accepts(sourceRow));
            ++(shown ? accepted : refused);
        }
    }
    QVERIFY(accepted > 1000);
    QVERIFY(refused > 1000);
}

QTEST_GUILESS_MAIN(TestDayMenuProxyModel)
#include "tst_daymenuproxymodel.moc"
