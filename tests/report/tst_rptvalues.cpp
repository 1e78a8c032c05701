#include "report/rptvalues.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>

namespace {

/// The rules as a plain walk over all values.
class PlainValues {
public:
    void add(const QString &name, const QString &text, int record, int page)
    {
        for (const RptValue &value : qAsConst(all)) {
            if (value.paramName == name && value.lineIndex == record && value.reportPage == page)
                return;
        }
        all.append({name, text, record, page});
    }

    double aggregate(int mode, const QString &name, bool showInGroup) const
    {
        int count = 0;
        double sum = 0;
        double greatest = 0;
        double least = all.isEmpty() ? 0 : all.first().paramValue.toString().toDouble();
        for (const RptValue &entry : all) {
            const QString text = entry.paramValue.toString();
            const bool isUsed = showInGroup && !group.isEmpty() ? group.contains(entry.lineIndex) : !text.isEmpty();
            if (entry.paramName != name || !isUsed)
                continue;
            const double value = text.toDouble();
            ++count;
            sum += value;
            greatest = value > greatest ? value : greatest;
            least = value < least ? value : least;
        }
        const double results[] = {sum, count == 0 ? 0 : sum / count, double(count), greatest, least};
        return mode >= 0 && mode <= 4 ? results[mode] : 0;
    }

    QVector<RptValue> of(const QString &name, int page) const
    {
        QVector<RptValue> result;
        for (const RptValue &value : all) {
            if (value.paramName == name && value.reportPage == page)
                result.append(value);
        }
        return result;
    }

    QList<int> recordsOf(const QString &name, int page, const QString &text) const
    {
        QList<int> result;
        const QVector<RptValue> allValues = of(name, page);
        for (const RptValue &value : allValues) {
            if (value.paramValue == QVariant(text))
                result.append(value.lineIndex);
        }
        return result;
    }

    int lineCount(int page) const
    {
        int greatest = 0;
        for (const RptValue &value : all)
            greatest = value.reportPage == page ? qMax(greatest, value.lineIndex) : greatest;
        return greatest + 1;
    }

    QVector<RptValue> all;
    QList<int> group;
};

QStringList asTexts(const QVector<RptValue> &values)
{
    QStringList result;
    for (const RptValue &value : values)
        result.append(QStringLiteral("%1=%2@%3/%4")
                          .arg(value.paramName, value.paramValue.toString())
                          .arg(value.lineIndex)
                          .arg(value.reportPage));
    return result;
}

/// Equal to the last bit; not-a-number is equal to itself.
bool isSame(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

} // namespace

/// What a print gathers, and the aggregates over it.
class TestRptValues : public QObject {
    Q_OBJECT

private slots:
    void startsEmpty();
    void addsOncePerTokenRecordAndPage();
    void asksByTokenAndPage();
    void lineCounts();
    void clearForgetsAll();
    void groupEndsWithoutLosingValues();
    void aggregates_data();
    void aggregates();
    void leastStartsFromAnotherToken();
    void greatestOfNegativesIsZero();
    void emptyTextsCountInGroupsOnly();
    void aggregatesSpanPageDefinitions();
    void textsThatAreNoNumber();
    void isThePlainWalk();
    void hundredThousandRecords();
    void oneListOfTheProcess();
};

void TestRptValues::startsEmpty()
{
    const RptValues values;
    QVERIFY(values.isEmpty());
    QCOMPARE(values.all().size(), 0);
    QCOMPARE(values.of("[1]", 0).size(), 0);
    QCOMPARE(values.recordsOf("[1]", 0, ""), QList<int>());
    QCOMPARE(values.lineCount(0), 1);
    QCOMPARE(values.groupRecordIndexes(), QList<int>());
    QVERIFY(!values.isInGroup(0));
    for (const int mode : {-1, 0, 1, 2, 3, 4, 5})
        QCOMPARE(values.aggregate(mode, "[1]", true), 0.0);
}

void TestRptValues::addsOncePerTokenRecordAndPage()
{
    RptValues values;
    values.add("[1]", "a", 0, 0);
    values.add("[1]", "b", 0, 0); // the same record: the first text stays
    values.add("[2]", "c", 0, 0);
    values.add("[1]", "d", 1, 0);
    values.add("[1]", "e", 0, 1);
    const QStringList expected = {"[1]=a@0/0", "[2]=c@0/0", "[1]=d@1/0", "[1]=e@0/1"};
    QCOMPARE(asTexts(values.all()), expected);
    QCOMPARE(values.recordsOf("[1]", 0, "b"), QList<int>());
}

void TestRptValues::asksByTokenAndPage()
{
    RptValues values;
    values.add("[g]", "x", 2, 0);
    values.add("[1]", "x", 0, 0);
    values.add("[g]", "y", 1, 0);
    values.add("[g]", "x", 0, 0);
    values.add("[g]", "x", 7, 1);
    const QStringList expected = {"[g]=x@2/0", "[g]=y@1/0", "[g]=x@0/0"};
    QCOMPARE(asTexts(values.of("[g]", 0)), expected);
    QCOMPARE(values.recordsOf("[g]", 0, "x"), QList<int>({2, 0}));
    QCOMPARE(values.recordsOf("[g]", 1, "x"), QList<int>({7}));
    QCOMPARE(values.recordsOf("[g]", 2, "x"), QList<int>());
    QCOMPARE(values.recordsOf("g", 0, "x"), QList<int>());
    QCOMPARE(values.recordsOf("[g]", 0, "X"), QList<int>());
}

void TestRptValues::lineCounts()
{
    RptValues values;
    values.add("[1]", "a", 0, 0);
    QCOMPARE(values.lineCount(0), 1);
    values.add("[1]", "a", 6, 0);
    values.add("[2]", "a", 3, 0);
    values.add("[2]", "a", 9, 1);
    QCOMPARE(values.lineCount(0), 7);
    QCOMPARE(values.lineCount(1), 10);
    QCOMPARE(values.lineCount(2), 1);
}

void TestRptValues::clearForgetsAll()
{
    RptValues values;
    values.add("[1]", "5", 3, 0);
    values.setGroupRecordIndexes({3});
    values.clear();
    QVERIFY(values.isEmpty());
    QCOMPARE(values.groupRecordIndexes(), QList<int>());
    QVERIFY(!values.isInGroup(3));
    QCOMPARE(values.lineCount(0), 1);
    QCOMPARE(values.aggregate(0, "[1]", false), 0.0);
    values.add("[1]", "6", 3, 0);
    QCOMPARE(values.aggregate(0, "[1]", false), 6.0);
}

void TestRptValues::groupEndsWithoutLosingValues()
{
    RptValues values;
    values.add("[1]", "5", 0, 0);
    values.add("[1]", "7", 1, 0);
    values.setGroupRecordIndexes({1, 4});
    QCOMPARE(values.groupRecordIndexes(), QList<int>({1, 4}));
    QVERIFY(values.isInGroup(1) && values.isInGroup(4) && !values.isInGroup(0));
    QCOMPARE(values.aggregate(0, "[1]", true), 7.0);
    QCOMPARE(values.aggregate(0, "[1]", false), 12.0);
    values.setGroupRecordIndexes({0});
    QVERIFY(values.isInGroup(0) && !values.isInGroup(1));
    QCOMPARE(values.aggregate(0, "[1]", true), 5.0);
    values.setGroupRecordIndexes({});
    QVERIFY(!values.isInGroup(0));
    QCOMPARE(values.aggregate(0, "[1]", true), 12.0);
}

void TestRptValues::aggregates_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("whole");
    QTest::addColumn<double>("group");
    QTest::newRow("sum") << 0 << 10.5 << 6.5;
    QTest::newRow("mean") << 1 << 3.5 << 3.25;
    QTest::newRow("count") << 2 << 3.0 << 2.0;
    QTest::newRow("greatest") << 3 << 4.5 << 4.5;
    QTest::newRow("least") << 4 << 2.0 << 2.0;
    QTest::newRow("unknown mode") << 5 << 0.0 << 0.0;
    QTest::newRow("negative mode") << -1 << 0.0 << 0.0;
}

void TestRptValues::aggregates()
{
    QFETCH(int, mode);
    RptValues values;
    values.add("[4]", "4", 0, 0);
    values.add("[5]", "100", 0, 0);
    values.add("[4]", "2", 1, 0);
    values.add("[4]", "4.5", 2, 0);
    QTEST(values.aggregate(mode, "[4]", false), "whole");
    QTEST(values.aggregate(mode, "[4]", true), "whole"); // no group is being printed
    values.setGroupRecordIndexes({2, 1});
    QTEST(values.aggregate(mode, "[4]", true), "group");
    QTEST(values.aggregate(mode, "[4]", false), "whole");
}

void TestRptValues::leastStartsFromAnotherToken()
{
    RptValues values;
    values.add("[1]", "3", 0, 0);
    values.add("[2]", "50", 0, 0);
    values.add("[2]", "40", 1, 0);
    QCOMPARE(values.aggregate(4, "[2]", false), 3.0);
    QCOMPARE(values.aggregate(4, "[none]", false), 3.0);
    QCOMPARE(values.aggregate(3, "[none]", false), 0.0);
    values.clear();
    values.add("[1]", "Polievka", 0, 0); // a text first: 0 is the least of any positive column
    values.add("[2]", "50", 0, 0);
    QCOMPARE(values.aggregate(4, "[2]", false), 0.0);
}

void TestRptValues::greatestOfNegativesIsZero()
{
    RptValues values;
    values.add("[1]", "-5", 0, 0);
    values.add("[1]", "-3", 1, 0);
    QCOMPARE(values.aggregate(3, "[1]", false), 0.0);
    QCOMPARE(values.aggregate(4, "[1]", false), -5.0);
}

void TestRptValues::emptyTextsCountInGroupsOnly()
{
    RptValues values;
    values.add("[1]", "5", 0, 0);
    values.add("[1]", "", 1, 0);
    QCOMPARE(values.aggregate(2, "[1]", false), 1.0);
    QCOMPARE(values.aggregate(1, "[1]", false), 5.0);
    values.setGroupRecordIndexes({0, 1});
    QCOMPARE(values.aggregate(2, "[1]", true), 2.0);
    QCOMPARE(values.aggregate(1, "[1]", true), 2.5);
    QCOMPARE(values.aggregate(4, "[1]", true), 0.0);
}

void TestRptValues::aggregatesSpanPageDefinitions()
{
    RptValues values;
    values.add("[1]", "5", 0, 0);
    values.add("[1]", "6", 0, 1);
    values.add("[1]", "7", 1, 1);
    QCOMPARE(values.aggregate(0, "[1]", false), 18.0);
    values.setGroupRecordIndexes({0});
    QCOMPARE(values.aggregate(0, "[1]", true), 11.0);
}

void TestRptValues::textsThatAreNoNumber()
{
    RptValues values;
    values.add("[1]", "1", 0, 0);
    values.add("[1]", "12,5", 1, 0);
    values.add("[1]", "O'Brien \\ %1 <b>🍲</b>", 2, 0);
    values.add("[1]", QString(10000, 'x'), 3, 0);
    QCOMPARE(values.aggregate(0, "[1]", false), 1.0);
    QCOMPARE(values.aggregate(2, "[1]", false), 4.0);
}

/// Thousands of small random prints against the plain walk, to the last bit: order of addition, seeds, repeated group
/// records, texts that are no numbers, not-a-number and infinity included.
void TestRptValues::isThePlainWalk()
{
    QRandomGenerator random(4711);
    const QStringList names = {"[1]", "[2]", "[g]", "", "[č]"};
    const QStringList texts = {"", "0", "-0", "a", "nan", "inf", "-inf", "1e400", "3", "-7", " 4 ", "1,5"};
    for (int round = 0; round < 2500; ++round) {
        RptValues values;
        PlainValues plain;
        const int records = 1 + random.bounded(12);
        for (int i = random.bounded(40); i > 0; --i) {
            const QString name = names.at(random.bounded(names.size()));
            const bool isOdd = random.bounded(4) == 0;
            const QString text =
                isOdd ? texts.at(random.bounded(texts.size())) : QString::number(random.bounded(2000.0) - 900, 'g', 12);
            const int record = random.bounded(records);
            const int page = random.bounded(3);
            values.add(name, text, record, page);
            plain.add(name, text, record, page);
        }
        QCOMPARE(asTexts(values.all()), asTexts(plain.all));
        for (int i = random.bounded(6); i > 0; --i)
            plain.group.append(random.bounded(records + 2));
        values.setGroupRecordIndexes(plain.group);
        for (const QString &name : names) {
            for (const bool showInGroup : {false, true}) {
                for (int mode = -1; mode <= 5; ++mode)
                    QVERIFY2(
                        isSame(values.aggregate(mode, name, showInGroup), plain.aggregate(mode, name, showInGroup)),
                        qPrintable(asTexts(plain.all).join(' ') + name + QString::number(mode)));
            }
            for (int page = 0; page < 3; ++page) {
                QCOMPARE(asTexts(values.of(name, page)), asTexts(plain.of(name, page)));
                for (const QString &text : texts)
                    QCOMPARE(values.recordsOf(name, page, text), plain.recordsOf(name, page, text));
                QCOMPARE(values.lineCount(page), plain.lineCount(page));
            }
        }
    }
}

/// A print of the greatest size that is of use: it must not take time by the square of its records.
void TestRptValues::hundredThousandRecords()
{
    constexpr int records = 100000;
    constexpr int groups = 1000;
    RptValues values;
    for (int record = 0; record < records; ++record) {
        values.add("[g]", QString::number(record % groups), record, 0);
        values.add("[price]", QString::number(record * 0.1), record, 0);
    }
    double total = 0;
    for (int group = 0; group < groups; ++group) {
        const QList<int> members = values.recordsOf("[g]", 0, QString::number(group));
        QCOMPARE(members.size(), records / groups);
        values.setGroupRecordIndexes(members);
        QVERIFY(values.isInGroup(group) && !values.isInGroup(group + 1));
        for (int mode = 0; mode <= 4; ++mode)
            values.aggregate(mode, "[price]", true);
        total += values.aggregate(2, "[price]", true);
        QCOMPARE(values.aggregate(2, "[price]", false), double(records));
    }
    QCOMPARE(total, double(records));
    QCOMPARE(values.of("[g]", 0).size(), records);
    QCOMPARE(values.lineCount(0), records);
}

void TestRptValues::oneListOfTheProcess()
{
    RptValues::instance().clear();
    RptValues::instance().add("[1]", "5", 0, 0);
    QCOMPARE(RptValues::instance().aggregate(0, "[1]", false), 5.0);
    RptValues::instance().clear();
    QVERIFY(RptValues::instance().isEmpty());
}

QTEST_APPLESS_MAIN(TestRptValues)
#include "tst_rptvalues.moc"
