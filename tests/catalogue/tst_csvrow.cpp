#include "catalogue/csvrow.h"
#include "support/logcatcher.h"

#include <QTextStream>
#include <QtTest>

/// The reader of comma-separated records.
class TestCsvRow : public QObject {
    Q_OBJECT

private slots:
    void transitions_data();
    void transitions();
    void records_data();
    void records();
    void rowIsClearedFirst();
    void endInQuotesIsLogged();
    void goodEndIsNotLogged();
    void undoubledQuotesShiftTheFields();
    void bigField();
    void bytes_data();
    void bytes();
    void doubledQuotesRoundTrip_data();
    void doubledQuotesRoundTrip();
};

namespace {

/// The records of a text, fields joined with "|", a bar in a field being none of the tests.
QStringList recordsOf(const QString &text)
{
    QString copy = text;
    QTextStream in(&copy);
    QStringList records;
    QStringList row;
    while (Csv::readRow(in, &row))
        records.append(row.isEmpty() ? QStringLiteral("(no field)") : row.join(QLatin1Char('|')));
    return records;
}

} // namespace

void TestCsvRow::transitions_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QVector<int>>("next"); // at comma, quote, line feed, other, end of stream
    QTest::newRow("0 plain text") << 0 << QVector<int>{1, 2, Csv::EndOfRow, 0, Csv::EndOfRow};
    QTest::newRow("1 after a separator") << 1 << QVector<int>{1, 2, Csv::EndOfRow, 0, Csv::EndOfRow};
    QTest::newRow("2 quote opened") << 2 << QVector<int>{3, 4, 3, 3, Csv::EndInQuotes};
    QTest::newRow("3 inside quotes") << 3 << QVector<int>{3, 4, 3, 3, Csv::EndInQuotes};
    QTest::newRow("4 quote closed") << 4 << QVector<int>{1, 3, Csv::EndOfRow, 0, Csv::EndOfRow};
}

void TestCsvRow::transitions()
{
    QFETCH(int, state);
    QFETCH(QVector<int>, next);
    const QVector<Csv::CharClass> classes{Csv::Comma, Csv::Quote, Csv::LineFeed, Csv::Other, Csv::EndOfStream};
    for (int index = 0; index < classes.size(); ++index)
        QCOMPARE(int(Csv::nextState(Csv::State(state), classes.at(index))), next.at(index));
}

/// Each row drives the automaton through the state and class of its name and shows the fields that come of it.
void TestCsvRow::records_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("nothing") << "" << QStringList();
    QTest::newRow("one field") << "a" << QStringList{"a"};
    QTest::newRow("plain, comma") << "a,b" << QStringList{"a|b"};
    QTest::newRow("plain, quote") << "a\"b,c\"d" << QStringList{"ab,cd"};
    QTest::newRow("plain, line feed") << "a\nb" << QStringList{"a", "b"};
    QTest::newRow("plain, end") << "a,bc" << QStringList{"a|bc"};
    QTest::newRow("start, comma") << ",a" << QStringList{"|a"};
    QTest::newRow("start, line feed") << "\na" << QStringList{"", "a"};
    QTest::newRow("separator, comma") << "a,,b" << QStringList{"a||b"};
    QTest::newRow("separator, quote") << "a,\"b\"" << QStringList{"a|b"};
    QTest::newRow("separator, line feed") << "a,\nb" << QStringList{"a|", "b"};
    QTest::newRow("separator, end") << "a," << QStringList{"a|"};
    QTest::newRow("opened, comma") << "\",a\"" << QStringList{",a"};
    QTest::newRow("opened, quote, end") << "\"\"" << QStringList{""};
    QTest::newRow("opened, line feed") << "\"\na\"" << QStringList{"\na"};
    QTest::newRow("opened, other") << "\"a\"" << QStringList{"a"};
    QTest::newRow("opened, end") << "a,\"" << QStringList{"a"};
    QTest::newRow("inside, comma") << "\"a,b\"" << QStringList{"a,b"};
    QTest::newRow("inside, quote twice") << "\"a\"\"b\"" << QStringList{"a\"b"};
    QTest::newRow("inside, line feed") << "\"a\nb\",c" << QStringList{"a\nb|c"};
    QTest::newRow("inside, end") << "a,b,\"cd" << QStringList{"a|b"};
    QTest::newRow("only field open") << "\"abc" << QStringList{"(no field)"};
    QTest::newRow("closed, comma") << "\"a\",b" << QStringList{"a|b"};
    QTest::newRow("closed, line feed") << "\"a\"\nb" << QStringList{"a", "b"};
    QTest::newRow("closed, other") << "\"a\"b\"c\"" << QStringList{"abc"};
    QTest::newRow("closed, end") << "\"a\"" << QStringList{"a"};
    QTest::newRow("empty lines") << "\n\na\n" << QStringList{"", "", "a"};
    QTest::newRow("final line feed adds nothing") << "a\nb\n" << QStringList{"a", "b"};
    QTest::newRow("carriage returns stay") << "a\r\nb\r\n" << QStringList{"a\r", "b\r"};
    QTest::newRow("blanks stay") << " a , b " << QStringList{" a | b "};
    QTest::newRow("only quotes") << "\"\"\"\"" << QStringList{"\""};
}

void TestCsvRow::records()
{
    QFETCH(QString, text);
    QTEST(recordsOf(text), "records");
}

void TestCsvRow::rowIsClearedFirst()
{
    QString text;
    QTextStream in(&text);
    QStringList row{QStringLiteral("left over")};
    QVERIFY(!Csv::readRow(in, &row));
    QCOMPARE(row, QStringList());
}

void TestCsvRow::endInQuotesIsLogged()
{
    const LogCatcher log;
    QCOMPARE(recordsOf(QStringLiteral("x\na,\"b\nc")), (QStringList{"x", "a"}));
    QCOMPARE(log.lines(QtDebugMsg), QStringList{"End-of-file found while inside quotes."});
}

void TestCsvRow::goodEndIsNotLogged()
{
    const LogCatcher log;
    recordsOf(QStringLiteral("a,\"b\""));
    QCOMPARE(log.lines(), QStringList());
}

/// What an export of a value with quotes looks like, and what comes back.
void TestCsvRow::undoubledQuotesShiftTheFields()
{
    QCOMPARE(recordsOf(QStringLiteral("\"1\",\"rezeň \"veľký, plnený\" dňa\",\"2\"")),
             QStringList{"1|rezeň veľký| plnený dňa|2"});
}

void TestCsvRow::bigField()
{
    const QString field(64 * 1024, QLatin1Char('x'));
    const QString quoted = QLatin1Char('"') + QString(field).replace(100, 1, QLatin1Char('\n')) + QLatin1Char('"');
    QString text = field + QLatin1Char(',') + quoted + QLatin1Char('\n') + field;
    QTextStream in(&text);
    QStringList row;
    QVERIFY(Csv::readRow(in, &row));
    QCOMPARE(row.size(), 2);
    QCOMPARE(row.at(0), field);
    QCOMPARE(row.at(1).size(), 64 * 1024);
    QCOMPARE(row.at(1).at(100), QLatin1Char('\n'));
    QVERIFY(Csv::readRow(in, &row));
    QCOMPARE(row, QStringList{field});
}

void TestCsvRow::bytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("fields");
    const QChar nul(0);
    const QChar replacement(QChar::ReplacementCharacter);
    QTest::newRow("NUL") << QByteArray("a\0b,c", 5)
                         << QStringList{QStringLiteral("a") + nul + QLatin1Char('b'), QStringLiteral("c")};
    QTest::newRow("invalid") << QByteArray("a\xff,b\xc3z")
                             << QStringList{QStringLiteral("a") + replacement,
                                            QStringLiteral("b") + replacement + QLatin1Char('z')};
    QTest::newRow("emoji") << QByteArray("\xf0\x9f\x8d\x94,x")
                           << QStringList{QString::fromUtf8("\xf0\x9f\x8d\x94"), "x"};
    QTest::newRow("line separator is no line feed")
        << QByteArray("a\xe2\x80\xa8"
                      "b")
        << QStringList{QStringLiteral("a") + QChar(0x2028) + QLatin1Char('b')};
}

void TestCsvRow::bytes()
{
    QFETCH(QByteArray, bytes);
    QTextStream in(bytes);
    in.setCodec("UTF-8");
    QStringList row;
    QVERIFY(Csv::readRow(in, &row));
    QTEST(row, "fields");
    QVERIFY(!Csv::readRow(in, &row));
}

void TestCsvRow::doubledQuotesRoundTrip_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("hostile") << QStringList{"\"", "\"\"", ",", "\n", "a\",\"b", "\\", "%1", "<b>x</b>", ""};
    QTest::newRow("one empty") << QStringList{""};
    QTest::newRow("Slovak") << QStringList{"kuracie prsia na grile, ryža", "čučoriedky\nso smotanou"};
}

void TestCsvRow::doubledQuotesRoundTrip()
{
    QFETCH(QStringList, fields);
    QStringList quoted;
    for (QString field : qAsConst(fields))
        quoted.append(QLatin1Char('"') + field.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"'));
    QString text = quoted.join(QLatin1Char(','));
    QTextStream in(&text);
    QStringList row;
    QVERIFY(Csv::readRow(in, &row));
    QCOMPARE(row, fields);
}

QTEST_GUILESS_MAIN(TestCsvRow)
#include "tst_csvrow.moc"
