#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class QWidget;

/// One step of a script on the widgets of a page or of the dialog that stands open.
struct ScriptStep {
    enum class Verb { Click, DoubleClick, Select, Type };

    Verb verb = Verb::Click;
    /// objectName of the widget.
    QString widget;
    /// Which one of the visible widgets of that name, in the order of their making, from 1.
    int number = 1;
    /// What stands after "=": a cell, an entry or a text; empty without it.
    QString value;
};

/// The steps of a script's text, or the reason why it is none.
struct PageScript {
    QList<ScriptStep> steps;
    /// In English; empty when all is well.
    QString error;
};

/// Reads "VERB:NAME", "VERB:NAME#NUMBER" and either with "=VALUE" after it, joined with ";". The verbs are click,
/// doubleclick, select and type; the last two need a value. A value holds no ";".
PageScript parsePageScript(const QString &text);

/// Does the steps of a script one after the other, each from the event loop, so that a step that opens a modal dialog
/// does not hold up the next, which then works on that dialog.
class PageScriptRunner : public QObject {
    Q_OBJECT

public:
    /// Steps work on `window` as long as no modal dialog stands open.
    PageScriptRunner(QList<ScriptStep> steps, QWidget *window, QObject *parent = nullptr);

    void start();

signals:
    /// After the last step, with a dialog that it opened standing.
    void finished();
    /// A step could not be done (no such widget, a disabled button, no such entry); later steps are left out. The text
    /// is English and names the step.
    void failed(const QString &problem);

private:
    void runNext();

    QList<ScriptStep> m_steps;
    QPointer<QWidget> m_window;
    bool m_failed = false;
};
