#include "pagescript.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTimer>

#include <array>

namespace {

using Verb = ScriptStep::Verb;

/// Between two steps, so that pages settle and dialogs come to stand.
const int pauseMilliseconds = 60;

struct VerbName {
    const char *name;
    Verb verb;
    bool needsValue;
};

const std::array<VerbName, 4> verbNames{{{"click", Verb::Click, false},
                                         {"doubleclick", Verb::DoubleClick, false},
                                         {"select", Verb::Select, true},
                                         {"type", Verb::Type, true}}};

const VerbName *verbNamed(const QString &name)
{
    for (const VerbName &known : verbNames) {
        if (name == QLatin1String(known.name))
            return &known;
    }
    return nullptr;
}

QString parseStep(const QString &text, ScriptStep &step)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\w+):(\\w+)(?:#([1-9]\\d{0,4}))?(=(.*))?$"),
                                            QRegularExpression::UseUnicodePropertiesOption
                                                | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return QStringLiteral("'%1' is no step such as click:NAME or select:NAME=ENTRY.").arg(text);
    const VerbName *verb = verbNamed(match.captured(1));
    if (!verb)
        return QStringLiteral("'%1' is no verb; there are click, doubleclick, select and type.").arg(match.captured(1));
    if (verb->needsValue && match.captured(4).isEmpty())
        return QStringLiteral("'%1' needs a value: %1:NAME=VALUE.").arg(match.captured(1));
    step.verb = verb->verb;
    step.widget = match.captured(2);
    step.number = match.captured(3).isEmpty() ? 1 : match.captured(3).toInt();
    step.value = match.captured(5);
    return {};
}

QWidget *visibleWidget(const QWidget *window, const ScriptStep &step)
{
    int number = 0;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>(step.widget);
    for (QWidget *widget : widgets) {
        if (widget->isVisible() && ++number == step.number)
            return widget;
    }
    return nullptr;
}

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &position, Qt::MouseButtons pressed)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), Qt::LeftButton, pressed, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void clickAt(QWidget *widget, const QPoint &position, bool twice)
{
    const QPointer<QWidget> guard(widget);
    sendMouse(widget, QEvent::MouseButtonPress, position, Qt::LeftButton);
    if (guard)
        sendMouse(widget, QEvent::MouseButtonRelease, position, Qt::NoButton);
    if (guard && twice)
        sendMouse(widget, QEvent::MouseButtonDblClick, position, Qt::LeftButton);
    if (guard && twice)
        sendMouse(widget, QEvent::MouseButtonRelease, position, Qt::NoButton);
}

/// A cell from "ROW,COLUMN" or "ROW"; an invalid index when the view has no such cell.
QModelIndex cellFromText(const QAbstractItemView *view, const QString &text)
{
    bool isRow = false;
    bool isColumn = true;
    const int row = text.section(QLatin1Char(','), 0, 0).toInt(&isRow);
    const int column = text.contains(QLatin1Char(',')) ? text.section(QLatin1Char(','), 1).toInt(&isColumn) : 0;
    return isRow && isColumn && view->model() ? view->model()->index(row, column, view->rootIndex()) : QModelIndex();
}

QString clickCell(QAbstractItemView *view, const QString &cell, bool twice)
{
    const QModelIndex index = cellFromText(view, cell);
    if (!index.isValid())
        return QStringLiteral("there is no cell '%1'").arg(cell);
    view->scrollTo(index);
    clickAt(view->viewport(), view->visualRect(index).center(), twice);
    return {};
}

QString click(QWidget *widget, const QString &value, bool twice)
{
    if (!widget->isEnabled())
        return QStringLiteral("it is disabled");
    auto *view = qobject_cast<QAbstractItemView *>(widget);
    auto *button = qobject_cast<QAbstractButton *>(widget);
    if (view && !value.isEmpty())
        return clickCell(view, value, twice);
    if (button && !twice)
        button->click();
    else
        clickAt(widget, widget->rect().center(), twice);
    return {};
}

/// The row of an entry by its number or by the text of a column; -1 without one.
int entryRow(const QAbstractItemModel *model, int column, const QString &entry)
{
    bool isNumber = false;
    const int number = entry.toInt(&isNumber);
    for (int row = 0; model && row < model->rowCount(); ++row) {
        if (isNumber ? row == number : model->index(row, column).data().toString() == entry)
            return row;
    }
    return -1;
}

QString select(QWidget *widget, const QString &entry)
{
    auto *combo = qobject_cast<QComboBox *>(widget);
    auto *view = qobject_cast<QAbstractItemView *>(widget);
    if (!combo && !view)
        return QStringLiteral("it has no entries");
    const int row = combo ? entryRow(combo->model(), combo->modelColumn(), entry) : entryRow(view->model(), 0, entry);
    if (row < 0)
        return QStringLiteral("there is no entry '%1'").arg(entry);
    if (combo)
        combo->setCurrentIndex(row);
    else
        view->setCurrentIndex(view->model()->index(row, 0));
    return {};
}

QString type(QWidget *widget, const QString &text)
{
    if (!widget->isEnabled())
        return QStringLiteral("it is disabled");
    widget->setFocus();
    if (auto *line = qobject_cast<QLineEdit *>(widget))
        line->selectAll();
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(widget, &release);
    }
    return {};
}

QString perform(const ScriptStep &step, QWidget *widget)
{
    switch (step.verb) {
    case Verb::Click:
        return click(widget, step.value, false);
    case Verb::DoubleClick:
        return click(widget, step.value, true);
    case Verb::Select:
        return select(widget, step.value);
    case Verb::Type:
        return type(widget, step.value);
    }
    return {};
}

} // namespace

PageScript parsePageScript(const QString &text)
{
    PageScript script;
    const QStringList steps = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &stepText : steps) {
        ScriptStep step;
        script.error = parseStep(stepText.trimmed(), step);
        if (!script.error.isEmpty())
            return {{}, script.error};
        script.steps.append(step);
    }
    return script;
}

PageScriptRunner::PageScriptRunner(QList<ScriptStep> steps, QWidget *window, QObject *parent)
    : QObject(parent)
    , m_steps(std::move(steps))
    , m_window(window)
{
}

void PageScriptRunner::start()
{
    QTimer::singleShot(pauseMilliseconds, this, &PageScriptRunner::runNext);
}

void PageScriptRunner::runNext()
{
    if (m_failed)
        return;
    if (m_steps.isEmpty()) {
        emit finished();
        return;
    }
    const ScriptStep step = m_steps.takeFirst();
    QWidget *window = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : m_window.data();
    QWidget *widget = window ? visibleWidget(window, step) : nullptr;
    // The next step is on its way before this one is done: a dialog that it opens returns only when it is closed.
    if (widget)
        start();
    const QString problem = widget ? perform(step, widget) : QStringLiteral("there is no such visible widget");
    if (problem.isEmpty())
        return;
    m_failed = true;
    emit failed(QStringLiteral("%1#%2: %3").arg(step.widget).arg(step.number).arg(problem));
}
