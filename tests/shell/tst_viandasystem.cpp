#include "board/menuwidget.h"
#include "session/session.h"
#include "shell/viandasystem.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

QVariantMap savedFilters()
{
    return QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).value(QStringLiteral("filters")).toMap();
}

QAction *entry(Viandasystem &shell, const QString &title)
{
    const QList<QAction *> actions = shell.menu()->actions();
    for (QAction *action : actions) {
        if (action->text() == title)
            return action;
    }
    return nullptr;
}

/// Owns the sidebar menu and the pages of one shell, as a host does.
class Host {
public:
    explicit Host(Viandasystem &shell)
        : m_menu(shell.menu())
    {
        QObject::connect(&shell, &Viandasystem::sigSetCurrentWidget, &m_context, [this](QWidget *page) {
            pages.emplace_back(page);
            cursorWhileOffered =
                QGuiApplication::overrideCursor() ? QGuiApplication::overrideCursor()->shape() : Qt::ArrowCursor;
        });
    }

    std::vector<std::unique_ptr<QWidget>> pages;
    Qt::CursorShape cursorWhileOffered = Qt::ArrowCursor;

private:
    QObject m_context;
    std::unique_ptr<QMenu> m_menu;
};

/// A shell on an open database, with a host that has set it up and holds its pages.
class RunningShell {
public:
    explicit RunningShell(const TestDatabase &database, const QVariantMap &options = {})
        : host((shell.setDatabase(database.db()), shell.setOptions(options), shell))
    {
    }

    /// The new board, or null.
    MenuWidget *openBoard()
    {
        const std::size_t before = host.pages.size();
        entry(shell, QStringLiteral("Menu"))->trigger();
        return host.pages.size() > before ? qobject_cast<MenuWidget *>(host.pages.back().get()) : nullptr;
    }

    Viandasystem shell;
    Host host;
};

/// An entry of a virtual table, as a host built apart from the module would call it.
template<typename Function> Function virtualOperation(void *interface, int slot)
{
    const int afterTheDestructorPair = 2;
    void **table = *static_cast<void ***>(interface);
    return reinterpret_cast<Function>(table[afterTheDestructorPair + slot]);
}

} // namespace

class TestViandasystem : public QObject {
    Q_OBJECT

private slots:
    void init();

    void metaObjectKeepsItsOrder();
    void metacastAnswersToItsNames();
    void interfaceSlotsStandInOrder();
    void nameAndVersions();

    void menuIsMadeOnce();
    void menuHasFourEntriesWithIcons();
    void readOnlyClosesTheSettingsOnly();
    void readOnlyAfterTheMenuClosesNothing();

    void optionsAreStored();
    void emptyOptionsClearTheSession();
    void administratorReachesTheBoard_data();
    void administratorReachesTheBoard();
    void debugLevelKeepsItsLowByte_data();
    void debugLevelKeepsItsLowByte();
    void optionsLineFollowsTheLevelFromBefore();
    void processWideLevelIsNeverWritten();

    void menuEntryOffersABoard();
    void triggersAreLogged();
    void boardStartsInOrdersOnAFirstRun();
    void filterSurvivesARestart();
    void everyBoardStaysConnected();
    void foreignSendersHaveNoPage();
    void otherEntriesOfferTheirPages_data();
    void otherEntriesOfferTheirPages();
    void administratorReachesTheSuppliers();
    void filterLineIsGated();
    void filtersOfOtherModulesStay();
};

void TestViandasystem::init()
{
    QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).clear();
    session() = Session();
}

void TestViandasystem::metaObjectKeepsItsOrder()
{
    const QMetaObject &meta = Viandasystem::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    QCOMPARE(methods,
             (QStringList{QStringLiteral("sigSetCurrentWidget(QWidget*)"), QStringLiteral("setCurrentWidget()"),
                          QStringLiteral("setFilter(QString,QVariantMap)")}));
    const QMetaMethod setFilter = meta.method(meta.indexOfMethod("setFilter(QString,QVariantMap)"));
    QCOMPARE(setFilter.parameterNames(), (QList<QByteArray>{"module", "data"}));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QVERIFY(meta.indexOfSlot("setCurrentWidget()") > 0);
}

void TestViandasystem::metacastAnswersToItsNames()
{
    Viandasystem shell;
    void *menuPlugin = static_cast<MenuPluginInterface *>(&shell);
    void *verInfo = static_cast<VerInfoInterface *>(&shell);
    QCOMPARE(shell.qt_metacast("Viandasystem"), static_cast<void *>(&shell));
    QCOMPARE(shell.qt_metacast("MenuPluginInterface"), menuPlugin);
    QCOMPARE(shell.qt_metacast("sk.norvik-it.MenuPluginInterface"), menuPlugin);
    QCOMPARE(shell.qt_metacast("VerInfoInterface"), verInfo);
    QCOMPARE(shell.qt_metacast("com.norvik-it.VerInfoInterface"), verInfo);
    QCOMPARE(shell.qt_metacast("com.norvik-it.ViandaInterface"), static_cast<void *>(nullptr));
}

void TestViandasystem::interfaceSlotsStandInOrder()
{
    Viandasystem shell;
    void *plugin = static_cast<MenuPluginInterface *>(&shell);
    virtualOperation<void (*)(void *, const QSqlDatabase &)>(plugin, 0)(plugin, QSqlDatabase());
    virtualOperation<void (*)(void *, quint8)>(plugin, 1)(plugin, 1);
    LogCatcher log;
    virtualOperation<void (*)(void *, const QVariantMap &)>(plugin, 2)(
        plugin, {{QStringLiteral("companyName"), QStringLiteral("Firma")}});
    QCOMPARE(log.lines(), QStringList{QStringLiteral("Viandasystem - setOptions()")});
    QCOMPARE(session().companyName, QStringLiteral("Firma"));
    const std::unique_ptr<QMenu> menu(virtualOperation<QMenu *(*)(void *)>(plugin, 3)(plugin));
    QCOMPARE(menu->title(), QStringLiteral("Strava"));
    QCOMPARE(virtualOperation<QString (*)(void *)>(plugin, 4)(plugin), QStringLiteral("vianda"));
    QCOMPARE(virtualOperation<QString (*)(void *)>(plugin, 5)(plugin), QStringLiteral("1.3.1"));

    void *records = static_cast<VerInfoInterface *>(&shell);
    const auto info = virtualOperation<QMap<QString, QString> (*)(void *)>(records, 0)(records);
    QCOMPARE(info.value(QStringLiteral("ZEPDB")), QStringLiteral("21.04.06"));
}

void TestViandasystem::nameAndVersions()
{
    Viandasystem shell;
    QCOMPARE(shell.moduleName(), QStringLiteral("vianda"));
    QCOMPARE(shell.version(), QStringLiteral("1.3.1"));
    const QMap<QString, QString> info = shell.versionInfo();
    QCOMPARE(info.keys(),
             (QStringList{QStringLiteral("BUILD"), QStringLiteral("VER"), QStringLiteral("ZEPDB"),
                          QStringLiteral("korvoType")}));
    QCOMPARE(info.value(QStringLiteral("VER")), QStringLiteral("1.3.1"));
    QCOMPARE(info.value(QStringLiteral("korvoType")), QStringLiteral("PLG.VI"));
    QCOMPARE(info.value(QStringLiteral("ZEPDB")), QStringLiteral("21.04.06"));
    QVERIFY(QRegularExpression(QStringLiteral("^\\d{10}$")).match(info.value(QStringLiteral("BUILD"))).hasMatch());
}

void TestViandasystem::menuIsMadeOnce()
{
    Viandasystem shell;
    const std::unique_ptr<QMenu> menu(shell.menu());
    QCOMPARE(shell.menu(), menu.get());
    QCOMPARE(menu->actions().size(), 4);
    QCOMPARE(menu->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly).size(), 5); // its own menu action too
    QVERIFY(!menu->parent());
}

void TestViandasystem::menuHasFourEntriesWithIcons()
{
    Viandasystem shell;
    const std::unique_ptr<QMenu> menu(shell.menu());
    QStringList titles;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        titles.append(action->text());
        QCOMPARE(action->parent(), menu.get());
        const QPixmap checked = action->icon().pixmap(QSize(32, 32), QIcon::Normal, QIcon::On);
        const QPixmap plain = action->icon().pixmap(QSize(32, 32), QIcon::Normal, QIcon::Off);
        const QPixmap active = action->icon().pixmap(QSize(32, 32), QIcon::Active, QIcon::Off);
        QVERIFY2(!plain.isNull(), qPrintable(action->text()));
        QVERIFY(checked.toImage() != plain.toImage());
        QVERIFY(active.toImage() != plain.toImage());
        QCOMPARE(active.toImage(), action->icon().pixmap(QSize(32, 32), QIcon::Active, QIcon::On).toImage());
    }
    QCOMPARE(titles,
             (QStringList{QStringLiteral("Menu"), QStringLiteral("Jedlá"), QStringLiteral("Dodávatelia"),
                          QStringLiteral("Nastavenia")}));
}

void TestViandasystem::readOnlyClosesTheSettingsOnly()
{
    Viandasystem shell;
    shell.setOptions({{QStringLiteral("readOnly"), true}});
    const std::unique_ptr<QMenu> menu(shell.menu());
    QStringList enabled;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->isEnabled())
            enabled.append(action->text());
    }
    QCOMPARE(enabled, (QStringList{QStringLiteral("Menu"), QStringLiteral("Jedlá"), QStringLiteral("Dodávatelia")}));
}

void TestViandasystem::readOnlyAfterTheMenuClosesNothing()
{
    Viandasystem shell;
    const std::unique_ptr<QMenu> menu(shell.menu());
    shell.setOptions({{QStringLiteral("readOnly"), true}});
    QVERIFY(entry(shell, QStringLiteral("Nastavenia"))->isEnabled());
    QVERIFY(session().readOnly);
}

void TestViandasystem::optionsAreStored()
{
    Viandasystem shell;
    shell.setOptions({{QStringLiteral("readOnly"), QStringLiteral("true")},
                      {QStringLiteral("companyName"), QStringLiteral("A & B <i>%1</i>")}});
    QCOMPARE(session().readOnly, true);
    QCOMPARE(session().companyName, QStringLiteral("A & B <i>%1</i>"));
}

void TestViandasystem::emptyOptionsClearTheSession()
{
    Viandasystem shell;
    session().readOnly = true;
    session().companyName = QStringLiteral("x");
    shell.setOptions({});
    QCOMPARE(session().readOnly, false);
    QCOMPARE(session().companyName, QString());
}

void TestViandasystem::administratorReachesTheBoard_data()
{
    QTest::addColumn<bool>("setOptions");
    QTest::addColumn<QVariantMap>("options");
    QTest::addColumn<int>("adminID");

    QTest::newRow("before any options") << false << QVariantMap() << 1;
    QTest::newRow("options without the key") << true << QVariantMap() << 0;
    QTest::newRow("named") << true << QVariantMap{{QStringLiteral("adminID"), 7}} << 7;
    QTest::newRow("as text") << true << QVariantMap{{QStringLiteral("adminID"), QStringLiteral("12")}} << 12;
}

void TestViandasystem::administratorReachesTheBoard()
{
    QFETCH(bool, setOptions);
    QFETCH(QVariantMap, options);
    QFETCH(int, adminID);
    const TestDatabase database;
    Viandasystem shell;
    shell.setDatabase(database.db());
    if (setOptions)
        shell.setOptions(options);
    Host host(shell);
    LogCatcher log;
    entry(shell, QStringLiteral("Menu"))->trigger();
    const QString line =
        QStringLiteral("PeopleModel::tableQuery() ::: People model query with admin ID:  %1 branch ID:  0")
            .arg(adminID);
    QVERIFY2(log.has(line), qPrintable(log.lines().join(QLatin1Char('\n'))));
    host.pages.clear();
}

void TestViandasystem::debugLevelKeepsItsLowByte_data()
{
    QTest::addColumn<QVariant>("level");
    QTest::addColumn<bool>("logsTriggers");
    QTest::addColumn<bool>("logsFilters");

    QTest::newRow("0") << QVariant(0) << false << false;
    QTest::newRow("1") << QVariant(1) << true << false;
    QTest::newRow("2") << QVariant(2) << true << true;
    QTest::newRow("256 is 0") << QVariant(256) << false << false;
    QTest::newRow("257 is 1") << QVariant(257) << true << false;
    QTest::newRow("300 is 44") << QVariant(300) << true << true;
    QTest::newRow("no number") << QVariant(QStringLiteral("x")) << false << false;
}

void TestViandasystem::debugLevelKeepsItsLowByte()
{
    QFETCH(QVariant, level);
    QFETCH(bool, logsTriggers);
    QFETCH(bool, logsFilters);
    Viandasystem shell;
    shell.setOptions({{QStringLiteral("debugLevel"), level}});
    LogCatcher log;
    shell.setCurrentWidget();
    shell.setFilter(QStringLiteral("menuwidget"), {});
    QCOMPARE(log.has(QStringLiteral("Viandasystem - trigger akcie")), logsTriggers);
    QCOMPARE(log.has(QStringLiteral("ZEPWindow::setFilter( \"menuwidget\" )")), logsFilters);
}

void TestViandasystem::optionsLineFollowsTheLevelFromBefore()
{
    Viandasystem shell;
    LogCatcher log;
    shell.setOptions({{QStringLiteral("debugLevel"), 1}});
    QCOMPARE(log.lines(), QStringList());
    shell.setOptions({});
    QCOMPARE(log.lines(), QStringList{QStringLiteral("Viandasystem - setOptions()")});
    log.clear();
    shell.setDebugLevel(1);
    shell.setOptions({});
    QCOMPARE(log.lines(), QStringList{QStringLiteral("Viandasystem - setOptions()")});
}

void TestViandasystem::processWideLevelIsNeverWritten()
{
    Viandasystem shell;
    shell.setDebugLevel(5);
    shell.setOptions({{QStringLiteral("debugLevel"), 9}});
    QCOMPARE(session().debugLevel, quint8(0));
}

void TestViandasystem::menuEntryOffersABoard()
{
    const TestDatabase database;
    RunningShell running(database);
    const MenuWidget *board = running.openBoard();
    QVERIFY(board);
    QVERIFY(!board->parent());
    QCOMPARE(board->windowTitle(), QStringLiteral("Menu"));
    QCOMPARE(running.host.cursorWhileOffered, Qt::WaitCursor);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestViandasystem::triggersAreLogged()
{
    Viandasystem shell;
    Host host(shell);
    shell.setDebugLevel(1);
    LogCatcher log;
    entry(shell, QStringLiteral("Nastavenia"))->trigger();
    QCOMPARE(log.lines(), QStringList{QStringLiteral("Viandasystem - trigger akcie")});
}

void TestViandasystem::boardStartsInOrdersOnAFirstRun()
{
    const TestDatabase database;
    RunningShell running(database);
    LogCatcher log;
    const MenuWidget *board = running.openBoard();
    QVERIFY(log.has(QStringLiteral("MenuWidget::filterSetter()")));
    QVERIFY(board->findChild<QAbstractButton *>(QStringLiteral("butOrdersSwitch"))->isChecked());
}

void TestViandasystem::filterSurvivesARestart()
{
    const TestDatabase database;
    database.exec(QStringLiteral("INSERT INTO branches VALUES (1, 'Sever'), (2, 'Juh')"));
    {
        RunningShell running(database);
        const MenuWidget *board = running.openBoard();
        board->findChild<QAbstractButton *>(QStringLiteral("butMenuSwitch"))->click();
        board->findChild<QComboBox *>(QStringLiteral("comboBoxBranches"))->setCurrentText(QStringLiteral("Juh"));
        const QVariantMap saved = savedFilters().value(QStringLiteral("menuwidget")).toMap();
        QCOMPARE(saved.keys(),
                 (QStringList{QStringLiteral("branch"), QStringLiteral("menu"), QStringLiteral("person"),
                              QStringLiteral("week")}));
        QCOMPARE(saved.value(QStringLiteral("branch")).toString(), QStringLiteral("Juh"));
        QCOMPARE(saved.value(QStringLiteral("menu")).toBool(), true);
    }
    RunningShell running(database);
    const MenuWidget *board = running.openBoard();
    QCOMPARE(board->findChild<QComboBox *>(QStringLiteral("comboBoxBranches"))->currentText(), QStringLiteral("Juh"));
    QVERIFY(board->findChild<QAbstractButton *>(QStringLiteral("butMenuSwitch"))->isChecked());
}

void TestViandasystem::everyBoardStaysConnected()
{
    const TestDatabase database;
    RunningShell running(database);
    MenuWidget *first = running.openBoard();
    MenuWidget *second = running.openBoard();
    QVERIFY(first != second);
    for (MenuWidget *board : {first, second}) {
        QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).clear();
        emit board->filter(QStringLiteral("menuwidget"), {{QStringLiteral("week"), QStringLiteral("w")}});
        QCOMPARE(savedFilters().value(QStringLiteral("menuwidget")).toMap().value(QStringLiteral("week")).toString(),
                 QStringLiteral("w"));
    }
}

void TestViandasystem::foreignSendersHaveNoPage()
{
    Viandasystem shell;
    const std::unique_ptr<QMenu> menu(shell.menu());
    QSignalSpy offered(&shell, &Viandasystem::sigSetCurrentWidget);
    QVERIFY(offered.isValid());
    shell.setCurrentWidget();
    QObject noAction;
    connect(&noAction, &QObject::objectNameChanged, &shell, &Viandasystem::setCurrentWidget);
    noAction.setObjectName(QStringLiteral("x"));
    QAction foreign;
    connect(&foreign, &QAction::triggered, &shell, &Viandasystem::setCurrentWidget);
    foreign.trigger();
    QCOMPARE(offered.count(), 0);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestViandasystem::otherEntriesOfferTheirPages_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("page");
    QTest::newRow("foods") << QStringLiteral("Jedlá") << QStringLiteral("FoodWidget");
    QTest::newRow("suppliers") << QStringLiteral("Dodávatelia") << QStringLiteral("SupplierWidget");
    QTest::newRow("settings") << QStringLiteral("Nastavenia") << QStringLiteral("SettingsWidget");
}

void TestViandasystem::otherEntriesOfferTheirPages()
{
    QFETCH(QString, title);
    const TestDatabase database;
    RunningShell running(database);
    QSignalSpy offered(&running.shell, &Viandasystem::sigSetCurrentWidget);
    QVERIFY(offered.isValid());
    entry(running.shell, title)->trigger();
    entry(running.shell, title)->trigger();
    QCOMPARE(offered.count(), 2); // a page afresh each time
    QCOMPARE(running.host.pages.size(), std::size_t(2));
    for (const std::unique_ptr<QWidget> &page : running.host.pages) {
        QTEST(QString::fromLatin1(page->metaObject()->className()), "page");
        QCOMPARE(page->windowTitle(), title);
        QVERIFY(!page->parent());
    }
    QVERIFY(running.host.pages.front() != running.host.pages.back());
    QCOMPARE(running.host.cursorWhileOffered, Qt::WaitCursor);
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(savedFilters(), QVariantMap());
}

void TestViandasystem::administratorReachesTheSuppliers()
{
    const TestDatabase database;
    database.exec(QStringLiteral("INSERT INTO branches VALUES (1, 'Sever'), (2, 'Juh')"));
    database.exec(QStringLiteral("INSERT INTO bradm VALUES (5, 2)"));
    RunningShell running(database, {{QStringLiteral("adminID"), 5}});
    entry(running.shell, QStringLiteral("Dodávatelia"))->trigger();
    const auto *branches =
        running.host.pages.back()->findChild<QAbstractItemView *>(QStringLiteral("listViewBranches"));
    QVERIFY(!(branches->model()->index(1, 1).flags() & Qt::ItemIsEnabled));
    QVERIFY(branches->model()->index(2, 1).flags() & Qt::ItemIsEnabled);
}

void TestViandasystem::filterLineIsGated()
{
    Viandasystem shell;
    const QVariantMap data{{QStringLiteral("menu"), true}, {QStringLiteral("week"), QStringLiteral("12.týždeň")}};
    LogCatcher log;
    shell.setDebugLevel(1);
    shell.setFilter(QStringLiteral("menuwidget"), data);
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(savedFilters().value(QStringLiteral("menuwidget")).toMap(), data);
    shell.setDebugLevel(2);
    shell.setFilter(QStringLiteral("menuwidget"), {});
    QCOMPARE(log.lines(), QStringList{QStringLiteral("ZEPWindow::setFilter( \"menuwidget\" )")});
}

void TestViandasystem::filtersOfOtherModulesStay()
{
    Viandasystem().setFilter(QStringLiteral("other"), {{QStringLiteral("a"), 1}});
    Viandasystem shell;
    shell.setFilter(QStringLiteral("menuwidget"), {{QStringLiteral("menu"), false}});
    QCOMPARE(savedFilters().keys(), (QStringList{QStringLiteral("menuwidget"), QStringLiteral("other")}));
}

QTEST_MAIN(TestViandasystem)
#include "tst_viandasystem.moc"
