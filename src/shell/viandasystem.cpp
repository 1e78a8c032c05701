#include "shell/viandasystem.h"

#include "board/menuwidget.h"
#include "catalogue/foodwidget.h"
#include "session/session.h"
#include "settings/settingswidget.h"
#include "shell/buildmoment.h"
#include "suppliers/supplierwidget.h"
#include "widgets/waitcursor.h"

#include <QAction>
#include <QCoreApplication>
#include <QDebug>
#include <QIcon>
#include <QMenu>
#include <QSettings>

namespace {

const QLatin1String filtersKey("filters");
const QLatin1String boardModule("menuwidget");

/// Where the host keeps its own settings: the saved filters sit in the same tree.
class HostSettings : public QSettings {
public:
    HostSettings()
        : QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP"))
    {
    }
};

/// The icon of an entry from its three images: 1 checked, 2 unchecked, 3 under the pointer.
QIcon entryIcon(const QString &imageBase)
{
    const QString image = QStringLiteral(":/images/sidebar/") + imageBase + QStringLiteral("%1.png");
    const QSize size(32, 32);
    QIcon icon(image.arg(2));
    icon.addFile(image.arg(1), size, QIcon::Normal, QIcon::On);
    icon.addFile(image.arg(2), size, QIcon::Normal, QIcon::Off);
    icon.addFile(image.arg(3), size, QIcon::Active, QIcon::On);
    icon.addFile(image.arg(3), size, QIcon::Active, QIcon::Off);
    return icon;
}

} // namespace

Viandasystem::Viandasystem(QObject *parent)
    : QObject(parent)
    , m_filters(HostSettings().value(filtersKey).toMap())
{
}

// The menu has no parent and stays: it became the host's when `menu` returned it.
Viandasystem::~Viandasystem() = default;

void Viandasystem::setDatabase(const QSqlDatabase &database)
{
    m_db = database;
}

void Viandasystem::setDebugLevel(quint8 level)
{
    m_debugLevel = level;
}

QMenu *Viandasystem::menu()
{
    if (m_menu)
        return m_menu;
    m_menu = new QMenu(tr("Strava"));
    m_actionMenu = addEntry(tr("Menu"), QStringLiteral("menu"));
    m_actionFoods = addEntry(tr("Jedlá"), QStringLiteral("food"));
    m_actionSuppliers = addEntry(tr("Dodávatelia"), QStringLiteral("Truck"));
    m_actionSettings = addEntry(tr("Nastavenia"), QStringLiteral("set"));
    // Read here only: a host that sets its options after its first call of menu() closes nothing.
    m_actionSettings->setDisabled(session().readOnly);
    return m_menu;
}

QAction *Viandasystem::addEntry(const QString &title, const QString &imageBase)
{
    auto *action = new QAction(title, m_menu);
    connect(action, &QAction::triggered, this, &Viandasystem::setCurrentWidget);
    m_menu->addAction(action);
    action->setIcon(entryIcon(imageBase));
    return action;
}

QString Viandasystem::moduleName()
{
    return QStringLiteral("vianda");
}

QString Viandasystem::version()
{
    return QStringLiteral("1.3.1");
}

void Viandasystem::setOptions(const QVariantMap &options)
{
    // The level from before this call decides: a host that wants this line sets the level first.
    if (m_debugLevel != 0)
        qDebug() << "Viandasystem - setOptions()";
    m_adminID = options.value(QStringLiteral("adminID"), 0).toUInt();
    m_debugLevel = options.value(QStringLiteral("debugLevel"), 0).toUInt() & 0xffU;
    session().readOnly = options.value(QStringLiteral("readOnly"), false).toBool();
    session().companyName = options.value(QStringLiteral("companyName"), QString()).toString();
}

QMap<QString, QString> Viandasystem::versionInfo()
{
    QMap<QString, QString> records{{QStringLiteral("VER"), version()},
                                   {QStringLiteral("korvoType"), QStringLiteral("PLG.VI")},
                                   {QStringLiteral("ZEPDB"), QStringLiteral("21.04.06")}};
    const QString build = buildMoment(QStringLiteral(__DATE__), QStringLiteral(__TIME__));
    if (!build.isEmpty())
        records.insert(QStringLiteral("BUILD"), build);
    return records;
}

void Viandasystem::setCurrentWidget()
{
    if (m_debugLevel != 0)
        qDebug() << "Viandasystem - trigger akcie";
    const auto *entry = qobject_cast<QAction *>(sender());
    if (!entry)
        return;
    const WaitCursor wait;
    QWidget *page = makePage(entry);
    if (!page)
        return;
    page->setWindowTitle(entry->text());
    emit sigSetCurrentWidget(page);
}

QWidget *Viandasystem::makePage(const QAction *entry)
{
    if (entry == m_actionMenu)
        return makeMenuBoard();
    if (entry == m_actionFoods)
        return new FoodWidget(m_db, nullptr);
    if (entry == m_actionSuppliers)
        return new SupplierWidget(m_db, m_adminID, nullptr);
    if (entry == m_actionSettings)
        return new SettingsWidget(m_db, nullptr);
    return nullptr;
}

QWidget *Viandasystem::makeMenuBoard()
{
    m_menuWidget = new MenuWidget(m_db, m_adminID, nullptr);
    connect(m_menuWidget, &MenuWidget::filter, this, &Viandasystem::setFilter);
    m_menuWidget->initData();
    QCoreApplication::processEvents();
    // The saved filter comes after loading, so that it meets filled selectors. The index operator leaves an empty
    // entry behind on a first run.
    m_menuWidget->filterSetter(m_filters[boardModule].toMap());
    return m_menuWidget;
}

void Viandasystem::setFilter(QString module, QVariantMap data)
{
    // The line names the host's main window, where this slot once lived; log readers know it by that name.
    if (m_debugLevel > 1)
        qDebug() << "ZEPWindow::setFilter(" << module << ")";
    m_filters[module] = data;
    HostSettings().setValue(filtersKey, m_filters);
}
