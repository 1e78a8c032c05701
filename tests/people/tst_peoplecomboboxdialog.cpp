#include "people/peoplecomboboxdialog.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QtTest>

namespace {

/// The widgets of a dialog by their names.
struct Form {
    explicit Form(const QDialog &dialog)
        : label(dialog.findChild<QLabel *>(QStringLiteral("label")))
        , lineEdit(dialog.findChild<QLineEdit *>(QStringLiteral("lineEdit")))
        , listView(dialog.findChild<QListView *>(QStringLiteral("listView")))
        , ok(dialog.findChild<QPushButton *>(QStringLiteral("pushButtonOk")))
        , cancel(dialog.findChild<QPushButton *>(QStringLiteral("pushButtonCancel")))
    {
    }

    QStringList names() const { return columnTexts(*listView->model(), 1); }
    void select(int row) const { listView->setCurrentIndex(listView->model()->index(row, 1)); }

    QLabel *label;
    QLineEdit *lineEdit;
    QListView *listView;
    QPushButton *ok;
    QPushButton *cancel;
};

/// Presses a key where the focus is, as a user with a keyboard does.
void press(QDialog *dialog, Qt::Key key)
{
    QWidget *focus = dialog->focusWidget();
    QTest::keyClick(focus ? focus : dialog, key);
}

} // namespace

class TestPeopleComboboxDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void form();
    void listsTheScope_data();
    void listsTheScope();
    void listsThePresentWeekOrTheOneAskedFor();
    void typingFilters();
    void okFollowsTheCurrentPerson();
    void resultIsTheSourceRow_data();
    void resultIsTheSourceRow();
    void cancelGivesZero_data();
    void cancelGivesZero();
    void enterWithoutAPersonDoesNothing();
    void worksByKeyboardAlone();
    void tabLeadsThroughTheForm();
    void failedListIsEmpty();

private:
    int run(const std::function<void(QDialog *)> &act) const;

    std::unique_ptr<TestDatabase> m_database;
};

void TestPeopleComboboxDialog::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    m_database->exec(QStringLiteral(
        "INSERT INTO people (uid, pid, surname, name, begin, end) VALUES (1, 11, 'Adamec', 'Ján', 0, NULL), (2, 12, "
        "'Čierna-Hlavatovičová', 'Alžbeta', 0, NULL), (3, 13, 'Novák', '<b>Ján</b>', 0, NULL), (4, 14, 'Nováková', "
        "'Jana', 0, 0), "
        "(5, 15, 'Zeman', 'Ján', 0, 1000)"));
    m_database->exec(QStringLiteral("INSERT INTO brape (uid, bid) VALUES (1, 5), (3, 5)"));
    m_database->exec(QStringLiteral("INSERT INTO admins_people (uid, aid) VALUES (3, 7), (4, 7)"));
}

void TestPeopleComboboxDialog::cleanupTestCase()
{
    m_database.reset();
}

int TestPeopleComboboxDialog::run(const std::function<void(QDialog *)> &act) const
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("PeopleComboboxDialog"), act);
    const int result = dialog.exec();
    const QString failures = boxes.takeFailures();
    return failures.isEmpty() ? result : (qWarning("%s", qPrintable(failures)), -1000);
}

void TestPeopleComboboxDialog::form()
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    const Form form(dialog);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Filter - zamestnanec"));
    QCOMPARE(form.label->text(), QStringLiteral("Filter zamestnanca"));
    QCOMPARE(form.label->buddy(), form.lineEdit);
    QCOMPARE(form.ok->text(), QStringLiteral("Potvrdiť"));
    QCOMPARE(form.cancel->text(), QStringLiteral("Zrušiť"));
    QVERIFY(!form.ok->isEnabled());
    QVERIFY(form.cancel->isEnabled());
    QCOMPARE(form.lineEdit->text(), QString());
    QCOMPARE(form.listView->modelColumn(), 1);
    QVERIFY(!form.lineEdit->accessibleName().isEmpty());
    QVERIFY(!form.listView->accessibleName().isEmpty());
    QCOMPARE(form.names(),
             (QStringList{QStringLiteral("[11] Adamec Ján"), QStringLiteral("[12] Čierna-Hlavatovičová Alžbeta"),
                          QStringLiteral("[13] Novák <b>Ján</b>"), QStringLiteral("[14] Nováková Jana")}));
    dialog.show();
    QVERIFY(form.listView->viewport()->width() >= form.listView->sizeHintForColumn(0));
}

void TestPeopleComboboxDialog::listsTheScope_data()
{
    QTest::addColumn<uint>("adminID");
    QTest::addColumn<uint>("branchID");
    QTest::addColumn<QString>("uids");
    QTest::newRow("everybody") << 0U << 0U << "1234";
    QTest::newRow("branch") << 0U << 5U << "13";
    QTest::newRow("administrator") << 7U << 0U << "34";
    QTest::newRow("both") << 7U << 5U << "3";
    QTest::newRow("nobody") << 8U << 0U << "";
}

void TestPeopleComboboxDialog::listsTheScope()
{
    QFETCH(const uint, adminID);
    QFETCH(const uint, branchID);
    QFETCH(const QString, uids);

    const PeopleComboboxDialog dialog(m_database->db(), adminID, branchID);
    QCOMPARE(columnTexts(*Form(dialog).listView->model(), 0).join(QString()), uids);
}

void TestPeopleComboboxDialog::listsThePresentWeekOrTheOneAskedFor()
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    const Form form(dialog);
    QCOMPARE(columnTexts(*form.listView->model(), 0).join(QString()), QStringLiteral("1234"));
    form.select(1);
    QVERIFY(form.ok->isEnabled());
    dialog.setDate(QDate(1970, 1, 1));
    QCOMPARE(columnTexts(*form.listView->model(), 0).join(QString()), QStringLiteral("12345"));
    QVERIFY(!form.ok->isEnabled());
    dialog.setDate(QDate(1960, 1, 1));
    QCOMPARE(form.names(), QStringList());
}

void TestPeopleComboboxDialog::typingFilters()
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    const Form form(dialog);
    QSignalSpy typed(&dialog, &PeopleComboboxDialog::textchanged);
    QVERIFY(typed.isValid());
    form.lineEdit->setText(QStringLiteral("ján nov"));
    QCOMPARE(typed.size(), 1);
    QCOMPARE(typed.constFirst().constFirst().toString(), QStringLiteral("ján nov"));
    QCOMPARE(form.names(), QStringList{QStringLiteral("[13] Novák <b>Ján</b>")});
    form.lineEdit->setText(QStringLiteral("n*j?na"));
    QCOMPARE(form.names(), QStringList{QStringLiteral("[14] Nováková Jana")});
    form.lineEdit->clear();
    QCOMPARE(form.names().size(), 4);
}

void TestPeopleComboboxDialog::okFollowsTheCurrentPerson()
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    const Form form(dialog);
    form.cancel->setDefault(true);
    form.select(2);
    QVERIFY(form.ok->isEnabled());
    QVERIFY(form.ok->isDefault());

    form.lineEdit->setText(QStringLiteral("nov"));
    QVERIFY2(form.ok->isEnabled(), "the current person is still listed");
    form.cancel->setDefault(true);
    form.lineEdit->setText(QStringLiteral("adam"));
    QVERIFY2(!form.ok->isEnabled(), "the current person has been filtered out");
    QVERIFY(form.ok->isDefault());
    form.lineEdit->clear();
    QVERIFY(!form.ok->isEnabled());
    form.select(0);
    QVERIFY(form.ok->isEnabled());
}

void TestPeopleComboboxDialog::resultIsTheSourceRow_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("byActivation");
    QTest::addColumn<int>("result");
    for (const bool byActivation : {false, true}) {
        const char *way = byActivation ? "activated" : "OK";
        QTest::addRow("%s, unfiltered", way) << QString() << 1 << byActivation << 1;
        QTest::addRow("%s, filtered", way) << QStringLiteral("nov") << 1 << byActivation << 3;
        QTest::addRow("%s, the first person", way) << QString() << 0 << byActivation << 0;
        QTest::addRow("%s, a filtered last one", way) << QStringLiteral("jana") << 0 << byActivation << 3;
    }
}

void TestPeopleComboboxDialog::resultIsTheSourceRow()
{
    QFETCH(const QString, text);
    QFETCH(const int, row);
    QFETCH(const bool, byActivation);
    QFETCH(const int, result);

    QCOMPARE(run([&](QDialog *dialog) {
                 const Form form(*dialog);
                 form.lineEdit->setText(text);
                 form.select(row);
                 if (byActivation)
                     emit form.listView->activated(form.listView->model()->index(row, 1));
                 else
                     form.ok->click();
             }),
             result);
}

void TestPeopleComboboxDialog::cancelGivesZero_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("button") << false;
    QTest::newRow("escape") << true;
}

void TestPeopleComboboxDialog::cancelGivesZero()
{
    QFETCH(const bool, byEscape);
    QCOMPARE(run([byEscape](QDialog *dialog) {
                 const Form form(*dialog);
                 form.select(2);
                 if (byEscape)
                     press(dialog, Qt::Key_Escape);
                 else
                     form.cancel->click();
             }),
             0);
}

void TestPeopleComboboxDialog::enterWithoutAPersonDoesNothing()
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    press(&dialog, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
}

void TestPeopleComboboxDialog::worksByKeyboardAlone()
{
    QCOMPARE(run([](QDialog *dialog) {
                 const Form form(*dialog);
                 QTRY_COMPARE(dialog->focusWidget(), form.lineEdit);
                 QTest::keyClicks(form.lineEdit, QStringLiteral("nov"));
                 press(dialog, Qt::Key_Down);
                 press(dialog, Qt::Key_Down);
                 QCOMPARE(dialog->focusWidget(), form.lineEdit);
                 QTest::keyClicks(form.lineEdit, QStringLiteral(" jan"));
                 press(dialog, Qt::Key_Return);
             }),
             3);
    QCOMPARE(run([](QDialog *dialog) {
                 const Form form(*dialog);
                 QTRY_COMPARE(dialog->focusWidget(), form.lineEdit);
                 press(dialog, Qt::Key_Tab);
                 QCOMPARE(dialog->focusWidget(), form.listView);
                 QCOMPARE(form.listView->selectionModel()->selectedIndexes(), {form.listView->model()->index(0, 1)});
                 QVERIFY(form.ok->isEnabled());
                 press(dialog, Qt::Key_Down);
                 press(dialog, Qt::Key_Enter);
             }),
             1);
}

void TestPeopleComboboxDialog::tabLeadsThroughTheForm()
{
    PeopleComboboxDialog dialog(m_database->db(), 0, 0);
    const Form form(dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTRY_COMPARE(dialog.focusWidget(), form.lineEdit);
    form.select(0);
    QList<QWidget *> passed{dialog.focusWidget()};
    for (int step = 0; step < 4; ++step) {
        press(&dialog, Qt::Key_Tab);
        passed.append(dialog.focusWidget());
    }
    QCOMPARE(passed, (QList<QWidget *>{form.lineEdit, form.listView, form.ok, form.cancel, form.lineEdit}));
}

void TestPeopleComboboxDialog::failedListIsEmpty()
{
    const TestDatabase other(QStringLiteral("other"));
    other.exec(QStringLiteral("RENAME TABLE people TO away"));
    LogCatcher log;
    const PeopleComboboxDialog dialog(other.db(), 0, 0);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(QStringLiteral("PeopleModel - setQuery ERROR: [1146]: ")));
    QCOMPARE(Form(dialog).listView->model()->rowCount(), 0);
    QVERIFY(!Form(dialog).ok->isEnabled());
}

QTEST_MAIN(TestPeopleComboboxDialog)
#include "tst_peoplecomboboxdialog.moc"
