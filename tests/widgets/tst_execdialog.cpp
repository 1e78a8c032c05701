#include "widgets/execdialog.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QtTest>

namespace {

/// Ends itself with a result as soon as it runs.
class NumberedDialog : public QDialog {
public:
    NumberedDialog(int number, const QString &title, QWidget *parent)
        : QDialog(parent)
    {
        setWindowTitle(title);
        QTimer::singleShot(0, this, [this, number] { end(number); });
    }

protected:
    virtual void end(int number) { done(number); }
};

/// Takes its parent along, and with it itself.
class FatalDialog : public NumberedDialog {
public:
    using NumberedDialog::NumberedDialog;

protected:
    void end(int number) override
    {
        Q_UNUSED(number)
        delete parentWidget();
    }
};

} // namespace

class TestExecDialog : public QObject {
    Q_OBJECT

private slots:
    void givesTheResultAndDisposes();
    void isModal();
    void parentMayDieMeanwhile();
};

void TestExecDialog::givesTheResultAndDisposes()
{
    QWidget parent;
    for (const int result : {0, 1, 2, 42}) {
        QCOMPARE(execDialog<NumberedDialog>(result, QStringLiteral("okno"), &parent), result);
        QVERIFY(parent.children().isEmpty());
    }
}

void TestExecDialog::isModal()
{
    QWidget parent;
    QString title;
    QTimer::singleShot(0, &parent, [&title] { title = QApplication::activeModalWidget()->windowTitle(); });
    execDialog<NumberedDialog>(1, QStringLiteral("okno"), &parent);
    QCOMPARE(title, QStringLiteral("okno"));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestExecDialog::parentMayDieMeanwhile()
{
    const QPointer<QWidget> parent(new QWidget);
    QCOMPARE(execDialog<FatalDialog>(7, QStringLiteral("okno"), parent.data()), 0);
    QVERIFY(!parent);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestExecDialog)
#include "tst_execdialog.moc"
