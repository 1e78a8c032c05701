#include "forms.h"
#include "supplierdata.h"
#include "suppliers/dialogsupplier.h"
#include "support/logcatcher.h"

#include <QSpinBox>
#include <QStandardItemModel>
#include <QTimeEdit>

using Dialog = Form<DialogSupplier>;

/// The two lists of a supplier's editor: the mails in memory, the sending times in the database.
class TestDialogSupplierLists : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();
    void buttonsFollowTheCurrentRow();
    void focusMarksARow();
    void addMail();
    void editMail();
    void doubleClickEditsMail();
    void badAddressesAreDropped_data();
    void badAddressesAreDropped();
    void deleteMail();
    void deleteLastMail();
    void deletionCancelled();
    void mailsStayInMemory();
    void addTime();
    void editTime();
    void deleteTime();
    void deletionOfATimeCancelled();
    void deletedByItsOwnEditor();
    void failedTimeDeletion();
    void dialogMayGoWhileAnotherIsOpen();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
    SupplierRecord m_record;
};

namespace {

QString deleteMailTitle()
{
    return QStringLiteral("Zmazanie mailu dodávateľa!");
}

QString deleteTimeTitle()
{
    return QStringLiteral("Zmazanie času odosielania mailu dodávateľovi!");
}

void checkButtons(QMessageBox *box)
{
    QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
}

} // namespace

void TestDialogSupplierLists::init()
{
    m_data = std::make_unique<SupplierData>(*m_database);
    m_record = SupplierRepository(m_database->db()).loadSupplier(1);
}

void TestDialogSupplierLists::buttonsFollowTheCurrentRow()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewSupplierMails", 1);
    QVERIFY(dialog.button("pushButtonUpravit")->isEnabled());
    QVERIFY(dialog.button("pushButtonZmazat")->isEnabled());
    QVERIFY(!dialog.button("pushButtonUpravitOdosielanie")->isEnabled());
    dialog.select("listViewOdosielanie", 0);
    QVERIFY(dialog.button("pushButtonUpravitOdosielanie")->isEnabled());
    QVERIFY(dialog.button("pushButtonZmazatOdosielanie")->isEnabled());
    Dialog fresh(m_record, m_database->db());
    fresh.select("listViewSupplierMails", 1);
    fresh.loadSupplierMails();
    fresh.mailSelection();
    QVERIFY(!fresh.button("pushButtonUpravit")->isEnabled());
    fresh.select("listViewSupplierMails", 0); // the new selection is listened to
    QVERIFY(fresh.button("pushButtonUpravit")->isEnabled());
}

void TestDialogSupplierLists::focusMarksARow()
{
    Dialog dialog(m_record, m_database->db());
    show(dialog);
    dialog.list("listViewSupplierMails")->setFocus();
    QCOMPARE(dialog.current("listViewSupplierMails"), 0);
    QVERIFY(dialog.button("pushButtonZmazat")->isEnabled());
    QVERIFY(dialog.list("listViewSupplierMails")->selectionModel()->hasSelection());
}

void TestDialogSupplierLists::addMail()
{
    const Dialog dialog(m_record, m_database->db());
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Pridanie emailu dodávateľa"), QString(), QStringLiteral("novy@jedalen.sk"));
    dialog.button("pushButtonPridat")->click();
    BOXES_DONE(boxes);
    const auto *mails = qobject_cast<QStandardItemModel *>(dialog.list("listViewSupplierMails")->model());
    QCOMPARE(
        rowTexts(*mails),
        (QStringList{"11|objednavky@jedalen.sk|1", "12|kuchyna@jedalen.sk|1", "novy@jedalen.sk|novy@jedalen.sk|"}));
    QCOMPARE(mails->item(2, 0)->data(Qt::UserRole + 1).toString(), QStringLiteral("novy@jedalen.sk"));
    QVERIFY(!mails->item(2, 0)->isEditable());
    QVERIFY(!mails->item(2, 1)->isEditable());
}

void TestDialogSupplierLists::editMail()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewSupplierMails", 1);
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Úprava emailu dodávateľa"), QStringLiteral("kuchyna@jedalen.sk"),
               QStringLiteral("varna@jedalen.sk"));
    dialog.button("pushButtonUpravit")->click();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewSupplierMails"), (QStringList{"objednavky@jedalen.sk", "varna@jedalen.sk"}));
    QCOMPARE(dialog.current("listViewSupplierMails"), 1);
}

void TestDialogSupplierLists::doubleClickEditsMail()
{
    Dialog dialog(m_record, m_database->db());
    show(dialog);
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Úprava emailu dodávateľa"), QStringLiteral("objednavky@jedalen.sk"),
               QStringLiteral("o@jedalen.sk"));
    doubleClick(dialog.list("listViewSupplierMails"), 0);
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewSupplierMails"), (QStringList{"o@jedalen.sk", "kuchyna@jedalen.sk"}));
}

void TestDialogSupplierLists::badAddressesAreDropped_data()
{
    QTest::addColumn<QString>("mail");
    QTest::addColumn<bool>("accept");
    QTest::newRow("no address") << "<b>nic</b>" << true;
    QTest::newRow("long last part") << "a@b.museum" << true;
    QTest::newRow("blank behind") << "a@b.sk " << true;
    QTest::newRow("empty") << "" << true;
    QTest::newRow("cancelled") << "a@b.sk" << false;
}

void TestDialogSupplierLists::badAddressesAreDropped()
{
    QFETCH(QString, mail);
    QFETCH(bool, accept);
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewSupplierMails", 0);
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Pridanie emailu dodávateľa"), QString(), mail, accept);
    expectMail(boxes, QStringLiteral("Úprava emailu dodávateľa"), QStringLiteral("objednavky@jedalen.sk"), mail,
               accept);
    dialog.button("pushButtonPridat")->click();
    dialog.button("pushButtonUpravit")->click();
    QTest::qWait(20); // no box comes after it
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewSupplierMails"), (QStringList{"objednavky@jedalen.sk", "kuchyna@jedalen.sk"}));
}

void TestDialogSupplierLists::deleteMail()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewSupplierMails", 0);
    BoxAnswerer boxes;
    boxes.expectBox(deleteMailTitle(), QStringLiteral("Naozaj chcete zmazať mail objednavky@jedalen.sk?"),
                    QMessageBox::Ok, checkButtons);
    dialog.button("pushButtonZmazat")->click();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewSupplierMails"), QStringList{"kuchyna@jedalen.sk"});
}

void TestDialogSupplierLists::deleteLastMail()
{
    const Dialog dialog(m_record, m_database->db());
    BoxAnswerer boxes;
    for (const char *mail : {"kuchyna@jedalen.sk", "objednavky@jedalen.sk"}) {
        dialog.select("listViewSupplierMails", dialog.texts("listViewSupplierMails").indexOf(QLatin1String(mail)));
        boxes.expectBox(deleteMailTitle(), QStringLiteral("Naozaj chcete zmazať mail %1?").arg(QLatin1String(mail)));
        dialog.button("pushButtonZmazat")->click();
    }
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewSupplierMails"), QStringList());
    QVERIFY(!dialog.button("pushButtonUpravit")->isEnabled());
    QVERIFY(!dialog.button("pushButtonZmazat")->isEnabled());
}

void TestDialogSupplierLists::deletionCancelled()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewSupplierMails", 0);
    BoxAnswerer boxes;
    boxes.expectBox(deleteMailTitle(), QStringLiteral("Naozaj chcete zmazať mail objednavky@jedalen.sk?"),
                    QMessageBox::Cancel);
    dialog.button("pushButtonZmazat")->click();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewSupplierMails").size(), 2);
}

void TestDialogSupplierLists::mailsStayInMemory()
{
    const QStringList before = m_data->supplierMails();
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewSupplierMails", 0);
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Pridanie emailu dodávateľa"), QString(), QStringLiteral("a@b.sk"));
    boxes.expectBox(deleteMailTitle(), QStringLiteral("Naozaj chcete zmazať mail objednavky@jedalen.sk?"));
    dialog.button("pushButtonPridat")->click();
    dialog.button("pushButtonZmazat")->click();
    QCOMPARE(m_data->supplierMails(), before);
    dialog.button("pushButtonCancel")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->supplierMails(), before);
}

void TestDialogSupplierLists::addTime()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewOdosielanie", 0);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogProMails"), [](QDialog *time) {
        QCOMPARE(time->windowTitle(), QStringLiteral("Pridanie času odoslania"));
        time->findChild<QTimeEdit *>()->setTime(QTime(23, 59));
        time->findChild<QSpinBox *>()->setValue(0);
        time->findChild<QPushButton *>(QStringLiteral("pushButtonSave"))->click();
    });
    dialog.button("pushButtonPridatOdosielanie")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->times(), (QStringList{"21|1|16:00:00|1", "22|1|08:30:00|0", "23|1|23:59:00|0"}));
    QCOMPARE(
        dialog.texts("listViewOdosielanie"),
        (QStringList{"08:30 - 0 dní pred výdajom.", "23:59 - 0 dní pred výdajom.", "16:00 - 1 dní pred výdajom."}));
    QVERIFY(!dialog.button("pushButtonUpravitOdosielanie")->isEnabled()); // the new list has no current row
}

void TestDialogSupplierLists::editTime()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewOdosielanie", 1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogProMails"), [](QDialog *time) {
        QCOMPARE(time->windowTitle(), QStringLiteral("Úprava času odoslania"));
        QCOMPARE(time->findChild<QTimeEdit *>()->time(), QTime(16, 0));
        QCOMPARE(time->findChild<QSpinBox *>()->value(), 1);
        time->findChild<QSpinBox *>()->setValue(0);
        time->findChild<QPushButton *>(QStringLiteral("pushButtonSave"))->click();
    });
    const LogCatcher log;
    dialog.button("pushButtonUpravitOdosielanie")->click();
    BOXES_DONE(boxes);
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("proEmailDelayID:  21")});
    QCOMPARE(dialog.texts("listViewOdosielanie"),
             (QStringList{"08:30 - 0 dní pred výdajom.", "16:00 - 0 dní pred výdajom."}));
    QCOMPARE(m_data->times(), (QStringList{"21|1|16:00:00|0", "22|1|08:30:00|0"}));
}

void TestDialogSupplierLists::deleteTime()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewOdosielanie", 0);
    BoxAnswerer boxes;
    boxes.expectBox(deleteTimeTitle(), QStringLiteral("Naozaj chcete zmazať čas 08:30 - 0 dní pred výdajom.?"),
                    QMessageBox::Ok, checkButtons);
    dialog.button("pushButtonZmazatOdosielanie")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->times(), QStringList{"21|1|16:00:00|1"});
    QCOMPARE(dialog.texts("listViewOdosielanie"), QStringList{"16:00 - 1 dní pred výdajom."});
    QVERIFY(!dialog.button("pushButtonZmazatOdosielanie")->isEnabled());
}

void TestDialogSupplierLists::deletionOfATimeCancelled()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewOdosielanie", 0);
    m_data->exec("UPDATE via_promailsdelay SET daysto = 5 WHERE proMailDelayID = 21");
    BoxAnswerer boxes;
    boxes.expectBox(deleteTimeTitle(), QStringLiteral("Naozaj chcete zmazať čas 08:30 - 0 dní pred výdajom.?"),
                    QMessageBox::Cancel);
    dialog.button("pushButtonZmazatOdosielanie")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->times().size(), 2);
    // The list is loaded anew in any case.
    QCOMPARE(dialog.texts("listViewOdosielanie").constLast(), QStringLiteral("16:00 - 5 dní pred výdajom."));
}

void TestDialogSupplierLists::deletedByItsOwnEditor()
{
    const Dialog dialog(m_record, m_database->db());
    dialog.select("listViewOdosielanie", 0);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogProMails"), [](QDialog *time) {
        time->findChild<QPushButton *>(QStringLiteral("pushButtonDelete"))->click();
    });
    dialog.button("pushButtonUpravitOdosielanie")->click();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.texts("listViewOdosielanie"), QStringList{"16:00 - 1 dní pred výdajom."});
}

void TestDialogSupplierLists::failedTimeDeletion()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    const Dialog dialog(m_record, other.db());
    dialog.select("listViewOdosielanie", 0);
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(deleteTimeTitle(), QStringLiteral("Naozaj chcete zmazať čas 08:30 - 0 dní pred výdajom.?"));
    boxes.expectBox(QStringLiteral("Chyba databázy"),
                    QStringLiteral("Nepodarilo sa zrušiť čas odosielania emailov dodávatelovi."));
    dialog.button("pushButtonZmazatOdosielanie")->click();
    BOXES_DONE(boxes);
    QCOMPARE(data.times().size(), 2);
    QCOMPARE(dialog.texts("listViewOdosielanie"), QStringList());
}

void TestDialogSupplierLists::dialogMayGoWhileAnotherIsOpen()
{
    using Slot = void (DialogSupplier::*)();
    const Slot slots_[] = {&DialogSupplier::on_pushButtonPridat_clicked,
                           &DialogSupplier::on_pushButtonUpravit_clicked,
                           &DialogSupplier::on_pushButtonZmazat_clicked,
                           &DialogSupplier::on_pushButtonPridatOdosielanie_clicked,
                           &DialogSupplier::on_pushButtonUpravitOdosielanie_clicked,
                           &DialogSupplier::on_pushButtonZmazatOdosielanie_clicked};
    for (const Slot slot : slots_) {
        auto dialog = std::make_unique<Dialog>(m_record, m_database->db());
        dialog->select("listViewSupplierMails", 0);
        dialog->select("listViewOdosielanie", 0);
        QTimer::singleShot(20, this, [&dialog] { dialog.reset(); });
        (dialog.get()->*slot)();
        QVERIFY(!dialog);
    }
    QCOMPARE(m_data->times().size(), 2);
}

QTEST_MAIN(TestDialogSupplierLists)
#include "tst_dialogsupplierlists.moc"
