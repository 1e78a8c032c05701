#include "sidebar.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

namespace {

QIcon plainIcon(Qt::GlobalColor color)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(color);
    return QIcon(pixmap);
}

QString buttonTexts(const Sidebar &sidebar)
{
    QStringList texts;
    const QList<QToolButton *> buttons = sidebar.buttons();
    for (const QToolButton *button : buttons)
        texts.append(button->text() + (button->isChecked() ? QStringLiteral("*") : QString()));
    return texts.join(QLatin1Char(' '));
}

} // namespace

class TestSidebar : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void menuBecomesButtons();
    void buttonsFollowTheirActions();
    void entriesComeAndGo();
    void aPressTriggersTheAction();
    void theCurrentEntryIsChecked();
    void withoutAMenuItIsEmpty();
    void tabGoesFromTopToBottom();
    void aboutIsAsked();

private:
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<Sidebar> m_sidebar;
};

void TestSidebar::init()
{
    m_menu = std::make_unique<QMenu>(QStringLiteral("Strava"));
    m_menu->addAction(QStringLiteral("Menu"));
    m_menu->addSeparator();
    m_menu->addAction(QStringLiteral("Jedlá"));
    m_menu->actions().constFirst()->setIcon(plainIcon(Qt::red));
    m_menu->actions().constLast()->setEnabled(false);
    m_sidebar = std::make_unique<Sidebar>();
    m_sidebar->setMenu(m_menu.get());
    m_sidebar->show();
}

void TestSidebar::cleanup()
{
    m_sidebar.reset();
    m_menu.reset();
}

void TestSidebar::menuBecomesButtons()
{
    QCOMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu Jedlá"));
    QCOMPARE(m_sidebar->findChild<QLabel *>(QStringLiteral("sidebarTitle"))->text(), QStringLiteral("Strava"));
    const QToolButton *menu = m_sidebar->buttons().constFirst();
    QCOMPARE(menu->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QCOMPARE(menu->iconSize(), QSize(32, 32));
    QCOMPARE(menu->icon().pixmap(32, 32).toImage().pixelColor(5, 5), QColor(Qt::red));
    QVERIFY(menu->autoRaise());
    QVERIFY(menu->isEnabled());
    QVERIFY(!m_sidebar->buttons().constLast()->isEnabled());
}

void TestSidebar::buttonsFollowTheirActions()
{
    QAction *action = m_menu->actions().constFirst();
    const QToolButton *button = m_sidebar->buttons().constFirst();
    action->setText(QStringLiteral("Jedálny lístok"));
    action->setIcon(plainIcon(Qt::green));
    action->setToolTip(QStringLiteral("týždeň"));
    action->setEnabled(false);
    QCOMPARE(button->text(), QStringLiteral("Jedálny lístok"));
    QCOMPARE(button->icon().pixmap(32, 32).toImage().pixelColor(5, 5), QColor(Qt::green));
    QCOMPARE(button->toolTip(), QStringLiteral("týždeň"));
    QVERIFY(!button->isEnabled());
    QVERIFY(button->isVisible());
    action->setVisible(false);
    QVERIFY(!button->isVisible());
}

void TestSidebar::entriesComeAndGo()
{
    QAction *added = m_menu->addAction(QStringLiteral("Dodávatelia"));
    QTRY_COMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu Jedlá Dodávatelia"));
    m_menu->removeAction(m_menu->actions().constFirst());
    QTRY_COMPARE(buttonTexts(*m_sidebar), QStringLiteral("Jedlá Dodávatelia"));
    delete added;
    QTRY_COMPARE(buttonTexts(*m_sidebar), QStringLiteral("Jedlá"));
}

void TestSidebar::aPressTriggersTheAction()
{
    QSignalSpy triggered(m_menu->actions().constFirst(), &QAction::triggered);
    QVERIFY(triggered.isValid());
    QTest::mouseClick(m_sidebar->buttons().constFirst(), Qt::LeftButton);
    QCOMPARE(triggered.count(), 1);
    QTest::keyClick(m_sidebar->buttons().constFirst(), Qt::Key_Space);
    QCOMPARE(triggered.count(), 2);
    // An entry that shows no page does not look as if it did.
    QCOMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu Jedlá"));
}

void TestSidebar::theCurrentEntryIsChecked()
{
    m_sidebar->setCurrentEntry(QStringLiteral("Jedlá"));
    QCOMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu Jedlá*"));
    m_sidebar->setCurrentEntry(QStringLiteral("Menu"));
    QCOMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu* Jedlá"));
    // Pressing the current entry again keeps its mark.
    QTest::mouseClick(m_sidebar->buttons().constFirst(), Qt::LeftButton);
    QCOMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu* Jedlá"));
    m_menu->addAction(QStringLiteral("Dodávatelia"));
    QTRY_COMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu* Jedlá Dodávatelia"));
    m_sidebar->setCurrentEntry(QStringLiteral("Iné"));
    QCOMPARE(buttonTexts(*m_sidebar), QStringLiteral("Menu Jedlá Dodávatelia"));
}

void TestSidebar::withoutAMenuItIsEmpty()
{
    m_sidebar->setMenu(nullptr);
    QCOMPARE(m_sidebar->buttons().size(), 0);
    QCOMPARE(m_sidebar->findChild<QLabel *>(QStringLiteral("sidebarTitle"))->text(), QString());
    m_menu->addAction(QStringLiteral("Neskoro"));
    QCoreApplication::processEvents();
    QCOMPARE(m_sidebar->buttons().size(), 0);
}

void TestSidebar::tabGoesFromTopToBottom()
{
    m_menu->actions().constLast()->setEnabled(true);
    m_sidebar->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_sidebar.get()));
    m_sidebar->buttons().constFirst()->setFocus();
    QVERIFY(m_sidebar->buttons().constFirst()->hasFocus());
    QTest::keyClick(m_sidebar.get(), Qt::Key_Tab);
    QVERIFY(m_sidebar->buttons().constLast()->hasFocus());
    QTest::keyClick(m_sidebar.get(), Qt::Key_Tab);
    QVERIFY(m_sidebar->findChild<QToolButton *>(QStringLiteral("butAbout"))->hasFocus());
}

void TestSidebar::aboutIsAsked()
{
    QSignalSpy wanted(m_sidebar.get(), &Sidebar::aboutWanted);
    QVERIFY(wanted.isValid());
    QTest::mouseClick(m_sidebar->findChild<QToolButton *>(QStringLiteral("butAbout")), Qt::LeftButton);
    QCOMPARE(wanted.count(), 1);
}

QTEST_MAIN(TestSidebar)
#include "tst_sidebar.moc"
