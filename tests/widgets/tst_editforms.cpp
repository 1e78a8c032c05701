#include "widgets/editstate.h"
#include "widgets/enterkey.h"
#include "widgets/positionbox.h"
#include "widgets/savebutton.h"
#include "widgets/waitcursor.h"

#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QStringList itemsOf(const QComboBox &box)
{
    QStringList items;
    for (int index = 0; index < box.count(); ++index)
        items.append(box.itemText(index));
    return items;
}

/// Rows of (position, name), not by position.
void fill(QStandardItemModel *model, std::initializer_list<int> positions)
{
    for (const int position : positions) {
        auto *cell = new QStandardItem;
        cell->setData(position, Qt::DisplayRole);
        model->appendRow({cell, new QStandardItem(QStringLiteral("riadok"))});
    }
}

} // namespace

/// What the edit dialogs share: states, buttons, positions, cursor and keys.
class TestEditForms : public QObject {
    Q_OBJECT

private slots:
    void editStates();
    void saveButton();
    void saveButtonAndEnter();
    void positions();
    void firstPosition();
    void unknownPosition();
    void waitCursor();
    void waitCursorLeavesAnOuterOne();
    void enterPressesTheFocusedButton_data();
    void enterPressesTheFocusedButton();
};

void TestEditForms::editStates()
{
    QDialog dialog;
    setEditState(&dialog, EditState::Add);
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("add")));
    setEditState(&dialog, EditState::Edit);
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("edit")));
}

void TestEditForms::saveButton()
{
    QDialog dialog;
    QPushButton save(&dialog);
    QPushButton cancel(&dialog);
    offerSave(&save, &cancel, false);
    QVERIFY(!save.isEnabled());
    QVERIFY(!save.isDefault());
    QVERIFY(cancel.isDefault());
    offerSave(&save, &cancel, true);
    QVERIFY(save.isEnabled());
    QVERIFY(save.isDefault());
    QVERIFY(!cancel.isDefault());
    QVERIFY(cancel.isEnabled());
    offerSave(&save, &cancel, false);
    QVERIFY(!save.isEnabled());
    QVERIFY(!save.isDefault());
    QVERIFY(cancel.isDefault());
}

void TestEditForms::saveButtonAndEnter()
{
    QDialog dialog;
    QPushButton save(&dialog);
    QPushButton cancel(&dialog);
    QSignalSpy saved(&save, &QPushButton::clicked);
    QSignalSpy cancelled(&cancel, &QPushButton::clicked);
    QVERIFY(saved.isValid() && cancelled.isValid());
    dialog.show(); // a hidden button takes no key
    offerSave(&save, &cancel, false);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(saved.count(), 0);
    QCOMPARE(cancelled.count(), 1);
    offerSave(&save, &cancel, true);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(saved.count(), 1);
    QCOMPARE(cancelled.count(), 1);
}

void TestEditForms::positions()
{
    QStandardItemModel model(0, 2);
    fill(&model, {1, 2, 3});
    QComboBox box;
    fillPositions(&box, model, 0);
    QCOMPARE(itemsOf(box), (QStringList{"1", "2", "3"}));
    showPosition(&box, 3);
    QCOMPARE(box.currentIndex(), 2);
    showPosition(&box, 1);
    QCOMPARE(box.currentText(), QStringLiteral("1"));
    addLastPosition(&box);
    QCOMPARE(itemsOf(box), (QStringList{"1", "2", "3", "4"}));
    QCOMPARE(box.currentText(), QStringLiteral("4"));
}

void TestEditForms::firstPosition()
{
    const QStandardItemModel model(0, 2);
    QComboBox box;
    fillPositions(&box, model, 0);
    QCOMPARE(box.count(), 0);
    addLastPosition(&box);
    QCOMPARE(itemsOf(box), QStringList{"1"});
    QCOMPARE(box.currentIndex(), 0);
}

void TestEditForms::unknownPosition()
{
    QStandardItemModel model(0, 2);
    fill(&model, {10, 11, 12});
    QComboBox box;
    fillPositions(&box, model, 0);
    for (const unsigned position : {1U, 0U, 13U}) { // 1 is a part of each text, and none of them
        showPosition(&box, 11);
        showPosition(&box, position);
        QCOMPARE(box.currentIndex(), -1);
    }
}

void TestEditForms::waitCursor()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    {
        const WaitCursor cursor;
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestEditForms::waitCursorLeavesAnOuterOne()
{
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    {
        const WaitCursor outer;
        {
            const WaitCursor inner;
        }
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
    QGuiApplication::restoreOverrideCursor();
}

void TestEditForms::enterPressesTheFocusedButton_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("onButton");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<int>("clicks");
    QTest::newRow("return on a button") << int(Qt::Key_Return) << true << true << 1;
    QTest::newRow("enter on a button") << int(Qt::Key_Enter) << true << true << 1;
    QTest::newRow("return in a field") << int(Qt::Key_Return) << false << true << 0;
    QTest::newRow("enter in a field") << int(Qt::Key_Enter) << false << true << 0;
    QTest::newRow("escape") << int(Qt::Key_Escape) << true << false << 0;
    QTest::newRow("blank") << int(Qt::Key_Space) << true << false << 0;
}

void TestEditForms::enterPressesTheFocusedButton()
{
    QFETCH(int, key);
    QFETCH(bool, onButton);
    QWidget dialog;
    auto *layout = new QVBoxLayout(&dialog);
    auto *field = new QLineEdit(&dialog);
    auto *button = new QPushButton(&dialog);
    layout->addWidget(field);
    layout->addWidget(button);
    QSignalSpy clicks(button, &QPushButton::clicked);
    QVERIFY(clicks.isValid());
    (onButton ? static_cast<QWidget *>(button) : field)->setFocus();
    const QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QTEST(pressFocusedButton(dialog, event), "taken");
    QTEST(clicks.count(), "clicks");
}

QTEST_MAIN(TestEditForms)
#include "tst_editforms.moc"
