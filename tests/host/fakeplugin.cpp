#include "fakeplugin.h"

#include <QAction>
#include <QComboBox>
#include <QDebug>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QSqlDatabase>
#include <QVBoxLayout>

namespace {

/// Opens a dialog and waits for its end, as the module's cards do.
void openDialog(QWidget *parent)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("fakeDialog"));
    dialog.resize(200, 100);
    auto *line = new QLineEdit(&dialog);
    line->setObjectName(QStringLiteral("line"));
    dialog.exec();
}

QWidget *makePage(const QString &title)
{
    auto *page = new QWidget;
    page->setWindowTitle(title);
    auto *column = new QVBoxLayout(page);
    column->addWidget(new QLabel(title, page));
    auto *button = new QPushButton(QStringLiteral("dialog"), page);
    button->setObjectName(QStringLiteral("butDialog"));
    column->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, page, [page] { openDialog(page); });
    return page;
}

} // namespace

void FakePlugin::record(const QString &call)
{
    m_calls.append(call);
    qDebug().noquote() << "FakePlugin" << call;
}

void FakePlugin::setDatabase(const QSqlDatabase &database)
{
    record(QStringLiteral("setDatabase %1").arg(database.isOpen() ? QStringLiteral("open") : QStringLiteral("closed")));
}

void FakePlugin::setDebugLevel(quint8 level)
{
    record(QStringLiteral("setDebugLevel %1").arg(level));
}

void FakePlugin::setOptions(const QVariantMap &options)
{
    QStringList pairs;
    for (auto option = options.cbegin(); option != options.cend(); ++option)
        pairs.append(QStringLiteral("%1=%2").arg(option.key(), option.value().toString()));
    m_readOnly = options.value(QStringLiteral("readOnly")).toBool();
    record(QStringLiteral("setOptions ") + pairs.join(QLatin1Char(' ')));
}

QMenu *FakePlugin::menu()
{
    const bool connected = isSignalConnected(QMetaMethod::fromSignal(&FakePlugin::sigSetCurrentWidget));
    record(connected ? QStringLiteral("menu connected") : QStringLiteral("menu"));
    if (m_menu)
        return m_menu;
    m_menu = new QMenu(QStringLiteral("Strava"));
    for (const char *title : {"Menu", "Jedlá", "Dodávatelia", "Nastavenia"})
        connect(m_menu->addAction(QString::fromUtf8(title)), &QAction::triggered, this, &FakePlugin::offerPage);
    m_menu->actions().constLast()->setDisabled(m_readOnly);
    return m_menu;
}

QString FakePlugin::moduleName()
{
    return QStringLiteral("fake <1>");
}

QString FakePlugin::version()
{
    return QStringLiteral("0.1");
}

QMap<QString, QString> FakePlugin::versionInfo()
{
    return {{QStringLiteral("VER"), QStringLiteral("0.1")},
            {QStringLiteral("BUILD"), QStringLiteral("2404211957")},
            {QStringLiteral("ODD"), QStringLiteral("a<b")}};
}

void FakePlugin::offerPage()
{
    const auto *entry = qobject_cast<QAction *>(sender());
    if (entry && entry->text() != QLatin1String("Nastavenia"))
        emit sigSetCurrentWidget(makePage(entry->text()));
}
