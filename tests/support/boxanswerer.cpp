#include "support/boxanswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

BoxAnswerer::BoxAnswerer()
{
    lookSoon();
}

void BoxAnswerer::expectBox(const QString &title, const QString &text, QMessageBox::StandardButton button,
                            std::function<void(QMessageBox *)> inspect)
{
    Expectation expected;
    expected.className = QStringLiteral("QMessageBox");
    expected.title = title;
    expected.text = text;
    expected.button = button;
    expected.inspect = std::move(inspect);
    m_expected.append(expected);
}

void BoxAnswerer::expectDialog(const QString &className, std::function<void(QDialog *)> act)
{
    Expectation expected;
    expected.className = className;
    expected.act = std::move(act);
    m_expected.append(expected);
}

QString BoxAnswerer::takeFailures()
{
    for (const Expectation &expected : qAsConst(m_expected))
        m_failures.append(
            QStringLiteral("did not come: %1 '%2' '%3'").arg(expected.className, expected.title, expected.text));
    m_expected.clear();
    const QString failures = m_failures.join(QLatin1Char('\n'));
    m_failures.clear();
    return failures;
}

// One timer for each look: a repeating one is silent while its slot waits for the next box of the dialog it works on.
void BoxAnswerer::lookSoon()
{
    QTimer::singleShot(1, this, &BoxAnswerer::look);
}

void BoxAnswerer::look()
{
    lookSoon();
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || m_inProgress.contains(dialog))
        return;
    m_inProgress.append(dialog);
    answer(dialog);
    m_inProgress.removeOne(dialog);
}

void BoxAnswerer::answer(QDialog *dialog)
{
    ++m_answered;
    auto *box = qobject_cast<QMessageBox *>(dialog);
    const QString className = QString::fromLatin1(dialog->metaObject()->className());
    if (m_expected.isEmpty() || m_expected.first().className != className) {
        m_failures.append(QStringLiteral("unexpected %1 '%2' '%3'")
                              .arg(className, dialog->windowTitle(), box ? box->text() : QString()));
        dialog->reject();
        return;
    }
    const Expectation expected = m_expected.takeFirst();
    if (box) {
        answerBox(box, expected);
        return;
    }
    const QPointer<QDialog> guard(dialog);
    expected.act(dialog);
    if (guard && guard->isVisible()) {
        m_failures.append(QStringLiteral("still open after it was answered: %1").arg(className));
        guard->reject();
    }
}

void BoxAnswerer::answerBox(QMessageBox *box, const Expectation &expected)
{
    if (box->windowTitle() != expected.title || box->text() != expected.text)
        m_failures.append(QStringLiteral("box '%1' '%2' instead of '%3' '%4'")
                              .arg(box->windowTitle(), box->text(), expected.title, expected.text));
    if (expected.inspect)
        expected.inspect(box);
    if (QAbstractButton *button = box->button(expected.button)) {
        button->click();
        return;
    }
    m_failures.append(QStringLiteral("box '%1' has no button %2").arg(box->windowTitle()).arg(int(expected.button)));
    box->reject();
}
