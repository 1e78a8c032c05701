#include "catalogue/dialogalergen.h"
#include "catalogue/dialogdata.h"
#include "session/session.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"
#include "support/modelstrings.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

#include <memory>

namespace {

/// The allergen list with short ways to its widgets.
class AlergenList : public Opened<DialogAlergen> {
public:
    explicit AlergenList(const QSqlDatabase &db)
        : Opened(db, nullptr)
    {
    }

    QListView *list() const { return find<QListView>("listViewAlergens"); }
    QPlainTextEdit *description() const { return find<QPlainTextEdit>("plainTextEditAlergens"); }
    QPushButton *add() const { return find<QPushButton>("pushButtonPridat"); }
    QPushButton *remove() const { return find<QPushButton>("pushButtonZmazat"); }
    QPushButton *edit() const { return find<QPushButton>("pushButtonUpravit"); }

    QStringList titles() const { return columnTexts(*list()->model(), 1); }
    void select(int row) const { list()->setCurrentIndex(list()->model()->index(row, 1)); }
    /// The buttons that are open; the default one in brackets.
    QString openButtons() const
    {
        QStringList buttons;
        const QList<QPushButton *> all{add(), remove(), edit()};
        for (const QPushButton *button : all) {
            if (button->isEnabled())
                buttons.append(button->isDefault() ? QStringLiteral("[%1]").arg(button->text()) : button->text());
        }
        return buttons.join(QLatin1Char(' '));
    }
};

/// Types a title into the dialog of one allergen and saves it.
void saveTitle(QDialog *dialog, const QString &title)
{
    auto *line = dialog->findChild<QLineEdit *>(QStringLiteral("lineEditTitle"));
    line->clear();
    QTest::keyClicks(line, title);
    dialog->findChild<QPushButton *>(QStringLiteral("pushButtonSave"))->click();
}

} // namespace

class TestDialogAlergen : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DialogData>(*m_database); }
    void cleanup();

    void metaObject();
    void form();
    void textsAreNotCut();
    void selectionOpensTheActions();
    void selectionShowsItsDescription();
    void adds();
    void edits();
    void deletes();
    void refusedDeletion();
    void readOnlyListCanBeBrowsed();
    void hostileTextsStandAsTyped();
    void worksByKeyboard();
    void closedHandleGivesAnEmptyList();
    void connectionLost();
    void listThatComesLateShowsItsTitles();
    void pageGoneDuringTheEditing();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    BoxAnswerer m_boxes;
};

void TestDialogAlergen::cleanup()
{
    session().readOnly = false;
    BOXES_DONE(m_boxes);
}

void TestDialogAlergen::metaObject()
{
    QCOMPARE(metaMethods(DialogAlergen::staticMetaObject),
             (QStringList{"slot void on_pushButtonPridat_clicked()", "slot void on_pushButtonUpravit_clicked()",
                          "slot void on_pushButtonZmazat_clicked()", "slot void itemSelection()",
                          "slot void resetModel()"}));
}

void TestDialogAlergen::form()
{
    const AlergenList dialog(m_database->db());
    QCOMPARE(dialog.windowTitle(), QString("Zoznam Alergénov"));
    QCOMPARE(dialog.find<QLabel>("labelTitle")->text(), QString("Zoznam Alergénov"));
    QVERIFY(dialog.find<QLabel>("labelTitle")->isHidden());
    QVERIFY(dialog.description()->isReadOnly());
    QCOMPARE(dialog.list()->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(dialog.list()->modelColumn(), 1);
    QCOMPARE(dialog.titles(), (QStringList{"Obilniny", "Vajcia", "Mlieko"}));
    QCOMPARE(dialog.add()->text(), QString("Pridať"));
    QCOMPARE(dialog.remove()->text(), QString("Zmazať"));
    QCOMPARE(dialog.edit()->text(), QString("Upraviť"));
    QVERIFY(!dialog.list()->accessibleName().isEmpty());
    QVERIFY(!dialog.description()->accessibleName().isEmpty());
}

void TestDialogAlergen::textsAreNotCut()
{
    AlergenList dialog(m_database->db());
    show(dialog);
    QVERIFY(textsFit(dialog));
}

void TestDialogAlergen::selectionOpensTheActions()
{
    AlergenList dialog(m_database->db());
    QCOMPARE(dialog.openButtons(), QString("[Pridať]"));
    dialog.select(1);
    QCOMPARE(dialog.openButtons(), QString("Pridať Zmazať [Upraviť]"));
    dialog.list()->clearSelection();
    QCOMPARE(dialog.openButtons(), QString("[Pridať]"));
    dialog.select(2);
    dialog.resetModel();
    QCOMPARE(dialog.openButtons(), QString("[Pridať]"));
    QCOMPARE(dialog.description()->toPlainText(), QString());
}

void TestDialogAlergen::selectionShowsItsDescription()
{
    const AlergenList dialog(m_database->db());
    QCOMPARE(dialog.description()->toPlainText(), QString());
    dialog.select(0);
    QCOMPARE(dialog.description()->toPlainText(), QString("lepok"));
    dialog.select(1);
    QCOMPARE(dialog.description()->toPlainText(), QString());
    dialog.select(2);
    QCOMPARE(dialog.description()->toPlainText(), QString("aj srvátka"));
    // What another workstation wrote shows as soon as the row is taken up.
    m_data->exec("UPDATE via_alergens SET description='jačmeň' WHERE alergenID=1");
    dialog.select(0);
    QCOMPARE(dialog.description()->toPlainText(), QString("jačmeň"));
}

void TestDialogAlergen::adds()
{
    const AlergenList dialog(m_database->db());
    dialog.select(0);
    m_boxes.expectDialog("DialogAddAlergen", [&dialog](QDialog *editor) {
        QCOMPARE(editor->windowTitle(), QString("Pridanie alergénu"));
        QCOMPARE(static_cast<const QWidget *>(editor->parentWidget()), static_cast<const QWidget *>(&dialog));
        saveTitle(editor, QStringLiteral("Zeler"));
    });
    dialog.add()->click();
    QCOMPARE(dialog.titles(), (QStringList{"Obilniny", "Vajcia", "Mlieko", "Zeler"}));
    QCOMPARE(dialog.openButtons(), QString("[Pridať]"));
}

void TestDialogAlergen::edits()
{
    const AlergenList dialog(m_database->db());
    dialog.select(2);
    m_boxes.expectDialog("DialogAddAlergen", [](QDialog *editor) {
        QCOMPARE(editor->windowTitle(), QString("Úprava Alergénu"));
        saveTitle(editor, QStringLiteral("Laktoza"));
    });
    dialog.edit()->click();
    QCOMPARE(m_data->allAlergens(), (QStringList{"Obilniny|lepok", "Vajcia|NULL", "Laktoza|aj srvátka"}));
    QCOMPARE(dialog.titles(), (QStringList{"Obilniny", "Vajcia", "Laktoza"}));
    QCOMPARE(dialog.openButtons(), QString("[Pridať]"));
    QCOMPARE(dialog.description()->toPlainText(), QString());
}

void TestDialogAlergen::deletes()
{
    const AlergenList dialog(m_database->db());
    dialog.select(0);
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Obilniny?", QMessageBox::Cancel,
                      [](QMessageBox *box) {
                          QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                          QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
                      });
    dialog.remove()->click();
    QCOMPARE(dialog.titles().size(), 3);
    QCOMPARE(dialog.openButtons(), QString("Pridať Zmazať [Upraviť]"));
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Obilniny?");
    dialog.remove()->click();
    QCOMPARE(dialog.titles(), (QStringList{"Vajcia", "Mlieko"}));
    QCOMPARE(dialog.openButtons(), QString("[Pridať]"));
    QCOMPARE(m_data->allAlergens(), (QStringList{"Vajcia|NULL", "Mlieko|aj srvátka"}));
}

void TestDialogAlergen::refusedDeletion()
{
    const AlergenList dialog(m_database->db());
    dialog.select(1);
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Vajcia?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom.");
    dialog.remove()->click();
    QCOMPARE(dialog.titles(), (QStringList{"Obilniny", "Vajcia", "Mlieko"}));
    QCOMPARE(m_data->alergens(11), QString("3 7"));
}

void TestDialogAlergen::readOnlyListCanBeBrowsed()
{
    session().readOnly = true;
    AlergenList dialog(m_database->db());
    show(dialog);
    QCOMPARE(dialog.openButtons(), QString());
    dialog.select(0);
    QCOMPARE(dialog.description()->toPlainText(), QString("lepok"));
    dialog.list()->setFocus();
    QTest::keyClick(dialog.list(), Qt::Key_End);
    QCOMPARE(dialog.description()->toPlainText(), QString("aj srvátka"));
    QTest::keyClick(dialog.list(), Qt::Key_Return);
    dialog.resetModel();
    dialog.itemSelection();
    QCOMPARE(dialog.openButtons(), QString());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestDialogAlergen::hostileTextsStandAsTyped()
{
    const QStringList texts = hostileTexts();
    for (const QString &text : texts) {
        m_data->store("UPDATE via_alergens SET title=? WHERE alergenID=3", text);
        m_data->store("UPDATE via_alergens SET description=? WHERE alergenID=3", text);
        const AlergenList dialog(m_database->db());
        QCOMPARE(dialog.titles().at(1), text);
        dialog.select(1);
        QCOMPARE(dialog.description()->toPlainText(), text);
        m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén " + text + '?', QMessageBox::Cancel);
        dialog.remove()->click();
        BOXES_DONE(m_boxes);
        QVERIFY(dialog.sizeHint().width() <= 1024);
    }
}

void TestDialogAlergen::worksByKeyboard()
{
    AlergenList dialog(m_database->db());
    show(dialog);
    QCOMPARE(tabOrder(dialog), (QStringList{"listViewAlergens", "plainTextEditAlergens", "pushButtonPridat"}));
    QVERIFY(dialog.list()->hasFocus());
    QTest::keyClick(dialog.list(), Qt::Key_Home);
    QTest::keyClick(dialog.list(), Qt::Key_Down);
    QTest::keyClick(dialog.list(), Qt::Key_Down);
    QCOMPARE(dialog.list()->currentIndex().row(), 2);
    QCOMPARE(dialog.description()->toPlainText(), QString("aj srvátka"));
    QTest::keyClick(dialog.list(), Qt::Key_Up);
    QCOMPARE(dialog.description()->toPlainText(), QString());
    QTest::keyClick(dialog.list(), Qt::Key_End);
    // What is selected is what the default button takes up.
    m_boxes.expectDialog("DialogAddAlergen", [](QDialog *editor) {
        QCOMPARE(editor->findChild<QLineEdit *>("lineEditTitle")->text(), QString("Mlieko"));
        QTest::keyClick(editor, Qt::Key_Escape);
    });
    QTest::keyClick(dialog.list(), Qt::Key_Return);
    BOXES_DONE(m_boxes);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestDialogAlergen::closedHandleGivesAnEmptyList()
{
    {
        const Opened<DialogAlergen> dialog(m_data->closedConnection(), nullptr);
        QCOMPARE(dialog.find<QListView>("listViewAlergens")->model()->rowCount(), 0);
        QVERIFY(!dialog.find<QPushButton>("pushButtonUpravit")->isEnabled());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
}

void TestDialogAlergen::connectionLost()
{
    const TestDatabase database(QStringLiteral("lost"));
    const DialogData data(database);
    AlergenList dialog(database.db());
    dialog.select(0);
    database.breakConnection();
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať alergén!");
    dialog.select(2);
    BOXES_DONE(m_boxes);
    LogCatcher log;
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Mlieko?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom.");
    dialog.remove()->click();
    QCOMPARE(dialog.titles(), QStringList());
    QVERIFY(log.critical().constLast().startsWith("AlergenModel - setQuery ERROR: ["));
    QCOMPARE(data.allAlergens().size(), 3);
}

void TestDialogAlergen::listThatComesLateShowsItsTitles()
{
    m_data->exec("RENAME TABLE via_alergens TO via_alergens_away");
    AlergenList dialog(m_database->db());
    QCOMPARE(dialog.list()->model()->rowCount(), 0);
    m_data->exec("RENAME TABLE via_alergens_away TO via_alergens");
    dialog.resetModel();
    QCOMPARE(dialog.list()->modelColumn(), 1);
    QCOMPARE(dialog.titles(), (QStringList{"Obilniny", "Vajcia", "Mlieko"}));
}

void TestDialogAlergen::pageGoneDuringTheEditing()
{
    auto *page = new QWidget;
    const QPointer<DialogAlergen> dialog(new DialogAlergen(m_database->db(), page));
    m_boxes.expectDialog("DialogAddAlergen", [page](QDialog *) { delete page; });
    dialog->on_pushButtonPridat_clicked();
    QVERIFY(!dialog);
}

QTEST_MAIN(TestDialogAlergen)
#include "tst_dialogalergen.moc"
