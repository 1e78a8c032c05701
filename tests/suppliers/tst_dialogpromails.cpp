#include "forms.h"
#include "store/supplierrepository.h"
#include "supplierdata.h"
#include "suppliers/dialogpromails.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QSpinBox>
#include <QTimeEdit>

using Dialog = Form<DialogProMails>;

/// The editor of one sending time.
class TestDialogProMails : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void metaObject();
    void texts_data();
    void texts();
    void newTime();
    void savedTime();
    void addsATime();
    void rewritesATime();
    void deletesWithoutAsking();
    void cancelAndEscapeChangeNothing();
    void tabOrder();
    void timeDeletedElsewhereIsNotAddedAgain();
    void failures_data();
    void failures();
    void closedHandle();

private:
    static SupplierTime time(uint id) { return {id, 1, QTime(), 0}; }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

void TestDialogProMails::metaObject()
{
    QCOMPARE(metaMethods(DialogProMails::staticMetaObject),
             (QStringList{"slot void on_pushButtonSave_clicked()", "slot void on_pushButtonCancel_clicked()",
                          "slot void on_pushButtonDelete_clicked()"}));
}

void TestDialogProMails::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("label_3") << "Odoslanie emailu :";
    QTest::newRow("label") << " - ";
    QTest::newRow("label_2") << "dní pred výdajom";
    QTest::newRow("pushButtonCancel") << "Zrušiť";
    QTest::newRow("pushButtonDelete") << "Zmazať";
    QTest::newRow("pushButtonSave") << "Uložiť";
}

void TestDialogProMails::texts()
{
    SupplierTime record = time(0);
    const Dialog dialog(m_database->db(), &record);
    QTEST(dialog.find<QWidget>(QTest::currentDataTag())->property("text").toString(), "text");
}

void TestDialogProMails::newTime()
{
    SupplierTime record = time(0);
    const Dialog dialog(m_database->db(), &record);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Pridanie času odoslania"));
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("add")));
    QVERIFY(dialog.button("pushButtonCancel")->isDefault());
    QVERIFY(!dialog.button("pushButtonSave")->isDefault());
    QVERIFY(dialog.button("pushButtonSave")->isEnabled());
    QVERIFY(!dialog.button("pushButtonDelete")->isEnabled());
    const auto *days = dialog.find<QSpinBox>("spinBox");
    QCOMPARE(days->value(), 1);
    QCOMPARE(days->minimum(), 0);
    QCOMPARE(days->maximum(), 99);
    QCOMPARE(dialog.find<QTimeEdit>("timeEdit")->text(), QStringLiteral("00:00"));
}

void TestDialogProMails::savedTime()
{
    SupplierTime record = time(21);
    const Dialog dialog(m_database->db(), &record);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Úprava času odoslania"));
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("edit")));
    QVERIFY(dialog.button("pushButtonSave")->isEnabled());
    QVERIFY(dialog.button("pushButtonDelete")->isEnabled());
    QVERIFY(dialog.button("pushButtonSave")->isDefault());
    QCOMPARE(dialog.find<QSpinBox>("spinBox")->value(), 1);
    QCOMPARE(dialog.find<QTimeEdit>("timeEdit")->text(), QStringLiteral("16:00"));
    QCOMPARE(record.sendtime, QTime(16, 0));
    QCOMPARE(record.supplierID, 1U);
}

void TestDialogProMails::addsATime()
{
    SupplierTime record = time(0);
    Dialog dialog(m_database->db(), &record);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogProMails"), [&dialog](QDialog *) {
        dialog.find<QTimeEdit>("timeEdit")->setTime(QTime(7, 45));
        dialog.find<QSpinBox>("spinBox")->setValue(3);
        dialog.button("pushButtonSave")->click();
    });
    // BoxAnswerer goes by the class of the meta-object, which the wrapper shares with its base.
    QCOMPARE(dialog.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(m_data->times(), (QStringList{"21|1|16:00:00|1", "22|1|08:30:00|0", "23|1|07:45:00|3"}));
    QCOMPARE(record.sendtime, QTime(7, 45));
    QCOMPARE(record.daysto, 3U);
}

void TestDialogProMails::rewritesATime()
{
    SupplierTime record = time(22);
    Dialog dialog(m_database->db(), &record);
    show(dialog);
    dialog.find<QTimeEdit>("timeEdit")->setTime(QTime(6, 0));
    dialog.find<QSpinBox>("spinBox")->setValue(99);
    QTest::keyClick(dialog.find<QSpinBox>("spinBox"), Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(m_data->times(), (QStringList{"21|1|16:00:00|1", "22|1|06:00:00|99"}));
}

void TestDialogProMails::deletesWithoutAsking()
{
    SupplierTime record = time(21);
    Dialog dialog(m_database->db(), &record);
    dialog.show();
    BoxAnswerer boxes;
    dialog.button("pushButtonDelete")->click();
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), 0);
    QCOMPARE(m_data->times(), QStringList{"22|1|08:30:00|0"});
}

void TestDialogProMails::cancelAndEscapeChangeNothing()
{
    const QStringList times = m_data->times();
    for (const bool escape : {false, true}) {
        SupplierTime record = time(21);
        Dialog dialog(m_database->db(), &record);
        show(dialog);
        dialog.find<QSpinBox>("spinBox")->setValue(5);
        if (escape)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.button("pushButtonCancel")->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(record.daysto, 1U);
    }
    SupplierTime record = time(0);
    Dialog dialog(m_database->db(), &record);
    show(dialog);
    QTest::keyClick(dialog.find<QSpinBox>("spinBox"), Qt::Key_Return); // presses the default button, "Zrušiť"
    QVERIFY(!dialog.isVisible());
    QCOMPARE(m_data->times(), times);
}

void TestDialogProMails::tabOrder()
{
    SupplierTime record = time(21);
    Dialog dialog(m_database->db(), &record);
    show(dialog);
    dialog.find<QTimeEdit>("timeEdit")->setFocus();
    QStringList order;
    for (int stop = 0; stop < 6; ++stop) {
        const QString name = dialog.focusWidget()->objectName();
        if (order.isEmpty() || order.last() != name)
            order.append(name); // the hours and the minutes are two stops of one field
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{"timeEdit", "spinBox", "pushButtonSave", "pushButtonCancel", "pushButtonDelete"}));
    QCOMPARE(dialog.find<QLabel>("label_3")->buddy(), dialog.find<QWidget>("timeEdit"));
    QVERIFY(!dialog.find<QWidget>("spinBox")->accessibleName().isEmpty());
}

void TestDialogProMails::timeDeletedElsewhereIsNotAddedAgain()
{
    SupplierTime record = time(99);
    Dialog dialog(m_database->db(), &record);
    QCOMPARE(record.proMailDelayID, 99U);
    QCOMPARE(record.supplierID, 1U);
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("edit")));
    dialog.button("pushButtonSave")->click();
    QCOMPARE(m_data->times().size(), 2);
}

void TestDialogProMails::failures_data()
{
    QTest::addColumn<uint>("id");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("text");
    QTest::newRow("add") << 0U << "pushButtonSave"
                         << "Nepodarilo sa pridať čas odosielania emailov dodávatelovi.";
    QTest::newRow("update") << 21U << "pushButtonSave"
                            << "Nepodarilo sa upraviť čas odosielania emailov dodávatelovi.";
    QTest::newRow("delete") << 21U << "pushButtonDelete"
                            << "Nepodarilo sa zrušiť čas odosielania emailov dodávatelovi.";
    QTest::newRow("load") << 21U << ""
                          << "Nepodarilo sa načítať  čas odosielania emailov dodávatelovi.";
}

void TestDialogProMails::failures()
{
    QFETCH(uint, id);
    QFETCH(QString, button);
    QFETCH(QString, text);
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    SupplierTime record = time(id);
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), text);
    if (button.isEmpty())
        other.breakConnection();
    Dialog dialog(other.db(), &record);
    dialog.show();
    if (!button.isEmpty()) {
        other.breakConnection();
        dialog.findChild<QPushButton *>(button)->click();
        QVERIFY(!dialog.isVisible());
    }
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(record.supplierID, 1U);
    QCOMPARE(data.times().size(), 2);
}

void TestDialogProMails::closedHandle()
{
    const QString name = QStringLiteral("closed");
    {
        const QSqlDatabase closed = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), name);
        const LogCatcher log;
        SupplierTime record = time(21);
        const Dialog dialog(closed, &record);
        QCOMPARE(dialog.find<QSpinBox>("spinBox")->value(), 0);
        QCOMPARE(dialog.find<QTimeEdit>("timeEdit")->time(), QTime(0, 0));
        QCOMPARE(moduleLines(log), QStringList());
    }
    QSqlDatabase::removeDatabase(name);
}

QTEST_MAIN(TestDialogProMails)
#include "tst_dialogpromails.moc"
