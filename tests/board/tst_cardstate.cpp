#include "board/cardstate.h"

#include <QtTest>

Q_DECLARE_METATYPE(CardState)

class TestCardState : public QObject {
    Q_OBJECT

private slots:
    void everyStateMatchesTheNineSteps_data();
    void everyStateMatchesTheNineSteps();
    void knownStates_data();
    void knownStates();
    void lockOfMixedItems_data();
    void lockOfMixedItems();
};

namespace {

/// The nine steps as they are told, each on the controls as the one before left them.
CardButtons nineSteps(const CardState &state)
{
    CardButtons card;
    card.finalReport = false;
    card.orderEnabled = false;
    if (state.hasItems) {
        card.lockEnabled = !state.readOnly;
        card.copyEnabled = true;
        if (state.lock > 0)
            card.orderEnabled = !state.readOnly;
    } else {
        card.lockEnabled = false;
        card.copyEnabled = false;
    }
    if (state.lock == 0) {
        card.editEnabled = !state.readOnly;
        if (state.hasOrders)
            card.finalReport = true;
        card.totalShown = false;
    } else {
        card.editEnabled = false;
        card.totalShown = true;
    }
    if (state.personSelected) {
        card.menuActionsShown = false;
        card.totalShown = true;
        card.limitShown = false;
    } else {
        card.menuActionsShown = true;
        card.limitShown = true;
    }
    if (state.past) {
        card.editEnabled = false;
        card.lockEnabled = false;
        card.totalShown = true;
        card.finalReport = true;
    } else if (state.lock > 0) {
        card.finalReport = true;
        if (state.lock == 2)
            card.lockEnabled = false;
    }
    if (state.hasOrders)
        card.totalShown = true;
    return card;
}

QString words(const CardButtons &buttons)
{
    QStringList on;
    const auto add = [&on](bool is, const char *word) {
        if (is)
            on.append(QLatin1String(word));
    };
    add(buttons.editEnabled, "edit");
    add(buttons.lockEnabled, "lock");
    add(buttons.copyEnabled, "copy");
    add(buttons.orderEnabled, "order");
    add(buttons.menuActionsShown, "menu");
    add(buttons.totalShown, "total");
    add(buttons.limitShown, "limit");
    add(buttons.finalReport, "final");
    return on.join(' ');
}

} // namespace

void TestCardState::everyStateMatchesTheNineSteps_data()
{
    QTest::addColumn<CardState>("state");
    for (int bits = 0; bits < 96; ++bits) {
        CardState state;
        state.lock = bits % 3;
        const int rest = bits / 3;
        state.hasItems = rest & 1;
        state.hasOrders = rest & 2;
        state.past = rest & 4;
        state.personSelected = rest & 8;
        state.readOnly = rest & 16;
        QTest::addRow("lock %d%s%s%s%s%s", state.lock, state.hasItems ? " items" : "", state.hasOrders ? " orders" : "",
                      state.past ? " past" : "", state.personSelected ? " person" : "",
                      state.readOnly ? " readOnly" : "")
            << state;
    }
}

void TestCardState::everyStateMatchesTheNineSteps()
{
    QFETCH(CardState, state);
    QCOMPARE(words(cardButtons(state)), words(nineSteps(state)));
}

void TestCardState::knownStates_data()
{
    QTest::addColumn<CardState>("state");
    QTest::addColumn<QString>("on");
    // lock, items, orders, past, person, readOnly
    QTest::newRow("empty cell") << CardState{0, false, false, false, false, false} << "edit menu limit";
    QTest::newRow("being composed") << CardState{0, true, false, false, false, false} << "edit lock copy menu limit";
    QTest::newRow("published") << CardState{1, true, false, false, false, false}
                               << "lock copy order menu total limit final";
    QTest::newRow("closed for good") << CardState{2, true, true, false, false, false}
                                     << "copy order menu total limit final";
    QTest::newRow("opened again after orders")
        << CardState{0, true, true, false, false, false} << "edit lock copy menu total limit final";
    QTest::newRow("past and open") << CardState{0, true, false, true, false, false} << "copy menu total limit final";
    QTest::newRow("past and locked can be ordered from")
        << CardState{1, true, true, true, true, false} << "copy order total final";
    QTest::newRow("a person's published day")
        << CardState{1, true, false, false, true, false} << "lock copy order total final";
    QTest::newRow("a person's open day") << CardState{0, true, false, false, true, false} << "edit lock copy total";
    QTest::newRow("read only, open") << CardState{0, true, false, false, false, true} << "copy menu limit";
    QTest::newRow("read only, published") << CardState{1, true, true, false, true, true} << "copy total final";
}

void TestCardState::knownStates()
{
    QFETCH(CardState, state);
    QTEST(words(cardButtons(state)), "on");
}

void TestCardState::lockOfMixedItems_data()
{
    QTest::addColumn<QVector<int>>("items");
    QTest::addColumn<int>("lock");
    QTest::newRow("none") << QVector<int>{} << 0;
    QTest::newRow("open") << QVector<int>{0, 0} << 0;
    QTest::newRow("a locked one among open ones") << QVector<int>{0, 1, 0} << 1;
    QTest::newRow("2 wins over 1") << QVector<int>{1, 2} << 2;
    QTest::newRow("2 sticks") << QVector<int>{2, 1, 0} << 2;
    QTest::newRow("unknown values change nothing") << QVector<int>{1, 3, -1} << 1;
}

void TestCardState::lockOfMixedItems()
{
    QFETCH(QVector<int>, items);
    int lock = 0;
    for (const int item : qAsConst(items))
        lock = foldedLock(lock, item);
    QTEST(lock, "lock");
}

QTEST_GUILESS_MAIN(TestCardState)
#include "tst_cardstate.moc"
