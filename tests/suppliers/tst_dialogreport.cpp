#include "dispatchdata.h"
#include "forms.h"
#include "support/metamethods.h"
#include "support/missingtable.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QPrintPreviewDialog>
#include <QSignalSpy>
#include <QUrl>

using Dialog = Form<DialogReport>;

/// The dispatch dialog as such: its form, its lists, its keys, closed connections and failures.
class TestDialogReport : public QObject {
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void metaObject();
    void texts_data();
    void texts();
    void properties();
    void buttons();
    void lists();
    void title_data();
    void title();
    void hostileTitleIsPlainText();
    void suppliers();
    void suppliersOfAllBranches();
    void mailsOfTheClickedSupplier();
    void mailsAreLoadedAtEachClick();
    void mailsFollowTheKeyboard();
    void mailsFollowAPressReleasedElsewhere();
    void branchMailsAreHiddenAtFirst();
    void checkBoxShowsTheBranchMails();
    void tabOrder();
    void enterPressesTheFocusedButtonOnly();
    void escapeCloses();
    void longNamesKeepTheDialogNarrow();
    void fits_data();
    void fits();
    void closedHandle();
    void missingSlot();
    void failedLists_data();
    void failedLists();
    void lostConnection();

private:
    std::unique_ptr<Dialog> dialog(uint bid = 1, uint segmentID = 1) const
    {
        return std::make_unique<Dialog>(DispatchData::day(), segmentID, bid, m_database->db());
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DispatchData> m_data;
    QList<QUrl> m_opened;
};

namespace {

const char *const listNames[] = {"listViewSuppliers", "listViewSupplierMails", "listViewBranchMails"};
const char *const buttonNames[] = {"pushButtonPrint", "pushButtonSend", "pushButtonPrintOrders"};

QStringList allMails()
{
    // Bistro has none, and one empty row.
    return {"pec@pekaren.sk", "druhy@pekaren.sk", "treti@pekaren.sk", "", "gril@gril.sk"};
}

} // namespace

void TestDialogReport::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "openUrl");
}

void TestDialogReport::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
    m_data.reset();
    m_database.reset();
}

void TestDialogReport::init()
{
    m_data.reset();
    m_data = std::make_unique<DispatchData>(*m_database);
    m_opened.clear();
}

void TestDialogReport::metaObject()
{
    QCOMPARE(
        metaMethods(DialogReport::staticMetaObject),
        (QStringList{"slot void setValue(int,QString,QVariant&,int)", "slot void setDSInfo(DataSetInfo&)",
                     "slot void setValue2(int,QString,QVariant&,int)", "slot void setDSInfo2(DataSetInfo&)",
                     "slot void on_pushButtonPrint_clicked()", "slot void on_listViewSuppliers_clicked(QModelIndex)",
                     "slot void on_checkBoxCopyToBranch_stateChanged(int)", "slot void on_pushButtonSend_clicked()",
                     "slot void on_pushButtonPrintOrders_clicked()"}));
}

void TestDialogReport::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("labelTitle") << "Nadpis";
    QTest::newRow("labelSuppliers") << "Dodávatelia";
    QTest::newRow("labelSupplierMails") << "Emaily dodávatela";
    QTest::newRow("checkBoxCopyToBranch") << "Odoslať kópie na emaily strediska";
    QTest::newRow("labelBranchMails") << "Emaily strediska";
    QTest::newRow("pushButtonPrint") << "Tlačiť objednávku";
    QTest::newRow("pushButtonSend") << "Odoslať objednávku";
    QTest::newRow("pushButtonPrintOrders") << "Tlačiť výdaj";
}

void TestDialogReport::texts()
{
    const Dialog form(DispatchData::day(), 1U, 1U, QSqlDatabase());
    QCOMPARE(form.windowTitle(), QStringLiteral("Odoslanie / tlač objednávky"));
    const auto *widget = form.find<QWidget>(QTest::currentDataTag());
    QVERIFY(widget);
    QTEST(widget->property("text").toString(), "text");
}

void TestDialogReport::properties()
{
    const auto form = dialog();
    QCOMPARE(form->find<QLabel>("labelTitle")->property("titleText"), QVariant(true));
    QCOMPARE(form->find<QLabel>("labelTitle")->property("silverPanel"), QVariant(true));
    for (const char *name : {"labelSuppliers", "listViewSuppliers", "labelSupplierMails", "listViewSupplierMails",
                             "labelBranchMails", "listViewBranchMails"})
        QCOMPARE(form->find<QWidget>(name)->property("whitePanel"), QVariant(true));
}

void TestDialogReport::buttons()
{
    const auto form = dialog();
    for (const char *name : buttonNames) {
        const QPushButton *button = form->button(name);
        QCOMPARE(button->styleSheet(), QStringLiteral("text-align:left;"));
        QVERIFY(!button->autoDefault());
        QVERIFY(!button->isDefault());
        QVERIFY(button->isEnabled());
    }
    const auto image = [](const QIcon &icon) { return icon.pixmap(24, 24).toImage(); };
    QVERIFY(!image(form->button("pushButtonPrint")->icon()).isNull());
    QCOMPARE(image(form->button("pushButtonPrint")->icon()), image(QIcon(QStringLiteral(":/images/printer.png"))));
    QCOMPARE(image(form->button("pushButtonSend")->icon()), image(QIcon(QStringLiteral(":/images/mail.png"))));
    QVERIFY(image(form->button("pushButtonPrint")->icon()) != image(form->button("pushButtonSend")->icon()));
    QVERIFY(form->button("pushButtonPrintOrders")->icon().isNull());
}

void TestDialogReport::lists()
{
    const auto form = dialog();
    const std::pair<const char *, const char *> pairs[] = {{"labelSuppliers", "listViewSuppliers"},
                                                           {"labelSupplierMails", "listViewSupplierMails"},
                                                           {"labelBranchMails", "listViewBranchMails"}};
    for (const auto &pair : pairs) {
        const QListView *view = form->list(pair.second);
        QCOMPARE(form->find<QLabel>(pair.first)->buddy(), view); // whose name it is to a screen reader
        QCOMPARE(view->modelColumn(), 1);
        QCOMPARE(view->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    }
}

void TestDialogReport::title_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<uint>("segmentID");
    QTest::addColumn<QString>("title");
    QTest::newRow("short numbers") << QDate(2031, 5, 4) << 1U << "4.5.2031 Obed";
    QTest::newRow("long numbers") << QDate(2031, 12, 24) << 2U << "24.12.2031 Večera";
    QTest::newRow("leap day") << QDate(2028, 2, 29) << 2U << "29.2.2028 Večera";
}

void TestDialogReport::title()
{
    QFETCH(QDate, date);
    QFETCH(uint, segmentID);
    const Dialog form(date, segmentID, 1U, m_database->db());
    QTEST(form.text("labelTitle"), "title");
    QCOMPARE(form.windowTitle(), QStringLiteral("Odoslanie / tlač objednávky"));
}

void TestDialogReport::hostileTitleIsPlainText()
{
    m_data->rename("via_segments", "name", "segmentID", 1, QStringLiteral("<b>Obed</b> & %1"));
    const auto form = dialog();
    QCOMPARE(form->text("labelTitle"), QStringLiteral("4.5.2031 <b>Obed</b> & %1"));
    QCOMPARE(form->find<QLabel>("labelTitle")->textFormat(), Qt::PlainText);
}

void TestDialogReport::suppliers()
{
    const auto form = dialog();
    QCOMPARE(form->texts("listViewSuppliers"), (QStringList{"- všetci dodávatelia -", "Pekáreň", "Bistro", "Gril"}));
    QCOMPARE(form->current("listViewSuppliers"), 0);
    QCOMPARE(form->list("listViewSuppliers")->currentIndex().column(), 1);
    QCOMPARE(form->texts("listViewSupplierMails"), allMails());
    QCOMPARE(form->texts("listViewBranchMails"), (QStringList{"vyroba@firma.sk", "sef@firma.sk"}));
}

void TestDialogReport::suppliersOfAllBranches()
{
    const auto form = dialog(0);
    QCOMPARE(form->texts("listViewSuppliers"), (QStringList{"- všetci dodávatelia -", "Jedáleň"}));
    QCOMPARE(form->texts("listViewSupplierMails"), (QStringList{"objednavky@jedalen.sk", "kuchyna@jedalen.sk"}));
    QCOMPARE(form->texts("listViewBranchMails"), QStringList{"vsetci@firma.sk"});
    const auto without = dialog(2);
    QCOMPARE(without->texts("listViewSuppliers"), QStringList{"- všetci dodávatelia -"});
    QCOMPARE(without->texts("listViewSupplierMails"), QStringList());
    QCOMPARE(without->texts("listViewBranchMails"), QStringList());
}

void TestDialogReport::mailsOfTheClickedSupplier()
{
    const auto form = dialog();
    show(*form);
    const QListView *view = form->list("listViewSuppliers");
    const auto click = [&](int row) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          rowText(view, view->model()->index(row, 1)));
        return form->texts("listViewSupplierMails");
    };
    QCOMPARE(click(1), (QStringList{"pec@pekaren.sk", "druhy@pekaren.sk", "treti@pekaren.sk"}));
    QCOMPARE(click(2), QStringList{""});
    QCOMPARE(click(3), QStringList{"gril@gril.sk"});
    QCOMPARE(click(0), allMails());
}

void TestDialogReport::mailsAreLoadedAtEachClick()
{
    const auto form = dialog();
    m_data->exec("INSERT INTO via_suppliermails (supplierID, mail) VALUES (3, 'bistro@bistro.sk')");
    const QAbstractItemModel *suppliers = form->list("listViewSuppliers")->model();
    form->on_listViewSuppliers_clicked(suppliers->index(2, 1));
    QCOMPARE(form->texts("listViewSupplierMails"), QStringList{"bistro@bistro.sk"});
    // The key is that of the row, whichever of its cells was clicked.
    form->on_listViewSuppliers_clicked(suppliers->index(3, 0));
    QCOMPARE(form->texts("listViewSupplierMails"), QStringList{"gril@gril.sk"});
    QCOMPARE(form->list("listViewSupplierMails")->modelColumn(), 1);
}

void TestDialogReport::mailsFollowTheKeyboard()
{
    const auto form = dialog();
    show(*form);
    form->list("listViewSuppliers")->setFocus();
    QTest::keyClick(form->list("listViewSuppliers"), Qt::Key_Down);
    QCOMPARE(form->current("listViewSuppliers"), 1);
    QCOMPARE(form->texts("listViewSupplierMails"),
             (QStringList{"pec@pekaren.sk", "druhy@pekaren.sk", "treti@pekaren.sk"}));
    QTest::keyClick(form->list("listViewSuppliers"), Qt::Key_End);
    QCOMPARE(form->texts("listViewSupplierMails"), QStringList{"gril@gril.sk"});
    QTest::keyClick(form->list("listViewSuppliers"), Qt::Key_Home);
    QCOMPARE(form->texts("listViewSupplierMails"), allMails());
}

/// What is printed, the current row, and who is written to, the mails shown, are always of the same supplier.
void TestDialogReport::mailsFollowAPressReleasedElsewhere()
{
    const auto form = dialog();
    show(*form);
    const QListView *view = form->list("listViewSuppliers");
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, rowText(view, view->model()->index(3, 1)));
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    QCOMPARE(form->current("listViewSuppliers"), 3);
    QCOMPARE(form->texts("listViewSupplierMails"), QStringList{"gril@gril.sk"});
}

void TestDialogReport::branchMailsAreHiddenAtFirst()
{
    const auto form = dialog();
    show(*form);
    QVERIFY(!form->find<QCheckBox>("checkBoxCopyToBranch")->isChecked());
    QVERIFY(!form->find<QWidget>("labelBranchMails")->isVisible());
    QVERIFY(!form->find<QWidget>("listViewBranchMails")->isVisible());
}

void TestDialogReport::checkBoxShowsTheBranchMails()
{
    const auto form = dialog();
    show(*form);
    const auto shown = [&form] {
        const bool label = form->find<QWidget>("labelBranchMails")->isVisible();
        return label == form->find<QWidget>("listViewBranchMails")->isVisible() ? int(label) : -1;
    };
    auto *box = form->find<QCheckBox>("checkBoxCopyToBranch");
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    QCOMPARE(shown(), 1);
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(shown(), 0);
    form->on_checkBoxCopyToBranch_stateChanged(Qt::PartiallyChecked);
    QCOMPARE(shown(), 1);
    form->on_checkBoxCopyToBranch_stateChanged(Qt::Unchecked);
    QCOMPARE(shown(), 0);
    QCOMPARE(form->texts("listViewSupplierMails"), allMails());
}

void TestDialogReport::tabOrder()
{
    const auto form = dialog();
    show(*form);
    const auto stops = [&form] {
        form->list("listViewSuppliers")->setFocus();
        QStringList order;
        do {
            order.append(form->focusWidget()->objectName());
            QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        } while (form->focusWidget()->objectName() != order.first() && order.size() < 20);
        return order;
    };
    QStringList expected{"listViewSuppliers", "listViewSupplierMails", "checkBoxCopyToBranch",
                         "pushButtonPrint",   "pushButtonSend",        "pushButtonPrintOrders"};
    QCOMPARE(stops(), expected);
    form->find<QCheckBox>("checkBoxCopyToBranch")->setChecked(true);
    expected.insert(3, QStringLiteral("listViewBranchMails"));
    QCOMPARE(stops(), expected);
}

void TestDialogReport::enterPressesTheFocusedButtonOnly()
{
    const auto form = dialog();
    show(*form);
    const BoxAnswerer boxes; // no preview may open
    for (const char *name : {"listViewSuppliers", "listViewSupplierMails"}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            form->find<QWidget>(name)->setFocus();
            QTest::keyClick(form->find<QWidget>(name), key);
        }
    }
    QTest::qWait(20);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(m_opened.size(), 0);
    QVERIFY(form->isVisible());
    form->button("pushButtonSend")->setFocus();
    QTest::keyClick(form->button("pushButtonSend"), Qt::Key_Return);
    QCOMPARE(m_opened.size(), 3);
    QTest::keyClick(form->button("pushButtonSend"), Qt::Key_Space);
    QCOMPARE(m_opened.size(), 6);
    QVERIFY(form->isVisible());
}

void TestDialogReport::escapeCloses()
{
    const auto form = dialog();
    show(*form);
    QTest::keyClick(form->list("listViewSuppliers"), Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    QCOMPARE(form->result(), 0);
    QCOMPARE(m_opened.size(), 0);
}

void TestDialogReport::longNamesKeepTheDialogNarrow()
{
    const QSize size = dialog()->minimumSizeHint();
    m_data->exec("UPDATE via_suppliers SET name = REPEAT('W', 10000)");
    m_data->exec("UPDATE via_segments SET name = REPEAT('W', 10000)");
    m_data->exec("UPDATE via_suppliermails SET mail = CONCAT(supplierMailID, REPEAT('W', 10000), '@b.sk')");
    m_data->exec("UPDATE via_branchmails SET mail = CONCAT(branchMailID, REPEAT('W', 10000), '@b.sk')");
    const auto form = dialog();
    QCOMPARE(form->text("labelTitle"), QStringLiteral("4.5.2031 ") + QString(10000, QLatin1Char('W')));
    QVERIFY(form->minimumSizeHint().width() <= size.width());
    form->resize(900, 400);
    show(*form);
    QCOMPARE(form->size(), QSize(900, 400));
}

void TestDialogReport::fits_data()
{
    QTest::addColumn<int>("percent");
    QTest::newRow("letters as they are") << 100;
    QTest::newRow("large letters") << 150;
}

void TestDialogReport::fits()
{
    QFETCH(int, percent);
    const QFont before = QApplication::font();
    QFont letters = before;
    letters.setPointSizeF(letters.pointSizeF() * percent / 100);
    QApplication::setFont(letters);
    {
        const auto form = dialog();
        form->find<QCheckBox>("checkBoxCopyToBranch")->setChecked(true);
        form->resize(1, 1); // as small as it lets itself be made
        show(*form);
        for (const char *name : {"labelSuppliers", "labelSupplierMails", "checkBoxCopyToBranch", "labelBranchMails",
                                 "pushButtonPrint", "pushButtonSend", "pushButtonPrintOrders"}) {
            const auto *part = form->find<QWidget>(name);
            const QSize needed = part->sizeHint();
            QVERIFY2(part->width() >= needed.width() && part->height() >= needed.height(), name);
        }
        for (const char *name : listNames)
            QVERIFY(form->list(name)->width() >= 120 && form->list(name)->height() >= 160);
        QVERIFY2(form->width() <= 1200, qPrintable(QString::number(form->width())));
        QVERIFY(form->height() <= 640);
        const int width = form->width();
        form->find<QCheckBox>("checkBoxCopyToBranch")->setChecked(false);
        QCoreApplication::processEvents();
        QCOMPARE(form->width(), width); // nothing jumps
        QVERIFY(form->find<QWidget>("checkBoxCopyToBranch")->y() < form->find<QWidget>("listViewSuppliers")->y());
    }
    QApplication::setFont(before);
}

void TestDialogReport::closedHandle()
{
    const QString name = QStringLiteral("closed");
    {
        const QSqlDatabase closed = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), name);
        LogCatcher log;
        BoxAnswerer boxes;
        Dialog form(DispatchData::day(), 1U, 1U, closed);
        show(form);
        QCOMPARE(form.windowTitle(), QStringLiteral("Odoslanie / tlač objednávky"));
        QCOMPARE(form.text("labelTitle"), QStringLiteral("Nadpis"));
        for (const char *button : buttonNames)
            form.button(button)->click();
        form.on_listViewSuppliers_clicked(QModelIndex());
        form.find<QCheckBox>("checkBoxCopyToBranch")->click();
        for (const char *button : buttonNames)
            form.button(button)->click();
        for (const char *list : listNames)
            QCOMPARE(form.texts(list), QStringList());
        DataSetInfo info;
        info.recordCount = 5;
        form.setDSInfo(info);
        QCOMPARE(info.recordCount, 0);
        info.recordCount = 5;
        form.setDSInfo2(info);
        QCOMPARE(info.recordCount, 0);
        QVariant value(3);
        form.setValue(0, QStringLiteral("0"), value, 0);
        QVERIFY(!value.isValid());
        form.setValue2(0, QStringLiteral("0"), value, 0);
        QVERIFY(!value.isValid());
        QTest::qWait(20);
        BOXES_DONE(boxes);
        QCOMPARE(boxes.answered(), 0);
        QCOMPARE(m_opened, QList<QUrl>());
        QCOMPARE(moduleLines(log), QStringList());
    }
    QSqlDatabase::removeDatabase(name);
}

void TestDialogReport::missingSlot()
{
    BoxAnswerer boxes;
    const auto form = dialog(1, 99);
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(form->text("labelTitle"), QStringLiteral("4.5.2031 "));
    QCOMPARE(form->texts("listViewSuppliers").size(), 4);
}

void TestDialogReport::failedLists_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("emptyList");
    QTest::newRow("via_supplierbranch") << "SupplierModel - checkableSuppliers load"
                                        << "listViewSuppliers";
    QTest::newRow("via_branchmails") << "SupplierModel - loadBranchMails load"
                                     << "listViewBranchMails";
    QTest::newRow("via_suppliermails") << "SupplierModel - loadSupplierMails load"
                                       << "listViewSupplierMails";
}

void TestDialogReport::failedLists()
{
    QFETCH(QString, tag);
    QFETCH(QString, emptyList);
    const QString table = QString::fromLatin1(QTest::currentDataTag());
    const MissingTable missing(*m_database, table);
    LogCatcher log;
    BoxAnswerer boxes;
    if (table == QLatin1String("via_supplierbranch"))
        boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať menu!"));
    const auto form = dialog();
    QVERIFY(log.has(tag + QStringLiteral(" ERROR: [1146]: ") + missing.error()));
    QCOMPARE(form->texts(qPrintable(emptyList)), QStringList());
    QTest::qWait(20);
    form->button("pushButtonSend")->click();
    QCOMPARE(m_opened.size(), table == QLatin1String("via_branchmails") ? 3 : 0);
    BOXES_DONE(boxes);
}

/// Everything is read when the dialog opens but the mails of another supplier and the list of orders.
void TestDialogReport::lostConnection()
{
    const TestDatabase other(QStringLiteral("other"));
    const DispatchData data(other);
    Dialog form(DispatchData::day(), 1U, 1U, other.db());
    show(form);
    other.breakConnection();
    BoxAnswerer boxes;
    LogCatcher log;
    form.button("pushButtonSend")->click();
    QCOMPARE(m_opened.size(), 3);
    QCOMPARE(log.critical(), QStringList());
    form.select("listViewSuppliers", 2);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(QLatin1String("SupplierModel - loadSupplierMails load ERROR: [20")));
    QCOMPARE(form.texts("listViewSupplierMails"), QStringList());
    form.button("pushButtonSend")->click();
    QCOMPARE(m_opened.size(), 3);
    log.clear();
    boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [](QDialog *preview) { preview->reject(); });
    form.button("pushButtonPrintOrders")->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(QLatin1String("OrderModel - segmentOrders ERROR: [20")));
}

QTEST_MAIN(TestDialogReport)
#include "tst_dialogreport.moc"
