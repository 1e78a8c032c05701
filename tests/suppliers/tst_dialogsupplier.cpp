#include "forms.h"
#include "supplierdata.h"
#include "suppliers/dialogsupplier.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QLineEdit>
#include <QSpinBox>
#include <QTimeEdit>

using Dialog = Form<DialogSupplier>;

/// The editor of a supplier: its form, what it shows, its buttons and keys.
class TestDialogSupplier : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void metaObject();
    void texts_data();
    void texts();
    void newSupplier();
    void existingSupplier();
    void supplierWithoutDeadline();
    void saveNeedsAName();
    void fieldsHaveNames();
    void tabOrder();
    void tabOrderOfANewSupplier();
    void enterInAListDoesNotSave();
    void escapeCancels();
    void hostileTextsStandAsTyped();
    void fits_data();
    void fits();
    void closedHandle();

private:
    SupplierRecord record(uint supplierID) const
    {
        return SupplierRepository(m_database->db()).loadSupplier(supplierID);
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

namespace {

const char *const timeWidgets[] = {"listViewOdosielanie", "pushButtonPridatOdosielanie", "pushButtonZmazatOdosielanie",
                                   "pushButtonUpravitOdosielanie", "labelOdosielanie"};

/// Walks through a dialog with the tab key, from the name on; a time's hours and minutes are two stops of one field.
QStringList tabStops(const Dialog &dialog)
{
    dialog.find<QLineEdit>("lineEditName")->setFocus();
    QStringList order;
    for (int stop = 0; stop < 30; ++stop) {
        const QString name = dialog.focusWidget()->objectName();
        if (name == QLatin1String("lineEditName") && !order.isEmpty())
            break;
        if (order.isEmpty() || order.last() != name)
            order.append(name);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    return order;
}

} // namespace

void TestDialogSupplier::metaObject()
{
    QCOMPARE(metaMethods(DialogSupplier::staticMetaObject),
             (QStringList{"slot void on_pushButtonPridat_clicked()", "slot void on_pushButtonUpravit_clicked()",
                          "slot void on_pushButtonZmazat_clicked()", "slot void mailSelection()",
                          "slot void timeSelection()", "slot void loadSupplierMails()", "slot void loadSupplierTimes()",
                          "slot void on_pushButtonSave_clicked()", "slot void on_pushButtonCancel_clicked()",
                          "slot void on_pushButtonDelete_clicked()",
                          "slot void on_listViewSupplierMails_doubleClicked(QModelIndex)",
                          "slot void on_pushButtonPridatOdosielanie_clicked()",
                          "slot void on_pushButtonUpravitOdosielanie_clicked()",
                          "slot void on_pushButtonZmazatOdosielanie_clicked()"}));
}

void TestDialogSupplier::texts_data()
{
    QTest::addColumn<QString>("text");
    const std::pair<const char *, const char *> parts[] = {{"label", "Názov : "},
                                                           {"label_2", "Skratka :"},
                                                           {"label_3", "Popis : "},
                                                           {"label_4", "Objednávanie do :"},
                                                           {"label_7", " - "},
                                                           {"label_5", "dní pred výdajom"},
                                                           {"label_6", "Emaily : "},
                                                           {"labelOdosielanie", "Odosielanie mailov :"},
                                                           {"pushButtonPridat", "Pridať email"},
                                                           {"pushButtonUpravit", "Upraviť email"},
                                                           {"pushButtonZmazat", "Zmazať email"},
                                                           {"pushButtonPridatOdosielanie", "Pridať odosielanie"},
                                                           {"pushButtonUpravitOdosielanie", "Upraviť odosielanie"},
                                                           {"pushButtonZmazatOdosielanie", "Zmazať odosielanie"},
                                                           {"pushButtonDelete", "Zmazať"},
                                                           {"pushButtonCancel", "Zrušiť"},
                                                           {"pushButtonSave", "Uložiť"}};
    for (const auto &part : parts)
        QTest::newRow(part.first) << QString::fromUtf8(part.second);
}

void TestDialogSupplier::texts()
{
    const Dialog dialog(SupplierRecord(), m_database->db());
    const auto *widget = dialog.find<QWidget>(QTest::currentDataTag());
    QVERIFY(widget);
    QTEST(widget->property("text").toString(), "text");
}

void TestDialogSupplier::newSupplier()
{
    const Dialog dialog(SupplierRecord(), m_database->db());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Pridať dodávateľa"));
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("add")));
    QVERIFY(!dialog.button("pushButtonDelete")->isEnabled());
    for (const char *name : timeWidgets)
        QVERIFY(dialog.find<QWidget>(name)->isHidden());
    QCOMPARE(dialog.find<QLineEdit>("lineEditName")->text(), QString());
    QCOMPARE(dialog.find<QTimeEdit>("timeEdit")->text(), QStringLiteral("00:00"));
    QCOMPARE(dialog.find<QSpinBox>("spinBox")->value(), 0);
    QCOMPARE(dialog.texts("listViewSupplierMails"), QStringList());
    QCOMPARE(dialog.find<QPlainTextEdit>("plainTextEditDesc")->styleSheet(), QStringLiteral("background-color: white"));
}

void TestDialogSupplier::existingSupplier()
{
    const Dialog dialog(record(1), m_database->db());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Upraviť dodávateľa - Jedáleň"));
    QCOMPARE(dialog.property("editState"), QVariant(QStringLiteral("edit")));
    QVERIFY(dialog.button("pushButtonDelete")->isEnabled());
    for (const char *name : timeWidgets)
        QVERIFY(!dialog.find<QWidget>(name)->isHidden());
    QCOMPARE(dialog.find<QLineEdit>("lineEditName")->text(), QStringLiteral("Jedáleň"));
    QCOMPARE(dialog.find<QPlainTextEdit>("plainTextEditDesc")->toPlainText(), QStringLiteral("teplé jedlá"));
    QCOMPARE(dialog.find<QLineEdit>("lineEditShortcut")->text(), QStringLiteral("JED"));
    QCOMPARE(dialog.find<QTimeEdit>("timeEdit")->text(), QStringLiteral("09:05"));
    QCOMPARE(dialog.find<QSpinBox>("spinBox")->value(), 2);
    QCOMPARE(dialog.texts("listViewSupplierMails"), (QStringList{"objednavky@jedalen.sk", "kuchyna@jedalen.sk"}));
    QCOMPARE(dialog.texts("listViewOdosielanie"),
             (QStringList{"08:30 - 0 dní pred výdajom.", "16:00 - 1 dní pred výdajom."}));
    QCOMPARE(dialog.current("listViewSupplierMails"), -1);
    for (const char *name :
         {"pushButtonUpravit", "pushButtonZmazat", "pushButtonUpravitOdosielanie", "pushButtonZmazatOdosielanie"})
        QVERIFY(!dialog.button(name)->isEnabled());
    for (const char *name : {"pushButtonPridat", "pushButtonPridatOdosielanie"})
        QVERIFY(dialog.button(name)->isEnabled());
}

void TestDialogSupplier::supplierWithoutDeadline()
{
    Dialog dialog(record(2), m_database->db());
    QCOMPARE(dialog.find<QTimeEdit>("timeEdit")->text(), QStringLiteral("00:00"));
    dialog.button("pushButtonSave")->click();
    QVERIFY(m_data->suppliers().contains(QStringLiteral("2|Pekáreň||00:00:00||0")));
}

void TestDialogSupplier::saveNeedsAName()
{
    Dialog dialog(SupplierRecord(), m_database->db());
    show(dialog);
    auto *name = dialog.find<QLineEdit>("lineEditName");
    QVERIFY(name->hasFocus());
    QVERIFY(!dialog.button("pushButtonSave")->isEnabled());
    QVERIFY(dialog.button("pushButtonCancel")->isDefault());
    QTest::keyClicks(name, QStringLiteral("x"));
    QVERIFY(dialog.button("pushButtonSave")->isEnabled());
    QVERIFY(dialog.button("pushButtonSave")->isDefault());
    QTest::keyClick(name, Qt::Key_Backspace);
    QVERIFY(!dialog.button("pushButtonSave")->isEnabled());
    const Dialog existing(record(1), m_database->db());
    QVERIFY(existing.button("pushButtonSave")->isEnabled());
    existing.find<QLineEdit>("lineEditName")->clear();
    QVERIFY(!existing.button("pushButtonSave")->isEnabled());
}

void TestDialogSupplier::fieldsHaveNames()
{
    const Dialog dialog(record(1), m_database->db());
    for (const char *field : {"lineEditName", "lineEditShortcut", "plainTextEditDesc", "timeEdit", "spinBox",
                              "listViewSupplierMails", "listViewOdosielanie"}) {
        const auto *widget = dialog.find<QWidget>(field);
        bool named = !widget->accessibleName().isEmpty();
        const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
        for (const QLabel *label : labels)
            named = named || label->buddy() == widget;
        QVERIFY2(named, field);
    }
}

void TestDialogSupplier::tabOrder()
{
    Dialog dialog(record(1), m_database->db());
    dialog.select("listViewSupplierMails", 0);
    dialog.select("listViewOdosielanie", 0);
    show(dialog);
    QCOMPARE(tabStops(dialog),
             (QStringList{"lineEditName", "lineEditShortcut", "plainTextEditDesc", "timeEdit", "spinBox",
                          "listViewSupplierMails", "pushButtonPridat", "pushButtonUpravit", "pushButtonZmazat",
                          "listViewOdosielanie", "pushButtonPridatOdosielanie", "pushButtonUpravitOdosielanie",
                          "pushButtonZmazatOdosielanie", "pushButtonSave", "pushButtonCancel", "pushButtonDelete"}));
}

void TestDialogSupplier::tabOrderOfANewSupplier()
{
    Dialog dialog(SupplierRecord(), m_database->db());
    show(dialog);
    QCOMPARE(tabStops(dialog),
             (QStringList{"lineEditName", "lineEditShortcut", "plainTextEditDesc", "timeEdit", "spinBox",
                          "listViewSupplierMails", "pushButtonPridat", "pushButtonCancel"}));
}

void TestDialogSupplier::enterInAListDoesNotSave()
{
    Dialog dialog(record(1), m_database->db());
    show(dialog);
    for (const char *name : {"listViewSupplierMails", "listViewOdosielanie"}) {
        dialog.list(name)->setFocus();
        dialog.list(name)->selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::Clear);
        QTest::keyClick(dialog.list(name), Qt::Key_Return);
        QTest::keyClick(dialog.list(name), Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(dialog.isVisible());
    }
    BoxAnswerer boxes;
    expectMail(boxes, QStringLiteral("Úprava emailu dodávateľa"), QStringLiteral("kuchyna@jedalen.sk"),
               QStringLiteral("k@jedalen.sk"));
    boxes.expectDialog(QStringLiteral("DialogProMails"), [](QDialog *time) { time->reject(); });
    dialog.select("listViewSupplierMails", 1);
    dialog.list("listViewSupplierMails")->setFocus();
    QTest::keyClick(dialog.list("listViewSupplierMails"), Qt::Key_Return);
    show(dialog); // it lost the keyboard to the question
    dialog.select("listViewOdosielanie", 1);
    dialog.list("listViewOdosielanie")->setFocus();
    QTest::keyClick(dialog.list("listViewOdosielanie"), Qt::Key_Return);
    BOXES_DONE(boxes);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.texts("listViewSupplierMails").constLast(), QStringLiteral("k@jedalen.sk"));
}

void TestDialogSupplier::escapeCancels()
{
    Dialog dialog(record(1), m_database->db());
    const QStringList suppliers = m_data->suppliers();
    show(dialog);
    dialog.find<QLineEdit>("lineEditName")->setText(QStringLiteral("x"));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), 0);
    QCOMPARE(m_data->suppliers(), suppliers);
}

void TestDialogSupplier::hostileTextsStandAsTyped()
{
    const QString hostile =
        QStringLiteral("<b>O'Hara</b> \"\\%1\" &x \u202e\U0001f600 ") + QString(10000, QLatin1Char('W'));
    {
        Dialog dialog(SupplierRecord(), m_database->db());
        dialog.find<QLineEdit>("lineEditName")->setText(hostile);
        dialog.find<QLineEdit>("lineEditShortcut")->setText(hostile);
        dialog.find<QPlainTextEdit>("plainTextEditDesc")->setPlainText(hostile + QStringLiteral("\n\nkoniec"));
        dialog.button("pushButtonSave")->click();
        QCOMPARE(dialog.result(), 1);
    }
    const SupplierRecord saved = record(4);
    QCOMPARE(saved.name, hostile);
    QCOMPARE(saved.shortcut, hostile);
    QCOMPARE(saved.description, hostile + QStringLiteral("\n\nkoniec"));
    Dialog dialog(saved, m_database->db());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Upraviť dodávateľa - ") + hostile);
    QCOMPARE(dialog.find<QLineEdit>("lineEditName")->text(), hostile);
    show(dialog);
    QVERIFY(dialog.width() < 1000);
}

void TestDialogSupplier::fits_data()
{
    QTest::addColumn<int>("percent");
    QTest::newRow("letters as usual") << 100;
    QTest::newRow("large letters") << 150;
}

void TestDialogSupplier::fits()
{
    QFETCH(int, percent);
    const QFont before = QApplication::font();
    QFont letters = before;
    letters.setPointSizeF(letters.pointSizeF() * percent / 100);
    QApplication::setFont(letters);
    {
        Dialog dialog(record(1), m_database->db());
        show(dialog);
        QVERIFY(dialog.width() <= 1000);
        QVERIFY(dialog.height() <= 700);
        const QList<QWidget *> parts = dialog.findChildren<QWidget *>();
        for (const QWidget *part : parts) {
            if (qobject_cast<const QPushButton *>(part) || qobject_cast<const QLabel *>(part))
                QVERIFY2(part->width() >= part->sizeHint().width() && part->height() >= part->sizeHint().height(),
                         qPrintable(part->objectName()));
        }
    }
    QApplication::setFont(before);
}

void TestDialogSupplier::closedHandle()
{
    const QString name = QStringLiteral("closed");
    {
        const QSqlDatabase closed = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), name);
        LogCatcher log;
        Dialog dialog(record(1), closed);
        QCOMPARE(moduleLines(log), QStringList());
        QCOMPARE(dialog.texts("listViewSupplierMails"), QStringList());
        QCOMPARE(dialog.texts("listViewOdosielanie"), QStringList());
        QVERIFY(!dialog.button("pushButtonUpravit")->isEnabled());
        QVERIFY(!dialog.button("pushButtonZmazatOdosielanie")->isEnabled());
        BoxAnswerer boxes;
        expectMail(boxes, QStringLiteral("Pridanie emailu dodávateľa"), QString(), QStringLiteral("a@b.sk"));
        dialog.button("pushButtonPridat")->click();
        BOXES_DONE(boxes);
        QCOMPARE(dialog.texts("listViewSupplierMails"), QStringList{"a@b.sk"});
    }
    QSqlDatabase::removeDatabase(name);
}

QTEST_MAIN(TestDialogSupplier)
#include "tst_dialogsupplier.moc"
