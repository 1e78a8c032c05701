#pragma once

#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"

#include <QAbstractButton>
#include <QInputDialog>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QtTest>

#include <utility>

/// A page or dialog with short ways to its widgets.
template<typename Base> class Form : public Base {
public:
    template<typename... Arguments>
    explicit Form(Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)..., nullptr)
    {
    }

    template<typename Widget> Widget *find(const char *name) const
    {
        return this->template findChild<Widget *>(QLatin1String(name));
    }
    QListView *list(const char *name) const { return find<QListView>(name); }
    QPushButton *button(const char *name) const { return find<QPushButton>(name); }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }
    /// The rows of a list as a user reads them.
    QStringList texts(const char *name) const
    {
        const QListView *view = list(name);
        return view->model() ? columnTexts(*view->model(), view->modelColumn()) : QStringList();
    }
    void select(const char *name, int row) const
    {
        QListView *view = list(name);
        view->setCurrentIndex(view->model()->index(row, view->modelColumn()));
    }
    /// Number of the current row, -1 for none.
    int current(const char *name) const { return list(name)->currentIndex().row(); }
};

/// The lines caught, without the warnings of Qt itself: the offscreen platform has one for every window.
inline QStringList moduleLines(const LogCatcher &log)
{
    return log.lines(QtDebugMsg) + log.critical();
}

/// Shows a window and gives it the keyboard.
inline void show(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

/// The middle of the check box of a row, in the coordinates of the list's viewport.
inline QPoint checkBox(const QListView *view, const QModelIndex &index)
{
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.checkState = Qt::Checked;
    return view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view).center();
}

/// A spot on the text of a row, right of any check box.
inline QPoint rowText(const QListView *view, const QModelIndex &index)
{
    return view->visualRect(index).center() + QPoint(20, 0);
}

/// A user's double click: the click that comes with it, and the second one.
inline void doubleClick(const QListView *view, int row)
{
    const QPoint spot = rowText(view, view->model()->index(row, view->modelColumn()));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, spot);
}

/// Expects the question for a mail address that starts with `start`; answers with `mail`, or cancels.
inline void expectMail(BoxAnswerer &boxes, const QString &title, const QString &start, const QString &mail,
                       bool accept = true)
{
    boxes.expectDialog(QStringLiteral("QInputDialog"), [=](QDialog *dialog) {
        auto *input = qobject_cast<QInputDialog *>(dialog);
        QCOMPARE(input->windowTitle(), title);
        QCOMPARE(input->labelText(), QStringLiteral("Email: "));
        QCOMPARE(input->textEchoMode(), QLineEdit::Normal);
        QCOMPARE(input->textValue(), start);
        input->setTextValue(mail);
        input->done(accept ? QDialog::Accepted : QDialog::Rejected);
    });
}
