#include "hostwindow.h"

#include "shell/menuplugininterface.h"
#include "shell/verinfointerface.h"
#include "sidebar.h"

#include <QAction>
#include <QDateTime>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QScrollArea>
#include <QSqlDatabase>
#include <QStatusBar>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QLabel *plainLabel(const QString &objectName, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// Sets a property that the style sheet keys on, after the widget has got its look.
void setStyleProperty(QWidget *widget, const char *name, const QVariant &value)
{
    widget->setProperty(name, value);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

QString recordName(const QString &key)
{
    static const QMap<QString, QString> names{{QStringLiteral("VER"), HostWindow::tr("Verzia")},
                                              {QStringLiteral("korvoType"), HostWindow::tr("Typ modulu")},
                                              {QStringLiteral("BUILD"), HostWindow::tr("Zostavené")},
                                              {QStringLiteral("ZEPDB"), HostWindow::tr("Vyžaduje verziu databázy")}};
    return names.value(key, key);
}

/// The build moment "2404211957" as "21. 4. 2024 19:57"; any other text as it stands.
QString recordText(const QString &key, const QString &value)
{
    // Two digits of the year stand for the present century.
    const QDateTime moment = QDateTime::fromString(QStringLiteral("20") + value, QStringLiteral("yyyyMMddhhmm"));
    if (key != QLatin1String("BUILD") || !moment.isValid())
        return value;
    return moment.toString(QStringLiteral("d. M. yyyy hh:mm"));
}

} // namespace

HostWindow::HostWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_sidebar(new Sidebar(this))
    , m_messages(new QVBoxLayout)
    , m_pages(new QScrollArea(this))
    , m_welcome(plainLabel(QStringLiteral("welcome"), this))
    , m_administrator(plainLabel(QStringLiteral("statusAdministrator"), this))
    , m_company(plainLabel(QStringLiteral("statusCompany"), this))
    , m_access(plainLabel(QStringLiteral("statusAccess"), this))
    , m_database(plainLabel(QStringLiteral("statusDatabase"), this))
{
    setWindowTitle(tr("Dochádzka ZEP"));
    m_welcome->setText(tr("Modul stravovania nie je načítaný."));
    m_welcome->setAlignment(Qt::AlignCenter);
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pages->setFrameShape(QFrame::NoFrame);
    m_pages->setWidgetResizable(true);
    m_pages->setWidget(m_welcome);
    m_welcome->setFocus();

    auto *centre = new QWidget(this);
    centre->setObjectName(QStringLiteral("hostCentre"));
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addLayout(m_messages);
    column->addWidget(m_pages, 1);
    auto *row = new QHBoxLayout(centre);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_sidebar);
    row->addLayout(column, 1);
    setCentralWidget(centre);
    makeStatusBar();
    connect(m_sidebar, &Sidebar::aboutWanted, this, &HostWindow::showAbout);
}

HostWindow::~HostWindow()
{
    // The page goes while everything it may look at still stands, and before the menu whose entry made it.
    delete m_page.data();
    m_sidebar->setMenu(nullptr);
}

void HostWindow::makeStatusBar()
{
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(m_administrator);
    statusBar()->addWidget(m_company);
    statusBar()->addWidget(m_access);
    statusBar()->addPermanentWidget(m_database);
}

void HostWindow::usePlugin(QObject *root, const QSqlDatabase &db, const QVariantMap &options)
{
    auto *plugin = qobject_cast<MenuPluginInterface *>(root);
    Q_ASSERT(plugin && !m_plugin);
    m_plugin = root;
    plugin->setDatabase(db);
    // Before the options, so that the level counts for their log line already.
    plugin->setDebugLevel(static_cast<quint8>(options.value(QStringLiteral("debugLevel")).toUInt()));
    plugin->setOptions(options);
    // By name: the class that has the signal is known to the plug-in only.
    // clang-format off
    connect(root, SIGNAL(sigSetCurrentWidget(QWidget*)), this, SLOT(showPage(QWidget*)));
    // clang-format on
    m_menu.reset(plugin->menu());
    m_sidebar->setMenu(m_menu.get());
    if (m_welcome)
        m_welcome->setText(tr("Vyberte si stránku v bočnom paneli."));

    const uint administrator = options.value(QStringLiteral("adminID")).toUInt();
    m_administrator->setText(administrator == 0 ? tr("Administrátor: všetky práva")
                                                : tr("Administrátor: %1").arg(administrator));
    const QString company = options.value(QStringLiteral("companyName")).toString();
    m_company->setText(company.isEmpty() ? tr("Firma: neuvedená") : tr("Firma: %1").arg(company));
    const bool readOnly = options.value(QStringLiteral("readOnly")).toBool();
    m_access->setText(readOnly ? tr("Len na čítanie") : tr("Úpravy povolené"));
    setStyleProperty(m_access, "readOnly", readOnly);
}

void HostWindow::showDatabase(const QString &description, bool open)
{
    m_database->setText(open ? tr("Databáza: %1").arg(description) : tr("Databáza: nepripojená"));
    m_database->setToolTip(description.toHtmlEscaped());
    setStyleProperty(m_database, "connected", open);
}

void HostWindow::warn(const QString &message)
{
    auto *frame = new QFrame(this);
    frame->setProperty("banner", true);
    auto *text = plainLabel(QStringLiteral("bannerText"), frame);
    text->setText(message);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *close = new QToolButton(frame);
    close->setObjectName(QStringLiteral("butCloseBanner"));
    close->setText(tr("Zavrieť"));
    close->setAutoRaise(true);
    connect(close, &QToolButton::clicked, frame, &QObject::deleteLater);
    auto *row = new QHBoxLayout(frame);
    row->addWidget(text, 1);
    row->addWidget(close, 0, Qt::AlignTop);
    m_messages->addWidget(frame);
    frame->show();
}

QAction *HostWindow::entryNamed(const QString &name) const
{
    static const QStringList words{QStringLiteral("menu"), QStringLiteral("foods"), QStringLiteral("suppliers"),
                                   QStringLiteral("settings")};
    const QList<QAction *> entries = m_menu ? m_menu->actions() : QList<QAction *>();
    for (QAction *entry : entries) {
        if (entry->text().compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return entries.value(words.indexOf(name.toLower()), nullptr);
}

void HostWindow::showPage(QWidget *page)
{
    if (!page || page == m_page)
        return;
    // The one replaced may be at work further up the stack; it goes as soon as it is not.
    if (QWidget *replaced = m_pages->takeWidget()) {
        replaced->hide();
        replaced->setParent(this);
        replaced->deleteLater();
    }
    m_page = page;
    m_pages->setWidget(page);
    page->show();
    page->setFocus();
    setWindowTitle(tr("%1 – Dochádzka ZEP").arg(page->windowTitle()));
    m_sidebar->setCurrentEntry(page->windowTitle());
}

QString HostWindow::versionTable(const QMap<QString, QString> &records)
{
    QString rows;
    for (auto record = records.cbegin(); record != records.cend(); ++record)
        rows += QStringLiteral("<tr><td style=\"padding-right: 16px\">%1</td><td><b>%2</b></td></tr>")
                    .arg(recordName(record.key()).toHtmlEscaped(),
                         recordText(record.key(), record.value()).toHtmlEscaped());
    return QStringLiteral("<table cellspacing=\"4\">%1</table>").arg(rows);
}

void HostWindow::showAbout()
{
    auto *plugin = qobject_cast<MenuPluginInterface *>(m_plugin);
    auto *versions = qobject_cast<VerInfoInterface *>(m_plugin);
    QMessageBox box(this);
    box.setWindowTitle(tr("O programe"));
    box.setTextFormat(Qt::RichText);
    box.setText(plugin ? tr("<h3>Dochádzka ZEP</h3>Modul <b>%1</b>").arg(plugin->moduleName().toHtmlEscaped())
                       : tr("<h3>Dochádzka ZEP</h3>Modul stravovania nie je načítaný."));
    if (versions)
        box.setInformativeText(versionTable(versions->versionInfo()));
    box.exec();
}
