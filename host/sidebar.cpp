#include "sidebar.h"

#include <QAction>
#include <QActionEvent>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

void follow(QToolButton *button, const QAction *action)
{
    button->setText(action->text());
    button->setIcon(action->icon());
    button->setToolTip(action->toolTip());
    button->setEnabled(action->isEnabled());
    button->setVisible(action->isVisible());
}

QToolButton *makeSidebarButton(QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(QSize(32, 32));
    // Only raised buttons show the icon's picture for the pointer.
    button->setAutoRaise(true);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setProperty("sidebarEntry", true);
    return button;
}

} // namespace

Sidebar::Sidebar(QWidget *parent)
    : QFrame(parent)
    , m_title(new QLabel(this))
    , m_entries(new QVBoxLayout)
    , m_about(new QToolButton(this))
{
    setObjectName(QStringLiteral("sidebar"));
    m_title->setObjectName(QStringLiteral("sidebarTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setAlignment(Qt::AlignCenter);

    m_about->setObjectName(QStringLiteral("butAbout"));
    m_about->setText(tr("O programe"));
    m_about->setAutoRaise(true);
    m_about->setFocusPolicy(Qt::StrongFocus);
    m_about->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_about, &QToolButton::clicked, this, &Sidebar::aboutWanted);

    m_entries->setSpacing(2);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_title);
    column->addLayout(m_entries);
    column->addStretch();
    column->addWidget(m_about);
}

void Sidebar::setMenu(QMenu *menu)
{
    if (m_menu)
        m_menu->removeEventFilter(this);
    m_menu = menu;
    if (m_menu)
        m_menu->installEventFilter(this);
    m_title->setText(menu ? menu->title() : QString());
    rebuild();
}

void Sidebar::setCurrentEntry(const QString &text)
{
    m_current = text;
    markCurrent();
}

bool Sidebar::eventFilter(QObject *watched, QEvent *event)
{
    // The menu knows of the change only after its own handling of the event.
    if (watched == m_menu && (event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionRemoved))
        QMetaObject::invokeMethod(this, &Sidebar::rebuild, Qt::QueuedConnection);
    return QFrame::eventFilter(watched, event);
}

void Sidebar::rebuild()
{
    qDeleteAll(m_buttons);
    m_buttons.clear();
    const QList<QAction *> actions = m_menu ? m_menu->actions() : QList<QAction *>();
    for (QAction *action : actions) {
        if (action->isSeparator())
            continue;
        m_buttons.append(makeButton(action));
        m_entries->addWidget(m_buttons.constLast());
    }
    for (int index = 1; index < m_buttons.size(); ++index)
        setTabOrder(m_buttons.at(index - 1), m_buttons.at(index));
    if (!m_buttons.isEmpty())
        setTabOrder(m_buttons.constLast(), m_about);
    markCurrent();
}

QToolButton *Sidebar::makeButton(QAction *action)
{
    QToolButton *button = makeSidebarButton(this);
    button->setCheckable(true);
    follow(button, action);
    connect(action, &QAction::changed, button, [this, button, action] {
        follow(button, action);
        markCurrent();
    });
    connect(button, &QToolButton::clicked, action, [this, action] {
        // The press has checked the button; whether the entry has a page shows itself in the window.
        markCurrent();
        action->trigger();
    });
    return button;
}

void Sidebar::markCurrent()
{
    for (QToolButton *button : qAsConst(m_buttons))
        button->setChecked(!m_current.isEmpty() && button->text() == m_current);
}
