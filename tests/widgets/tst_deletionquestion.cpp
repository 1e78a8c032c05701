#include "support/boxanswerer.h"
#include "widgets/deletionquestion.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QtTest>

#include <memory>

class TestDeletionQuestion : public QObject {
    Q_OBJECT

private slots:
    void answers_data();
    void answers();
    void form();
    void namesAreShownAsTyped_data();
    void namesAreShownAsTyped();
    void keys_data();
    void keys();
    void withoutParent();
    void parentMayDieMeanwhile();
};

void TestDeletionQuestion::answers_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("confirmed");
    QTest::newRow("ok") << int(QMessageBox::Ok) << true;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false;
}

void TestDeletionQuestion::answers()
{
    QFETCH(int, button);
    QWidget parent;
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?"),
                    static_cast<QMessageBox::StandardButton>(button));
    QTEST(confirmDeletion(&parent, QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?")), "confirmed");
    BOXES_DONE(boxes);
    QVERIFY(parent.children().isEmpty());
}

void TestDeletionQuestion::form()
{
    QWidget parent;
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?"), QMessageBox::Cancel,
                    [&parent](QMessageBox *box) {
                        QCOMPARE(box->icon(), QMessageBox::Question);
                        QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                        QCOMPARE(box->standardButton(box->defaultButton()), QMessageBox::Cancel);
                        QCOMPARE(box->textFormat(), Qt::PlainText);
                        QCOMPARE(box->parentWidget(), &parent);
                        QVERIFY(box->isModal());
                    });
    confirmDeletion(&parent, QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?"));
    BOXES_DONE(boxes);
}

void TestDeletionQuestion::namesAreShownAsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << QStringLiteral("<b>tučné</b> &amp; <img src=x>");
    QTest::newRow("quotes") << QStringLiteral("O'Brien \"x\" \\ %1 %s");
    QTest::newRow("emoji") << QStringLiteral("\U0001F372 \u202Eolava sprava");
    QTest::newRow("one long word") << QString(10000, QLatin1Char('x'));
    QTest::newRow("many words") << QStringLiteral("slovo ").repeated(2000);
    QTest::newRow("many lines") << QStringLiteral("riadok\n").repeated(1500);
}

void TestDeletionQuestion::namesAreShownAsTyped()
{
    QFETCH(QString, name);
    const QString text = QStringLiteral("Naozaj chcete zmazať ") + name + QLatin1Char('?');
    QWidget parent;
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Zmazanie"), text, QMessageBox::Ok, [&text](QMessageBox *box) {
        const auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
        QVERIFY(label);
        QCOMPARE(label->text(), text);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        const QSize screen = QApplication::primaryScreen()->availableSize();
        QVERIFY2(box->width() <= screen.width(), qPrintable(QString::number(box->width())));
        QVERIFY2(box->height() <= screen.height(), qPrintable(QString::number(box->height())));
        for (const QMessageBox::StandardButton standard : {QMessageBox::Ok, QMessageBox::Cancel}) {
            const QAbstractButton *button = box->button(standard);
            QVERIFY(box->rect().contains(QRect(button->mapTo(box, QPoint()), button->size())));
        }
    });
    QVERIFY(confirmDeletion(&parent, QStringLiteral("Zmazanie"), text));
    BOXES_DONE(boxes);
}

void TestDeletionQuestion::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("tabFirst");
    QTest::addColumn<bool>("confirmed");
    QTest::newRow("enter cancels") << int(Qt::Key_Return) << false << false;
    QTest::newRow("escape cancels") << int(Qt::Key_Escape) << false << false;
    QTest::newRow("escape on the other button") << int(Qt::Key_Escape) << true << false;
    QTest::newRow("enter on the other button") << int(Qt::Key_Return) << true << true;
}

void TestDeletionQuestion::keys()
{
    QFETCH(int, key);
    QFETCH(bool, tabFirst);
    QWidget parent;
    QTimer::singleShot(0, &parent, [key, tabFirst] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        QApplication::setActiveWindow(box);
        QVERIFY(QTest::qWaitForWindowActive(box));
        if (tabFirst)
            QTest::keyClick(box, Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    });
    QTEST(confirmDeletion(&parent, QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?")), "confirmed");
}

void TestDeletionQuestion::withoutParent()
{
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?"), QMessageBox::Ok);
    QVERIFY(confirmDeletion(nullptr, QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?")));
    BOXES_DONE(boxes);
}

void TestDeletionQuestion::parentMayDieMeanwhile()
{
    const QPointer<QWidget> parent(new QWidget);
    QPointer<QWidget> box;
    QTimer::singleShot(0, this, [&box, &parent] {
        box = QApplication::activeModalWidget();
        delete parent;
    });
    QVERIFY(!confirmDeletion(parent, QStringLiteral("Zmazanie"), QStringLiteral("Naozaj?")));
    QVERIFY(!parent);
    QVERIFY(!box);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestDeletionQuestion)
#include "tst_deletionquestion.moc"
