#pragma once

#include <QMessageBox>
#include <QObject>
#include <QStringList>

#include <functional>

class QDialog;

/// Answers modal boxes and dialogs while it lives. A test says beforehand which windows will open, in order; each is
/// checked and answered when it stands. A window that nobody expected is closed, so that the test goes on, and is
/// remembered as a failure with its text, as is a window that was expected and never came or that differs.
///
///     BoxAnswerer boxes;
///     boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať jedlo!");
///     repository.loadFood(1);
///     BOXES_DONE(boxes);
class BoxAnswerer : public QObject {
    Q_OBJECT

public:
    BoxAnswerer();

    /// Expects a message box with this title and text (as set on the box, markup included) and presses `button`.
    /// `inspect`, if given, sees the box before it is answered.
    void expectBox(const QString &title, const QString &text, QMessageBox::StandardButton button = QMessageBox::Ok,
                   std::function<void(QMessageBox *)> inspect = {});
    /// Expects any other modal dialog; `act` works on it and must end it. One that is still open afterwards, and not
    /// waiting in a dialog of its own, is rejected and counts as a failure.
    void expectDialog(const QString &className, std::function<void(QDialog *)> act);

    /// What went wrong so far, expected windows that have not come included; empty when all is well. Clears the lot.
    QString takeFailures();
    /// Number of boxes and dialogs answered so far.
    int answered() const { return m_answered; }

private:
    struct Expectation {
        QString className;
        QString title;
        QString text;
        QMessageBox::StandardButton button = QMessageBox::NoButton;
        std::function<void(QMessageBox *)> inspect;
        std::function<void(QDialog *)> act;
    };

    void lookSoon();
    void look();
    void answer(QDialog *dialog);
    void answerBox(QMessageBox *box, const Expectation &expected);

    QList<Expectation> m_expected;
    QStringList m_failures;
    QList<QDialog *> m_inProgress;
    int m_answered = 0;
};

/// Fails the running test function when the windows were not those that were expected.
#define BOXES_DONE(boxes)                                                                                              \
    do {                                                                                                               \
        const QString boxFailures = (boxes).takeFailures();                                                            \
        QVERIFY2(boxFailures.isEmpty(), qPrintable(boxFailures));                                                      \
    } while (false)
