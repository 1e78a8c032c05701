#include "store/positions.h"

#include <QtTest>

namespace {

constexpr int longestList = 6;

/// A row of a list: a name and where it stands.
struct Row {
    int name;
    int position;
};

/// Rows named 1 to `count`, each at the position of its name.
QVector<Row> listOf(int count)
{
    QVector<Row> rows;
    for (int position = 1; position <= count; ++position)
        rows.append({position, position});
    return rows;
}

/// What one statement does: every row at `from` goes to `to`.
void apply(const PositionMove &move, QVector<Row> *rows)
{
    for (Row &row : *rows) {
        if (row.position == move.from)
            row.position = move.to;
    }
}

/// Whether no two rows stand at one place; the row named `moving` does not count.
bool apart(const QVector<Row> &rows, int moving)
{
    QVector<int> taken;
    for (const Row &row : rows) {
        if (row.name == moving)
            continue;
        if (taken.contains(row.position))
            return false;
        taken.append(row.position);
    }
    return true;
}

/// The names by position, and "?" wherever the positions are not 1 to n.
QString order(QVector<Row> rows)
{
    std::sort(rows.begin(), rows.end(), [](const Row &one, const Row &two) { return one.position < two.position; });
    QString names;
    for (int index = 0; index < rows.size(); ++index)
        names += rows.at(index).position == index + 1 ? QString::number(rows.at(index).name) : QStringLiteral("?");
    return names;
}

/// The names 1 to `count` without `left`, and with `put` at place `target`; 0 for neither.
QString expectedOrder(int count, int left, int put, int target)
{
    QString names;
    for (int name = 1; name <= count; ++name) {
        if (name != left)
            names += QString::number(name);
    }
    return put > 0 ? names.insert(target - 1, QString::number(put)) : names;
}

QString textOf(const QVector<PositionMove> &moves)
{
    QStringList texts;
    for (const PositionMove &move : moves)
        texts.append(QStringLiteral("%1>%2").arg(move.from).arg(move.to));
    return texts.join(QLatin1Char(' '));
}

} // namespace

class TestPositions : public QObject {
    Q_OBJECT

private slots:
    void wordForWord();
    void insertEverywhere();
    void moveFromEverywhereToEverywhere();
    void deleteEverywhere();
};

void TestPositions::wordForWord()
{
    QCOMPARE(textOf(Positions::shift(4, 2)), QString("4>5 3>4 2>3"));
    QCOMPARE(textOf(Positions::shift(2, 4)), QString("3>2 4>3"));
    QCOMPARE(textOf(Positions::shift(3, 3)), QString("3>4"));
    QCOMPARE(textOf(Positions::makeRoom(2, 4)), QString("4>5 3>4 2>3"));
    QCOMPARE(textOf(Positions::makeRoom(5, 4)), QString());
    QCOMPARE(textOf(Positions::makeRoom(1, 0)), QString());
    QCOMPARE(textOf(Positions::closeGap(2, 4)), QString("3>2 4>3"));
    QCOMPARE(textOf(Positions::closeGap(4, 4)), QString());
}

void TestPositions::insertEverywhere()
{
    for (int count = 0; count <= longestList; ++count) {
        for (int target = 1; target <= count + 1; ++target) {
            QVector<Row> rows = listOf(count);
            const QVector<PositionMove> moves = Positions::makeRoom(target, count);
            for (const PositionMove &move : moves) {
                apply(move, &rows);
                QVERIFY2(apart(rows, 0), qPrintable(textOf(moves)));
            }
            rows.append({9, target});
            QCOMPARE(order(rows), expectedOrder(count, 0, 9, target));
        }
    }
}

void TestPositions::moveFromEverywhereToEverywhere()
{
    for (int from = 1; from <= longestList; ++from) {
        for (int target = 1; target <= longestList; ++target) {
            QVector<Row> rows = listOf(longestList);
            const QVector<PositionMove> moves = Positions::shift(from, target);
            for (const PositionMove &move : moves) {
                apply(move, &rows);
                QVERIFY2(apart(rows, from), qPrintable(textOf(moves)));
            }
            rows[from - 1].position = target; // the record's own write, by its key
            QCOMPARE(order(rows), expectedOrder(longestList, from, from, target));
        }
    }
}

void TestPositions::deleteEverywhere()
{
    for (int count = 1; count <= longestList; ++count) {
        for (int position = 1; position <= count; ++position) {
            QVector<Row> rows = listOf(count);
            rows.removeAt(position - 1);
            const QVector<PositionMove> moves = Positions::closeGap(position, count);
            for (const PositionMove &move : moves) {
                apply(move, &rows);
                QVERIFY2(apart(rows, 0), qPrintable(textOf(moves)));
            }
            QCOMPARE(order(rows), expectedOrder(count, position, 0, 0));
        }
    }
}

QTEST_APPLESS_MAIN(TestPositions)
#include "tst_positions.moc"
