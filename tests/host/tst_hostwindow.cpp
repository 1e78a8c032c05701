#include "fakeplugin.h"
#include "hostwindow.h"
#include "sidebar.h"
#include "support/boxanswerer.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QSqlDatabase>
#include <QToolButton>
#include <QtTest>

namespace {

QString labelText(const HostWindow &window, const char *name)
{
    const auto *label = window.findChild<QLabel *>(QLatin1String(name));
    return label ? label->text() : QStringLiteral("no label");
}

QToolButton *entryButton(const HostWindow &window, int index)
{
    return window.findChild<Sidebar *>()->buttons().value(index);
}

void letGo()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestHostWindow : public QObject {
    Q_OBJECT

private slots:
    void callsComeInTheNeededOrder();
    void pageIsReplacedAndDisposedOf();
    void entryWithoutAPageLeavesThePresentOne();
    void thePageGoesWithTheWindow();
    void aPageMayNeedMoreRoomThanThereIs();
    void readOnlyClosesTheSettings();
    void statusBarTellsTheSession_data();
    void statusBarTellsTheSession();
    void databaseStateIsShown();
    void messagesStandAbovePages();
    void entriesByName_data();
    void entriesByName();
    void aboutShowsTheVersionRecords();
    void aboutWithoutAPlugin();
    void worksWithoutAPlugin();
};

void TestHostWindow::callsComeInTheNeededOrder()
{
    FakePlugin plugin;
    HostWindow window;
    window.usePlugin(&plugin, QSqlDatabase(),
                     {{QStringLiteral("adminID"), 7U},
                      {QStringLiteral("debugLevel"), 2},
                      {QStringLiteral("readOnly"), false},
                      {QStringLiteral("companyName"), QStringLiteral("Firma")}});
    QCOMPARE(plugin.calls(),
             (QStringList{QStringLiteral("setDatabase closed"), QStringLiteral("setDebugLevel 2"),
                          QStringLiteral("setOptions adminID=7 companyName=Firma debugLevel=2 readOnly=false"),
                          QStringLiteral("menu connected")}));
    QVERIFY(!window.page());
}

void TestHostWindow::pageIsReplacedAndDisposedOf()
{
    FakePlugin plugin;
    HostWindow window;
    window.usePlugin(&plugin, QSqlDatabase(), {});
    window.show();
    QVERIFY(window.findChild<QLabel *>(QStringLiteral("welcome"))->isVisible());
    QCOMPARE(labelText(window, "welcome"), QStringLiteral("Vyberte si stránku v bočnom paneli."));
    QTest::mouseClick(entryButton(window, 0), Qt::LeftButton);
    const QPointer<QWidget> first(window.page());
    QVERIFY(first);
    QVERIFY(first->isVisible());
    QCOMPARE(window.windowTitle(), QStringLiteral("Menu – Dochádzka ZEP"));
    QVERIFY(entryButton(window, 0)->isChecked());

    QTest::mouseClick(entryButton(window, 1), Qt::LeftButton);
    QVERIFY(window.page() != first);
    QCOMPARE(window.windowTitle(), QStringLiteral("Jedlá – Dochádzka ZEP"));
    QVERIFY(!entryButton(window, 0)->isChecked());
    QVERIFY(entryButton(window, 1)->isChecked());
    letGo();
    QVERIFY(first.isNull());
    QVERIFY(!window.findChild<QLabel *>(QStringLiteral("welcome")));
    QVERIFY(window.page()->isVisible());

    // The same entry again makes a new page, too.
    const QPointer<QWidget> second(window.page());
    QTest::mouseClick(entryButton(window, 1), Qt::LeftButton);
    QVERIFY(window.page() != second);
    letGo();
    QVERIFY(second.isNull());
}

void TestHostWindow::entryWithoutAPageLeavesThePresentOne()
{
    FakePlugin plugin;
    HostWindow window;
    window.usePlugin(&plugin, QSqlDatabase(), {});
    window.show();
    QTest::mouseClick(entryButton(window, 2), Qt::LeftButton);
    const QPointer<QWidget> page(window.page());
    QTest::mouseClick(entryButton(window, 3), Qt::LeftButton);
    letGo();
    QVERIFY(page);
    QCOMPARE(window.page(), page.data());
    QVERIFY(page->isVisible());
    QVERIFY(entryButton(window, 2)->isChecked());
    QVERIFY(!entryButton(window, 3)->isChecked());
    QCOMPARE(window.windowTitle(), QStringLiteral("Dodávatelia – Dochádzka ZEP"));
    window.showPage(nullptr);
    window.showPage(page);
    QCOMPARE(window.page(), page.data());
}

void TestHostWindow::thePageGoesWithTheWindow()
{
    FakePlugin plugin;
    QPointer<QWidget> page;
    QPointer<QMenu> menu;
    {
        HostWindow window;
        window.usePlugin(&plugin, QSqlDatabase(), {});
        window.entryNamed(QStringLiteral("menu"))->trigger();
        page = window.page();
        menu = plugin.menu();
        QVERIFY(page && menu);
    }
    QVERIFY(page.isNull());
    QVERIFY(menu.isNull());
}

void TestHostWindow::aPageMayNeedMoreRoomThanThereIs()
{
    HostWindow window;
    window.resize(800, 600);
    window.show();
    auto *page = new QWidget;
    page->setMinimumSize(2000, 1500);
    window.showPage(page);
    QCoreApplication::processEvents();
    QCOMPARE(window.size(), QSize(800, 600));
    QCOMPARE(page->size(), QSize(2000, 1500));
}

void TestHostWindow::readOnlyClosesTheSettings()
{
    FakePlugin plugin;
    HostWindow window;
    window.usePlugin(&plugin, QSqlDatabase(), {{QStringLiteral("readOnly"), true}});
    QVERIFY(entryButton(window, 0)->isEnabled());
    QVERIFY(!entryButton(window, 3)->isEnabled());
}

void TestHostWindow::statusBarTellsTheSession_data()
{
    QTest::addColumn<QVariantMap>("options");
    QTest::addColumn<QString>("texts");
    QTest::newRow("none") << QVariantMap() << "Administrátor: všetky práva|Firma: neuvedená|Úpravy povolené";
    QTest::newRow("all") << QVariantMap{{"adminID", 4294967295U},
                                        {"companyName", "Žito & <b>syn</b>"},
                                        {"readOnly", true}}
                         << "Administrátor: 4294967295|Firma: Žito & <b>syn</b>|Len na čítanie";
}

void TestHostWindow::statusBarTellsTheSession()
{
    QFETCH(QVariantMap, options);
    FakePlugin plugin;
    HostWindow window;
    window.usePlugin(&plugin, QSqlDatabase(), options);
    QTEST((QStringList{labelText(window, "statusAdministrator"), labelText(window, "statusCompany"),
                       labelText(window, "statusAccess")}
               .join(QLatin1Char('|'))),
          "texts");
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("statusCompany"))->textFormat(), Qt::PlainText);
}

void TestHostWindow::databaseStateIsShown()
{
    HostWindow window;
    window.showDatabase(QStringLiteral("vianda na /run/a"), true);
    QCOMPARE(labelText(window, "statusDatabase"), QStringLiteral("Databáza: vianda na /run/a"));
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("statusDatabase"))->property("connected"), QVariant(true));
    window.showDatabase(QStringLiteral("vianda na /run/a"), false);
    QCOMPARE(labelText(window, "statusDatabase"), QStringLiteral("Databáza: nepripojená"));
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("statusDatabase"))->property("connected"), QVariant(false));
}

void TestHostWindow::messagesStandAbovePages()
{
    HostWindow window;
    window.show();
    window.warn(QStringLiteral("Prvá <b>správa</b>"));
    window.warn(QStringLiteral("Druhá správa"));
    QList<QLabel *> texts = window.findChildren<QLabel *>(QStringLiteral("bannerText"));
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts.at(0)->text(), QStringLiteral("Prvá <b>správa</b>"));
    QCOMPARE(texts.at(0)->textFormat(), Qt::PlainText);
    QVERIFY(texts.at(0)->isVisible());
    window.showPage(new QLabel(QStringLiteral("stránka")));
    QVERIFY(texts.at(1)->isVisible());
    QTest::mouseClick(window.findChild<QToolButton *>(QStringLiteral("butCloseBanner")), Qt::LeftButton);
    letGo();
    texts = window.findChildren<QLabel *>(QStringLiteral("bannerText"));
    QCOMPARE(texts.size(), 1);
    QCOMPARE(texts.at(0)->text(), QStringLiteral("Druhá správa"));
}

void TestHostWindow::entriesByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("entry");
    QTest::newRow("word") << "menu"
                          << "Menu";
    QTest::newRow("foods") << "foods"
                           << "Jedlá";
    QTest::newRow("suppliers") << "Suppliers"
                               << "Dodávatelia";
    QTest::newRow("settings") << "settings"
                              << "Nastavenia";
    QTest::newRow("text") << "Jedlá"
                          << "Jedlá";
    QTest::newRow("text in another case") << "DODÁVATELIA"
                                          << "Dodávatelia";
    QTest::newRow("unknown") << "orders"
                             << "";
    QTest::newRow("none") << ""
                          << "";
}

void TestHostWindow::entriesByName()
{
    QFETCH(QString, name);
    FakePlugin plugin;
    HostWindow window;
    QVERIFY(!window.entryNamed(name));
    window.usePlugin(&plugin, QSqlDatabase(), {});
    const QAction *entry = window.entryNamed(name);
    QTEST(entry ? entry->text() : QString(), "entry");
}

void TestHostWindow::aboutShowsTheVersionRecords()
{
    FakePlugin plugin;
    HostWindow window;
    window.usePlugin(&plugin, QSqlDatabase(), {});
    window.show();
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("O programe"), QStringLiteral("<h3>Dochádzka ZEP</h3>Modul <b>fake &lt;1&gt;</b>"),
                    QMessageBox::Ok, [](QMessageBox *box) {
                        const QString row =
                            QStringLiteral("<tr><td style=\"padding-right: 16px\">%1</td><td><b>%2</b></td></tr>");
                        QCOMPARE(box->informativeText(),
                                 QStringLiteral("<table cellspacing=\"4\">%1%2%3</table>")
                                     .arg(row.arg(QStringLiteral("Zostavené"), QStringLiteral("21. 4. 2024 19:57")),
                                          row.arg(QStringLiteral("ODD"), QStringLiteral("a&lt;b")),
                                          row.arg(QStringLiteral("Verzia"), QStringLiteral("0.1"))));
                    });
    QTest::mouseClick(window.findChild<QToolButton *>(QStringLiteral("butAbout")), Qt::LeftButton);
    BOXES_DONE(boxes);
    QVERIFY(
        HostWindow::versionTable({{QStringLiteral("BUILD"), QStringLiteral("99")}}).contains(QLatin1String(">99<")));
}

void TestHostWindow::aboutWithoutAPlugin()
{
    HostWindow window;
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("O programe"),
                    QStringLiteral("<h3>Dochádzka ZEP</h3>Modul stravovania nie je načítaný."));
    window.showAbout();
    BOXES_DONE(boxes);
}

void TestHostWindow::worksWithoutAPlugin()
{
    HostWindow window;
    window.show();
    QVERIFY(window.findChild<QLabel *>(QStringLiteral("welcome"))->isVisible());
    QCOMPARE(labelText(window, "welcome"), QStringLiteral("Modul stravovania nie je načítaný."));
    QVERIFY(window.findChild<Sidebar *>()->buttons().isEmpty());
}

QTEST_MAIN(TestHostWindow)
#include "tst_hostwindow.moc"
