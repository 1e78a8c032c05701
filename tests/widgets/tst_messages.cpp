#include "support/boxanswerer.h"
#include "widgets/messages.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QtTest>

namespace {

QString title()
{
    return QStringLiteral("Správa");
}

} // namespace

/// Boxes with a text, long ones too.
class TestMessages : public QObject {
    Q_OBJECT

private slots:
    void form_data();
    void form();
    void shortTextIsLeftAlone();
    void longTextScrolls_data();
    void longTextScrolls();
    void longTextIsReadByKeys();
    void escapeCloses();
    void parentMayDieMeanwhile();
};

void TestMessages::form_data()
{
    QTest::addColumn<int>("icon");
    QTest::newRow("information") << int(QMessageBox::Information);
    QTest::newRow("warning") << int(QMessageBox::Warning);
    QTest::newRow("critical") << int(QMessageBox::Critical);
}

void TestMessages::form()
{
    QFETCH(int, icon);
    const QString text = QStringLiteral("<b>tučné</b> & %1\n'druhý' riadok");
    QWidget parent;
    BoxAnswerer boxes;
    boxes.expectBox(title(), text, QMessageBox::Ok, [&parent, icon](QMessageBox *box) {
        QCOMPARE(int(box->icon()), icon);
        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QCOMPARE(box->parentWidget(), &parent);
        QVERIFY(box->isModal());
    });
    showMessage(&parent, static_cast<QMessageBox::Icon>(icon), title(), text);
    BOXES_DONE(boxes);
    QVERIFY(parent.children().isEmpty());
}

void TestMessages::shortTextIsLeftAlone()
{
    const QString text = QStringLiteral("riadok\n").repeated(5);
    BoxAnswerer boxes;
    boxes.expectBox(title(), text, QMessageBox::Ok,
                    [](QMessageBox *box) { QVERIFY(!box->findChild<QScrollArea *>()); });
    showMessage(nullptr, QMessageBox::Information, title(), text);
    BOXES_DONE(boxes);
}

void TestMessages::longTextScrolls_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("many lines") << QStringLiteral("riadok\n").repeated(1500);
    QTest::newRow("many words") << QStringLiteral("slovo ").repeated(2000);
    QTest::newRow("one long word") << QString(10000, QLatin1Char('x'));
}

void TestMessages::longTextScrolls()
{
    QFETCH(QString, text);
    BoxAnswerer boxes;
    boxes.expectBox(title(), text, QMessageBox::Ok, [](QMessageBox *box) {
        const auto *area = box->findChild<QScrollArea *>();
        QVERIFY(area);
        QVERIFY(area->verticalScrollBar()->maximum() + area->horizontalScrollBar()->maximum() > 0);
        QVERIFY(!area->accessibleName().isEmpty());
        const QSize screen = QApplication::primaryScreen()->availableSize();
        QVERIFY(box->width() <= screen.width() && box->height() <= screen.height());
        const QAbstractButton *button = box->button(QMessageBox::Ok);
        QVERIFY(box->rect().contains(QRect(button->mapTo(box, QPoint()), button->size())));
    });
    showMessage(nullptr, QMessageBox::Warning, title(), text);
    BOXES_DONE(boxes);
}

void TestMessages::longTextIsReadByKeys()
{
    const QString text = QStringLiteral("riadok\n").repeated(200);
    BoxAnswerer boxes;
    boxes.expectBox(title(), text, QMessageBox::Ok, [](QMessageBox *box) {
        QApplication::setActiveWindow(box);
        QVERIFY(QTest::qWaitForWindowActive(box));
        QCOMPARE(box->focusWidget(), box->button(QMessageBox::Ok));
        QTest::keyClick(box, Qt::Key_Tab);
        auto *area = box->findChild<QScrollArea *>();
        QCOMPARE(box->focusWidget(), area);
        QTest::keyClick(area, Qt::Key_Down);
        QVERIFY(area->verticalScrollBar()->value() > 0);
        for (int page = 0; page < 100; ++page)
            QTest::keyClick(area, Qt::Key_PageDown);
        QCOMPARE(area->verticalScrollBar()->value(), area->verticalScrollBar()->maximum());
    });
    showMessage(nullptr, QMessageBox::Warning, title(), text);
    BOXES_DONE(boxes);
}

void TestMessages::escapeCloses()
{
    QWidget parent;
    bool seen = false;
    QTimer::singleShot(0, &parent, [&seen] {
        QWidget *box = QApplication::activeModalWidget();
        QVERIFY(box);
        seen = true;
        QTest::keyClick(box, Qt::Key_Escape);
    });
    showMessage(&parent, QMessageBox::Warning, title(), QStringLiteral("text"));
    QVERIFY(seen);
}

void TestMessages::parentMayDieMeanwhile()
{
    const QPointer<QWidget> parent(new QWidget);
    QTimer::singleShot(0, this, [&parent] { delete parent; });
    showMessage(parent, QMessageBox::Warning, title(), QStringLiteral("text"));
    QVERIFY(!parent);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestMessages)
#include "tst_messages.moc"
