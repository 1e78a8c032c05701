#include "exports/sheetsetup.h"
#include "recordingbook.h"
#include "session/session.h"
#include "support/logcatcher.h"

#include <QtTest>

class TestSheetSetup : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { session().debugLevel = 0; }

    void beginning();
    void names_data();
    void names();
    void withoutASheet();
    void logs_data();
    void logs();
};

void TestSheetSetup::beginning()
{
    RecordingBook book;
    QCOMPARE(beginSheet(book, QStringLiteral("ZEP")), &book.sheet);
    QCOMPARE(book.calls, (QStringList{"locale UTF-8", "rgb 1"}));
    QCOMPARE(book.defaultFontName(), QStringLiteral("MS Shell Dlg 2"));
    QCOMPARE(book.defaultFontSize(), 10);
    QCOMPARE(book.sheetCount, 1);
    QCOMPARE(book.sheet.page,
             (QStringList{"display gridlines 0", "print gridlines 0", "left 0.1968", "right 0.1968", "top 0.1968",
                          "bottom 0.1968", "fit 1 0", "landscape 1", "paper 9"}));
}

void TestSheetSetup::names_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::newRow("short") << "ZEP - Kontrolný export stravy"
                           << "ZEP - Kontrolný export stravy";
    QTest::newRow("as long as may be") << QString(31, 'x') << QString(31, 'x');
    QTest::newRow("branch") << "ZEP - Mesačný výpis objednávok zamestnancov"
                            << "ZEP - Mesačný výpis objednávok ";
    QTest::newRow("person") << "ZEP - Mesačný výpis objednanej stravy"
                            << "ZEP - Mesačný výpis objednanej ";
}

void TestSheetSetup::names()
{
    QFETCH(QString, title);
    RecordingBook book;
    beginSheet(book, title);
    QTEST(book.sheet.name, "name");
}

void TestSheetSetup::withoutASheet()
{
    RecordingBook book;
    book.takesSheets = false;
    QVERIFY(!beginSheet(book, QStringLiteral("ZEP")));
    QCOMPARE(book.sheet.page, QStringList());
}

void TestSheetSetup::logs_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("takesLocale");
    QTest::addColumn<QStringList>("debug");
    QTest::addColumn<QStringList>("warnings");
    const QStringList none;
    QTest::newRow("usual") << 0 << true << QStringList{"setLocale OK"} << none;
    QTest::newRow("locale refused") << 0 << false << none << QStringList{"setLocale Fail!"};
    QTest::newRow("debug level") << 1 << true << QStringList{"setLocale OK", "default font: \"MS Shell Dlg 2\" 10"}
                                 << none;
    QTest::newRow("debug level, locale refused")
        << 2 << false << QStringList{"default font: \"MS Shell Dlg 2\" 10"} << QStringList{"setLocale Fail!"};
}

void TestSheetSetup::logs()
{
    QFETCH(int, level);
    QFETCH(bool, takesLocale);
    session().debugLevel = quint8(level);
    RecordingBook book;
    book.takesLocale = takesLocale;
    const LogCatcher log;
    // A refused locale changes nothing else.
    QVERIFY(beginSheet(book, QStringLiteral("ZEP")));
    QTEST(log.lines(QtDebugMsg), "debug");
    QTEST(log.lines(QtWarningMsg), "warnings");
    QCOMPARE(book.defaultFontName(), QStringLiteral("MS Shell Dlg 2"));
}

QTEST_APPLESS_MAIN(TestSheetSetup)
#include "tst_sheetsetup.moc"
