#include "recordfile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

/// The files that a report is filled from.
class TestRecordFile : public QObject {
    Q_OBJECT

private slots:
    void json();
    void jsonValuesAsText_data();
    void jsonValuesAsText();
    void lowestSetAnswers();
    void csv_data();
    void csv();
    void csvNamesAndNumbers();
    void hostileText();
    void malformed_data();
    void malformed();
    void unreadable();

private:
    RecordFile read(const QString &ending, const QByteArray &bytes) const;

    QTemporaryDir m_folder;
};

RecordFile TestRecordFile::read(const QString &ending, const QByteArray &bytes) const
{
    QFile file(m_folder.filePath(QStringLiteral("records.") + ending));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(file.fileName()));
    file.close();
    return RecordFile(file.fileName());
}

void TestRecordFile::json()
{
    const RecordFile file = read("json", R"({"values": {"title": "Menu", "name": "nobody"},
        "records": [{"name": "Guláš"}, {"name": "Halušky", "title": "own"}],
        "sets": {"2": [["a", 4.5]]}})");
    QCOMPARE(file.error(), QString());
    QCOMPARE(file.count(1), 2);
    QCOMPARE(file.count(2), 1);
    QCOMPARE(file.count(3), 0);
    QCOMPARE(file.count(0), 0);
    QCOMPARE(file.value("name", 0), QStringLiteral("Guláš"));
    QCOMPARE(file.value("name", 1), QStringLiteral("Halušky"));
    QCOMPARE(file.value("name", 2), QStringLiteral("nobody")); // no such record
    QCOMPARE(file.value("name", -1), QStringLiteral("nobody"));
    QCOMPARE(file.value("title", 0), QStringLiteral("Menu"));
    QCOMPARE(file.value("title", 1), QStringLiteral("own"));
    QCOMPARE(file.value("1", 0), QStringLiteral("4.5"));
    QVERIFY(file.value("none", 0).isNull());
}

void TestRecordFile::jsonValuesAsText_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << QByteArray("\" a \"") << " a ";
    QTest::newRow("whole") << QByteArray("12") << "12";
    QTest::newRow("decimals") << QByteArray("4.50") << "4.5";
    QTest::newRow("negative") << QByteArray("-0.25") << "-0.25";
    QTest::newRow("true") << QByteArray("true") << "true";
    QTest::newRow("null") << QByteArray("null") << "";
}

void TestRecordFile::jsonValuesAsText()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, text);
    QCOMPARE(read("json", "{\"values\": {\"v\": " + value + "}}").value("v", 0), text);
    QCOMPARE(read("json", "{\"records\": [[" + value + "]]}").value("0", 0), text);
}

void TestRecordFile::lowestSetAnswers()
{
    const RecordFile file = read("json", R"({"sets": {"10": [{"v": "ten"}], "3": [{"v": "three"}],
        "2": [{"w": "two"}]}})");
    QCOMPARE(file.value("v", 0), QStringLiteral("three"));
    QCOMPARE(file.value("w", 0), QStringLiteral("two"));
    // "records" is set 1, whatever "sets" says of that.
    QCOMPARE(read("json", R"({"records": [["r"]], "sets": {"1": [["s"], ["t"]]}})").count(1), 1);
}

void TestRecordFile::csv_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("plain") << QByteArray("a,b") << QStringList{"a", "b"};
    QTest::newRow("empty ones") << QByteArray(",,") << QStringList{"", "", ""};
    QTest::newRow("blanks stay") << QByteArray(" a , b ") << QStringList{" a ", " b "};
    QTest::newRow("comma in quotes") << QByteArray("\"4,50\",x") << QStringList{"4,50", "x"};
    QTest::newRow("doubled quotes") << QByteArray("\"the \"\"big\"\" one\"") << QStringList{"the \"big\" one"};
    QTest::newRow("empty in quotes") << QByteArray("\"\",x") << QStringList{"", "x"};
    QTest::newRow("line end in quotes") << QByteArray("\"a\nb\",x") << QStringList{"a\nb", "x"};
    QTest::newRow("only quotes") << QByteArray("\"\"\"\"\"\"") << QStringList{"\"\""};
}

void TestRecordFile::csv()
{
    QFETCH(QByteArray, line);
    QFETCH(QStringList, fields);
    for (const char *end : {"", "\n", "\r\n", "\n\n\n"}) {
        const RecordFile file = read("CSV", "n\r\n" + line + end);
        QCOMPARE(file.error(), QString());
        QCOMPARE(file.count(1), 1);
        for (int number = 0; number < fields.size(); ++number)
            QCOMPARE(file.value(QString::number(number), 0), fields.at(number));
        QVERIFY(file.value(QString::number(fields.size()), 0).isNull());
    }
}

void TestRecordFile::csvNamesAndNumbers()
{
    const RecordFile file = read("csv", "\xEF\xBB\xBFname, price\nGul\xC3\xA1\xC5\xA1,4.5\nshort\n1,2,3\n");
    QCOMPARE(file.count(1), 3);
    QCOMPARE(file.value("name", 0), QStringLiteral("Guláš")); // the mark at the file's start is no part of the name
    QCOMPARE(file.value("price", 0), QStringLiteral("4.5"));
    QVERIFY(file.value("price", 1).isNull());
    QCOMPARE(file.value("2", 2), QStringLiteral("3")); // a column without a name
    QCOMPARE(read("csv", "name\n").count(1), 0);
    QCOMPARE(read("csv", "name\n").error(), QString());
}

void TestRecordFile::hostileText()
{
    const QString text =
        QString::fromUtf8("'\"\\ %1 <b>x</b> \xF0\x9F\x8D\xB2 \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D ") + QString(10000, 'x');
    QString quoted = text;
    quoted.replace('"', QLatin1String("\"\""));
    QCOMPARE(read("csv", ("t\n\"" + quoted + '"').toUtf8()).value("t", 0), text);
    QString escaped = text;
    escaped.replace('\\', QLatin1String("\\\\")).replace('"', QLatin1String("\\\""));
    QCOMPARE(read("json", ("{\"values\": {\"t\": \"" + escaped + "\"}}").toUtf8()).value("t", 0), text);
}

void TestRecordFile::malformed_data()
{
    QTest::addColumn<QString>("ending");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    QTest::newRow("empty") << "json" << QByteArray() << "illegal value at byte 0";
    QTest::newRow("cut off") << "json" << QByteArray("{\"values\": {\"a\": 1}") << "unterminated object at byte 19";
    QTest::newRow("list") << "json" << QByteArray("[]") << "an object is wanted";
    QTest::newRow("records") << "json" << QByteArray("{\"values\": {\"a\": \"b\"}, \"records\": {}}")
                             << "data set 1 is no list";
    QTest::newRow("set") << "json" << QByteArray("{\"sets\": {\"first\": []}}")
                         << "\"first\" is no number of a data set";
    QTest::newRow("set 0") << "json" << QByteArray("{\"sets\": {\"0\": []}}") << "\"0\" is no number of a data set";
    QTest::newRow("record") << "json" << QByteArray("{\"sets\": {\"2\": [{}, 1]}}")
                            << "a record of data set 2 is neither object nor list";
    QTest::newRow("another encoding") << "json" << QByteArray("{\"values\": {\"a\": \"gul\xE1\x9A\"}}")
                                      << "the text is not UTF-8";
    QTest::newRow("csv empty") << "csv" << QByteArray() << "the first line has no names";
    QTest::newRow("csv blank") << "csv" << QByteArray(" , \na,b") << "the first line has no names";
    QTest::newRow("csv quote") << "csv" << QByteArray("a\n\"b\n") << "a quote does not end";
    QTest::newRow("csv another encoding") << "csv" << QByteArray("a\ngul\xE1\x9A\n") << "the text is not UTF-8";
    QTest::newRow("csv cut off letter") << "csv" << QByteArray("a\n\xC3") << "the text is not UTF-8";
}

void TestRecordFile::malformed()
{
    QFETCH(QString, ending);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const RecordFile file = read(ending, bytes);
    QCOMPARE(file.error(), error);
    QCOMPARE(file.count(1), 0);
    QCOMPARE(file.count(2), 0);
    QVERIFY(file.value("a", 0).isNull());
}

void TestRecordFile::unreadable()
{
    QCOMPARE(RecordFile(m_folder.filePath("none.json")).error(), QStringLiteral("No such file or directory"));
    QVERIFY(QDir(m_folder.path()).mkdir("folder.csv"));
    QVERIFY(!RecordFile(m_folder.filePath("folder.csv")).error().isEmpty());
}

QTEST_MAIN(TestRecordFile)
#include "tst_recordfile.moc"
