#include "store/activedays.h"

#include <QtTest>

class TestActiveDays : public QObject {
    Q_OBJECT

private slots:
    void decodes_data();
    void decodes();
    void dayOutsideTheWeekIsOff();
    void boardRoundsTheQuotient();
    void boardAgreesOnEveryCodeOfCheckBoxes();
    void encodes_data();
    void encodes();
    void encodingAndDecodingAgree();
};

namespace {

std::array<Qt::CheckState, 7> statesOf(const QString &digits)
{
    std::array<Qt::CheckState, 7> states{};
    for (int day = 0; day < 7; ++day)
        states[static_cast<size_t>(day)] = static_cast<Qt::CheckState>(digits.at(day).digitValue());
    return states;
}

/// The days that are on, as their numbers in a row.
QString daysOn(int code, bool (*isOn)(int, int))
{
    QString days;
    for (int day = 1; day <= 7; ++day) {
        if (isOn(code, day))
            days += QString::number(day);
    }
    return days;
}

} // namespace

void TestActiveDays::decodes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("days");
    QTest::newRow("default") << ActiveDays::defaultCode << "1234567";
    QTest::newRow("every other day") << 2020202 << "1357";
    QTest::newRow("Monday to Friday, fewer digits") << 22222 << "12345";
    QTest::newRow("Monday only") << 2 << "1";
    QTest::newRow("Sunday only") << 2000000 << "7";
    QTest::newRow("none") << 0 << "";
    QTest::newRow("other digits are off") << 1345678 << "";
    QTest::newRow("partly checked is off") << 1212121 << "246";
    QTest::newRow("eighth digit is nobody's") << 22222222 << "1234567";
    QTest::newRow("negative") << -2222222 << "";
}

void TestActiveDays::decodes()
{
    QFETCH(int, code);
    QFETCH(QString, days);
    QCOMPARE(daysOn(code, ActiveDays::isOn), days);
}

void TestActiveDays::dayOutsideTheWeekIsOff()
{
    QCOMPARE(ActiveDays::defaultCode, 2222222);
    for (const int day : {-1, 0, 8, 100}) {
        QVERIFY(!ActiveDays::isOn(22222222, day));
        QVERIFY(!ActiveDays::isShownOnBoard(22222222, day));
    }
}

void TestActiveDays::boardRoundsTheQuotient()
{
    QVERIFY(!ActiveDays::isOn(15, 2));
    QVERIFY(ActiveDays::isShownOnBoard(15, 2)); // 1.5 is rounded to 2
    QVERIFY(ActiveDays::isOn(26, 2));
    QVERIFY(!ActiveDays::isShownOnBoard(26, 2)); // 2.6 is rounded to 3
    QVERIFY(!ActiveDays::isShownOnBoard(14, 2));
    QVERIFY(ActiveDays::isShownOnBoard(1999999, 7));
}

void TestActiveDays::boardAgreesOnEveryCodeOfCheckBoxes()
{
    for (int number = 0; number < 2187; ++number) { // 3^7 codes of the digits 0, 1 and 2
        const int code = QString::number(number, 3).toInt();
        QCOMPARE(daysOn(code, ActiveDays::isShownOnBoard), daysOn(code, ActiveDays::isOn));
    }
}

void TestActiveDays::encodes_data()
{
    QTest::addColumn<QString>("states"); // Monday first
    QTest::addColumn<int>("code");
    QTest::newRow("all") << "2222222" << 2222222;
    QTest::newRow("none") << "0000000" << 0;
    QTest::newRow("Monday to Friday") << "2222200" << 22222;
    QTest::newRow("Sunday") << "0000002" << 2000000;
    QTest::newRow("partly checked Tuesday") << "2100000" << 12;
}

void TestActiveDays::encodes()
{
    QFETCH(QString, states);
    QFETCH(int, code);
    QCOMPARE(ActiveDays::encode(statesOf(states)), code);
}

void TestActiveDays::encodingAndDecodingAgree()
{
    for (int bits = 0; bits < 128; ++bits) {
        std::array<Qt::CheckState, 7> states{};
        QString days;
        for (int day = 1; day <= 7; ++day) {
            const bool on = bits & (1 << (day - 1));
            states[static_cast<size_t>(day - 1)] = on ? Qt::Checked : Qt::Unchecked;
            if (on)
                days += QString::number(day);
        }
        QCOMPARE(daysOn(ActiveDays::encode(states), ActiveDays::isOn), days);
    }
}

QTEST_APPLESS_MAIN(TestActiveDays)
#include "tst_activedays.moc"
