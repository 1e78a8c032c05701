#include "exports/controllegend.h"

#include <QtTest>

class TestControlLegend : public QObject {
    Q_OBJECT

private slots:
    void letters_data();
    void letters();
    void names_data();
    void names();
    void text_data();
    void text();
};

void TestControlLegend::letters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("letters");
    const QString soup = QString::fromUtf8("🍲");
    const QString decomposed = QStringLiteral("C\u030calamada");
    QTest::newRow("one") << "Polievka" << 1 << "P";
    QTest::newRow("two") << "Obed" << 2 << "Ob";
    QTest::newRow("Slovak") << "Šalát" << 1 << "Š";
    QTest::newRow("just as many") << "Ob" << 2 << "Ob";
    QTest::newRow("too few") << "O" << 2 << "O";
    QTest::newRow("none there") << "" << 2 << "";
    QTest::newRow("none wanted") << "Obed" << 0 << "";
    QTest::newRow("blank") << "1. raňajky" << 2 << "1.";
    QTest::newRow("emoji") << soup + "Polievka" << 1 << soup;
    QTest::newRow("two emoji") << soup + soup + soup << 2 << soup + soup;
    QTest::newRow("letter and accent apart") << decomposed << 1 << decomposed.left(2);
}

void TestControlLegend::letters()
{
    QFETCH(QString, text);
    QFETCH(int, count);
    QTEST(ControlLegend::letters(text, count), "letters");
}

void TestControlLegend::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("segment");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("inSums");
    const QString soup = QString::fromUtf8("🍲");
    QTest::newRow("usual") << "Obed"
                           << "Ob-Obed"
                           << "O-Obed"
                           << "-Obed";
    QTest::newRow("two letters") << "Ob"
                                 << "Ob-Ob"
                                 << "O-Ob"
                                 << "-Ob";
    QTest::newRow("one letter") << "O"
                                << "O-O"
                                << "O-O"
                                << "O";
    QTest::newRow("empty") << ""
                           << "-"
                           << "-"
                           << "";
    QTest::newRow("emoji") << soup + soup + "x" << soup + soup + "-" + soup + soup + "x"
                           << soup + "-" + soup + soup + "x"
                           << "-" + soup + soup + "x";
    QTest::newRow("placeholder") << "%1"
                                 << "%1-%1"
                                 << "%-%1"
                                 << "-%1";
}

void TestControlLegend::names()
{
    QFETCH(QString, name);
    QTEST(ControlLegend::segment(name), "segment");
    QTEST(ControlLegend::type(name), "type");
    QTEST(ControlLegend::segmentInSums(name), "inSums");
}

void TestControlLegend::text_data()
{
    QTest::addColumn<QStringList>("segments");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QString>("text");
    const QStringList none;
    QTest::newRow("both") << QStringList{"Raňajky", "Obed"} << QStringList{"Polievka", "Šalát"}
                          << "LEGENDA: Ra-Raňajky, Ob-Obed, P-Polievka, Š-Šalát";
    QTest::newRow("no types") << QStringList{"Obed"} << none << "LEGENDA: Ob-Obed";
    QTest::newRow("no slots") << none << QStringList{"Polievka"} << "LEGENDA: P-Polievka";
    QTest::newRow("nothing") << none << none << "LEGENDA: ";
    QTest::newRow("hostile") << QStringList{"%1", "=1"} << QStringList{"<b>"} << "LEGENDA: %1-%1, =1-=1, <-<b>";
}

void TestControlLegend::text()
{
    QFETCH(QStringList, segments);
    QFETCH(QStringList, types);
    QTEST(ControlLegend::text(segments, types), "text");
}

QTEST_APPLESS_MAIN(TestControlLegend)
#include "tst_controllegend.moc"
