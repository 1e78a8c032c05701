#include "hoststyle.h"

#include "slovaktexts.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFontMetrics>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QRegularExpression>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A subclass, as the pages and cards are: it paints no background of a style sheet by itself.
class Subclass : public QWidget {
    Q_OBJECT
};

QColor backgroundOf(QWidget &widget)
{
    widget.resize(40, 40);
    return widget.grab().toImage().pixelColor(20, 20);
}

QString ownSheet()
{
    QFile file(QStringLiteral(":/host/style.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestHostStyle : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void panelsPaintTheirGround_data();
    void panelsPaintTheirGround();
    void falsePropertyIsNoPanel();
    void rowsOfAFilledListHaveTheirHeight();
    void fontHasTheSlovakLetters();
    void everyImageOfTheSheetExists();
    void ownSheetCanBeReplaced();
    void unreadableSheetLeavesTheOwnOne();
    void standardButtonsAreSlovak();
};

void TestHostStyle::initTestCase()
{
    QCOMPARE(applyLook(QString()), QString());
}

void TestHostStyle::panelsPaintTheirGround_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QColor>("ground");
    QTest::newRow("whitePanel") << QByteArray("whitePanel") << QColor(0xff, 0xff, 0xff);
    QTest::newRow("silverPanel") << QByteArray("silverPanel") << QColor(0xe2, 0xe8, 0xee);
}

void TestHostStyle::panelsPaintTheirGround()
{
    QFETCH(QByteArray, property);
    Subclass panel;
    panel.setProperty(property.constData(), true);
    QTEST(backgroundOf(panel), "ground");
    QWidget plain;
    plain.setProperty(property.constData(), true);
    QTEST(backgroundOf(plain), "ground");
}

void TestHostStyle::falsePropertyIsNoPanel()
{
    Subclass panel;
    panel.setProperty("whitePanel", false);
    Subclass other;
    QCOMPARE(backgroundOf(panel), backgroundOf(other));
    QVERIFY(backgroundOf(other) != QColor(Qt::white));
}

void TestHostStyle::rowsOfAFilledListHaveTheirHeight()
{
    QWidget page;
    QListView list(&page);
    QStringListModel model({QStringLiteral("polievka"), QStringLiteral("jedlo")});
    list.setModel(&model);
    page.show();
    const int height = list.sizeHintForRow(0);
    QVERIFY(height > list.fontMetrics().height() + 4);
    QTRY_COMPARE(list.visualRect(model.index(1, 0)).top(), height);
}

void TestHostStyle::fontHasTheSlovakLetters()
{
    const QFontMetrics metrics(QApplication::font());
    const QString letters = QStringLiteral("áäčďéíĺľňóôŕšťúýžÁÄČĎÉÍĹĽŇÓÔŔŠŤÚÝŽ…–„“€");
    for (const QChar letter : letters)
        QVERIFY2(metrics.inFont(letter), qPrintable(QString(letter)));
}

void TestHostStyle::everyImageOfTheSheetExists()
{
    const QRegularExpression pattern(QStringLiteral("url\\(([^)]*)\\)"));
    QRegularExpressionMatchIterator images = pattern.globalMatch(ownSheet());
    int number = 0;
    while (images.hasNext()) {
        const QString image = images.next().captured(1);
        QVERIFY2(!QPixmap(image).isNull(), qPrintable(image));
        ++number;
    }
    QVERIFY(number > 5);
}

void TestHostStyle::ownSheetCanBeReplaced()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("iný.qss")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("*[whitePanel=\"true\"] { background: #102030; }");
    file.close();
    QCOMPARE(applyLook(file.fileName()), QString());
    Subclass panel;
    panel.setProperty("whitePanel", true);
    QCOMPARE(backgroundOf(panel), QColor(0x10, 0x20, 0x30));
    QCOMPARE(applyLook(QString()), QString());
}

void TestHostStyle::unreadableSheetLeavesTheOwnOne()
{
    const QString problem = applyLook(QStringLiteral("/nowhere/style.qss"));
    QVERIFY2(problem.startsWith(QStringLiteral("Súbor štýlov /nowhere/style.qss sa nedá načítať: ")),
             qPrintable(problem));
    QCOMPARE(qApp->styleSheet(), ownSheet());
    QVERIFY(!ownSheet().isEmpty());
}

void TestHostStyle::standardButtonsAreSlovak()
{
    SlovakTexts texts;
    QVERIFY2(texts.load(), "package qttranslations5-l10n is missing");
    QCoreApplication::installTranslator(&texts);
    QDialogButtonBox box(QDialogButtonBox::Cancel | QDialogButtonBox::Save | QDialogButtonBox::Close);
    const auto text = [&](QDialogButtonBox::StandardButton button) {
        return box.button(button)->text().remove(QLatin1Char('&'));
    };
    QCOMPARE(text(QDialogButtonBox::Cancel), QStringLiteral("Zrušiť"));
    QCOMPARE(text(QDialogButtonBox::Save), QStringLiteral("Uložiť"));
    QCOMPARE(text(QDialogButtonBox::Close), QStringLiteral("Zavrieť"));
}

QTEST_MAIN(TestHostStyle)
#include "tst_hoststyle.moc"
