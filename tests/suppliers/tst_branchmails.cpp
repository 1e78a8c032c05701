#include "forms.h"
#include "supplierdata.h"
#include "suppliers/supplierwidget.h"
#include "support/logcatcher.h"

using Page = Form<SupplierWidget>;

/// The control mails of a branch.
class TestBranchMails : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void add();
    void addForAllBranches();
    void addTwiceKeepsOne();
    void badAddressesAreDropped_data();
    void badAddressesAreDropped();
    void edit();
    void doubleClickEdits();
    void editByKeyboard();
    void remove();
    void removalCancelled();
    void longMailKeepsTheQuestionSmall();
    void withoutACurrentMail();
    void failures_data();
    void failures();
    void pageMayGoWhileAQuestionIsOpen();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

namespace {

QString addTitle()
{
    return QStringLiteral("Pridanie kontrolného emailu");
}

QString editTitle()
{
    return QStringLiteral("Úprava kontrolného emailu");
}

QString deleteTitle()
{
    return QStringLiteral("Zmazanie kontrolného mailu!");
}

} // namespace

void TestBranchMails::add()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    BoxAnswerer boxes;
    expectMail(boxes, addTitle(), QString(), QStringLiteral("Nova.Adresa@Firma.SK"));
    page.button("pushButtonPridat_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(
        m_data->branchMails(),
        (QStringList{"1|NULL|vsetci@firma.sk", "2|1|vyroba@firma.sk", "3|1|sef@firma.sk", "4|1|Nova.Adresa@Firma.SK"}));
    QCOMPARE(page.texts("listViewBranchMails"),
             (QStringList{"vyroba@firma.sk", "sef@firma.sk", "Nova.Adresa@Firma.SK"}));
}

void TestBranchMails::addForAllBranches()
{
    Page page(m_database->db(), 0U);
    BoxAnswerer boxes;
    expectMail(boxes, addTitle(), QString(), QStringLiteral("a@b.sk"));
    page.button("pushButtonPridat_2")->click();
    BOXES_DONE(boxes);
    QVERIFY(m_data->branchMails().contains(QStringLiteral("4|NULL|a@b.sk")));
    QCOMPARE(page.texts("listViewBranchMails"), (QStringList{"vsetci@firma.sk", "a@b.sk"}));
}

void TestBranchMails::addTwiceKeepsOne()
{
    Page page(m_database->db(), 0U);
    BoxAnswerer boxes;
    expectMail(boxes, addTitle(), QString(), QStringLiteral("vsetci@firma.sk"));
    page.button("pushButtonPridat_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewBranchMails"), QStringList{"vsetci@firma.sk"});
}

void TestBranchMails::badAddressesAreDropped_data()
{
    QTest::addColumn<QString>("mail");
    QTest::addColumn<bool>("accept");
    QTest::newRow("no address") << "nic" << true;
    QTest::newRow("long last part") << "a@b.museum" << true;
    QTest::newRow("blank") << " a@b.sk" << true;
    QTest::newRow("empty") << "" << true;
    QTest::newRow("quotes") << "a'); DROP TABLE via_branchmails; --@b.sk" << true;
    QTest::newRow("cancelled") << "a@b.sk" << false;
}

void TestBranchMails::badAddressesAreDropped()
{
    QFETCH(QString, mail);
    QFETCH(bool, accept);
    Page page(m_database->db(), 0U);
    page.select("listViewBranchMails", 0);
    const QStringList before = m_data->branchMails();
    BoxAnswerer boxes;
    expectMail(boxes, addTitle(), QString(), mail, accept);
    expectMail(boxes, editTitle(), QStringLiteral("vsetci@firma.sk"), mail, accept);
    const LogCatcher log;
    page.button("pushButtonPridat_2")->click();
    page.button("pushButtonUpravit_2")->click();
    QTest::qWait(20); // no box comes after it
    BOXES_DONE(boxes);
    QCOMPARE(m_data->branchMails(), before);
    QCOMPARE(moduleLines(log), QStringList());
}

void TestBranchMails::edit()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    page.select("listViewBranchMails", 1);
    BoxAnswerer boxes;
    expectMail(boxes, editTitle(), QStringLiteral("sef@firma.sk"), QStringLiteral("veduci@firma.sk"));
    page.button("pushButtonUpravit_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->branchMails(),
             (QStringList{"1|NULL|vsetci@firma.sk", "2|1|vyroba@firma.sk", "3|1|veduci@firma.sk"}));
    QCOMPARE(page.texts("listViewBranchMails"), (QStringList{"vyroba@firma.sk", "veduci@firma.sk"}));
}

void TestBranchMails::doubleClickEdits()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    show(page);
    BoxAnswerer boxes;
    expectMail(boxes, editTitle(), QStringLiteral("vyroba@firma.sk"), QStringLiteral("hala@firma.sk"));
    doubleClick(page.list("listViewBranchMails"), 0);
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewBranchMails"), (QStringList{"hala@firma.sk", "sef@firma.sk"}));
}

void TestBranchMails::editByKeyboard()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    show(page);
    QListView *mails = page.list("listViewBranchMails");
    mails->setFocus();
    QTest::keyClick(mails, Qt::Key_Down);
    QVERIFY(mails->selectionModel()->isSelected(mails->currentIndex()));
    page.button("pushButtonUpravit_2")->setFocus();
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("QInputDialog"), [](QDialog *dialog) {
        auto *line = dialog->findChild<QLineEdit *>();
        QCOMPARE(line->text(), QStringLiteral("sef@firma.sk"));
        line->selectAll();
        QTest::keyClicks(line, QStringLiteral("x@y.sk"));
        QTest::keyClick(line, Qt::Key_Return);
    });
    QTest::keyClick(page.button("pushButtonUpravit_2"), Qt::Key_Space);
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewBranchMails"), (QStringList{"vyroba@firma.sk", "x@y.sk"}));
}

void TestBranchMails::remove()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    page.select("listViewBranchMails", 0);
    BoxAnswerer boxes;
    boxes.expectBox(deleteTitle(), QStringLiteral("Naozaj chcete zmazať mail vyroba@firma.sk?"), QMessageBox::Ok,
                    [](QMessageBox *box) {
                        QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                        QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
                    });
    page.button("pushButtonZmazat_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->branchMails(), (QStringList{"1|NULL|vsetci@firma.sk", "3|1|sef@firma.sk"}));
    QCOMPARE(page.texts("listViewBranchMails"), QStringList{"sef@firma.sk"});
}

void TestBranchMails::removalCancelled()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranchMails", 0);
    BoxAnswerer boxes;
    boxes.expectBox(deleteTitle(), QStringLiteral("Naozaj chcete zmazať mail vsetci@firma.sk?"), QMessageBox::Cancel);
    page.button("pushButtonZmazat_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->branchMails().size(), 3);
    QCOMPARE(page.current("listViewBranchMails"), 0);
}

void TestBranchMails::longMailKeepsTheQuestionSmall()
{
    m_data->exec("UPDATE via_branchmails SET mail = CONCAT('<b>', REPEAT('x', 10000), '</b>@b.sk') WHERE bid IS NULL");
    Page page(m_database->db(), 0U);
    page.select("listViewBranchMails", 0);
    BoxAnswerer boxes;
    boxes.expectBox(deleteTitle(),
                    QStringLiteral("Naozaj chcete zmazať mail <b>") + QString(10000, QLatin1Char('x'))
                        + QStringLiteral("</b>@b.sk?"),
                    QMessageBox::Ok, [](QMessageBox *box) {
                        QCOMPARE(box->textFormat(), Qt::PlainText);
                        QVERIFY(box->width() < 1000);
                        QVERIFY(box->height() < 700);
                    });
    page.button("pushButtonZmazat_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewBranchMails"), QStringList());
}

void TestBranchMails::withoutACurrentMail()
{
    Page page(m_database->db(), 0U);
    const BoxAnswerer boxes;
    page.button("pushButtonUpravit_2")->click();
    page.button("pushButtonZmazat_2")->click();
    QTest::qWait(20);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(m_data->branchMails().size(), 3);
}

void TestBranchMails::failures_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("pushButtonPridat_2") << "Nepodarilo sa pridať kontrolný mail strediska!";
    QTest::newRow("pushButtonUpravit_2") << "Nepodarilo sa upraviť kontrolný mail strediska!";
    QTest::newRow("pushButtonZmazat_2") << "Nepodarilo sa zmazať kontrolný mail strediska!";
}

void TestBranchMails::failures()
{
    QFETCH(QString, text);
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    Page page(other.db(), 0U);
    page.select("listViewBranchMails", 0);
    other.breakConnection();
    BoxAnswerer boxes;
    const QString button = QString::fromLatin1(QTest::currentDataTag());
    if (button == QLatin1String("pushButtonPridat_2"))
        expectMail(boxes, addTitle(), QString(), QStringLiteral("a@b.sk"));
    else if (button == QLatin1String("pushButtonUpravit_2"))
        expectMail(boxes, editTitle(), QStringLiteral("vsetci@firma.sk"), QStringLiteral("a@b.sk"));
    else
        boxes.expectBox(deleteTitle(), QStringLiteral("Naozaj chcete zmazať mail vsetci@firma.sk?"));
    boxes.expectBox(QStringLiteral("Chyba databázy"), text);
    const LogCatcher log;
    page.button(QTest::currentDataTag())->click();
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 2); // the change and the list
    QCOMPARE(page.texts("listViewBranchMails"), QStringList());
    QCOMPARE(data.branchMails().size(), 3);
}

void TestBranchMails::pageMayGoWhileAQuestionIsOpen()
{
    for (const bool edits : {false, true}) {
        auto page = std::make_unique<Page>(m_database->db(), 0U);
        page->select("listViewBranchMails", 0);
        BoxAnswerer boxes;
        boxes.expectDialog(QStringLiteral("QInputDialog"), [&page](QDialog *) { page.reset(); });
        if (edits)
            page->on_pushButtonUpravit_2_clicked();
        else
            page->on_pushButtonPridat_2_clicked();
        BOXES_DONE(boxes);
        QVERIFY(!page);
    }
    auto page = std::make_unique<Page>(m_database->db(), 0U);
    page->select("listViewBranchMails", 0);
    QTimer::singleShot(20, this, [&page] { page.reset(); });
    page->on_pushButtonZmazat_2_clicked();
    QVERIFY(!page);
    QCOMPARE(m_data->branchMails().size(), 3);
}

QTEST_MAIN(TestBranchMails)
#include "tst_branchmails.moc"
