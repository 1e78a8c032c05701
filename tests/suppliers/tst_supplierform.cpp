#include "forms.h"
#include "session/session.h"
#include "supplierdata.h"
#include "suppliers/supplierwidget.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QScrollBar>

using Page = Form<SupplierWidget>;

/// The page as such: its parts, its size, read-only sessions and closed connections.
class TestSupplierForm : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void cleanup() { session().readOnly = false; }
    void metaObject();
    void texts_data();
    void texts();
    void lists();
    void detailsCannotBeEdited();
    void titles();
    void tabOrder();
    void closedHandle();
    void readOnly();
    void readOnlyPageShowsEverything();
    void longNamesKeepThePageNarrow();
    void fitsItsScreen_data();
    void fitsItsScreen();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

namespace {

const char *const listNames[] = {"listViewBranches", "listViewSuppliers", "listViewBranchMails",
                                 "listViewSupplierEmails", "listViewSupplierTimes"};
const char *const buttonNames[] = {"pushButton", "pushButtonPridat_2", "pushButtonUpravit_2", "pushButtonZmazat_2",
                                   "pushButton_3"};

} // namespace

void TestSupplierForm::metaObject()
{
    QCOMPARE(metaMethods(SupplierWidget::staticMetaObject),
             (QStringList{"slot void listViewBranchesSelection()", "slot void listViewSuppliersSelection()",
                          "slot void updateCheck()", "slot void on_pushButton_clicked()",
                          "slot void on_pushButton_3_clicked()", "slot void on_pushButtonPridat_2_clicked()",
                          "slot void on_pushButtonUpravit_2_clicked()", "slot void on_pushButtonZmazat_2_clicked()",
                          "slot void on_listViewSuppliers_doubleClicked(QModelIndex)",
                          "slot void on_listViewBranchMails_doubleClicked(QModelIndex)"}));
}

void TestSupplierForm::texts_data()
{
    QTest::addColumn<QString>("text");
    const std::pair<const char *, const char *> parts[] = {{"labelBranch", "Názov Strediska"},
                                                           {"label_3", "Strediská :"},
                                                           {"labelSupplierName", "Názov dodávateľa"},
                                                           {"label_2", "Dodávatelia : "},
                                                           {"pushButton", "+ Pridať dodávatela"},
                                                           {"label", "Kontrolné emaily : "},
                                                           {"pushButtonPridat_2", "Pridať email"},
                                                           {"pushButtonUpravit_2", "Upraviť email"},
                                                           {"pushButtonZmazat_2", "Zmazať email"},
                                                           {"label_4", "Popis : "},
                                                           {"label_7", "Skratka : "},
                                                           {"labelShortcut", ""},
                                                           {"label_5", "Emaily dodávateľa : "},
                                                           {"label_6", "Objednávanie do :"},
                                                           {"labelDeadline", ""},
                                                           {"label_10", " - "},
                                                           {"labelDaysto", "1"},
                                                           {"label_9", "dní pred výdajom"},
                                                           {"labelOdosielanie", "Odosielanie mailov :"},
                                                           {"pushButton_3", "Upraviť dodávateľa"}};
    for (const auto &part : parts)
        QTest::newRow(part.first) << QString::fromUtf8(part.second);
}

void TestSupplierForm::texts()
{
    const Page page(QSqlDatabase(), 0U);
    const auto *widget = page.find<QWidget>(QTest::currentDataTag());
    QVERIFY(widget);
    QTEST(widget->property("text").toString(), "text");
}

void TestSupplierForm::lists()
{
    const Page page(m_database->db(), 0U);
    for (const char *name : listNames) {
        const QListView *view = page.list(name);
        QCOMPARE(view->modelColumn(), 1);
        QCOMPARE(view->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
        QStringList buddies;
        const QList<QLabel *> labels = page.findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->buddy() == view)
                buddies.append(label->text());
        }
        QCOMPARE(buddies.size(), 1);
    }
}

void TestSupplierForm::detailsCannotBeEdited()
{
    const Page page(m_database->db(), 0U);
    QVERIFY(page.find<QPlainTextEdit>("plainTextEditDescription")->isReadOnly());
    QVERIFY(page.find<QPlainTextEdit>("plainTextEditDescription")->tabChangesFocus());
}

void TestSupplierForm::titles()
{
    const Page page(QSqlDatabase(), 0U);
    for (const char *name : {"labelBranch", "labelSupplierName"}) {
        QCOMPARE(page.find<QLabel>(name)->property("titleText"), QVariant(true));
        QCOMPARE(page.find<QLabel>(name)->textFormat(), Qt::PlainText);
    }
    QCOMPARE(page.find<QLabel>("labelShortcut")->textFormat(), Qt::PlainText);
}

void TestSupplierForm::tabOrder()
{
    Page page(m_database->db(), 0U);
    show(page);
    page.list("listViewBranches")->setFocus();
    QStringList order;
    for (int stop = 0; stop < 11; ++stop) {
        order.append(page.focusWidget()->objectName());
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order,
             (QStringList{"listViewBranches", "listViewSuppliers", "pushButton", "listViewBranchMails",
                          "pushButtonPridat_2", "pushButtonUpravit_2", "pushButtonZmazat_2", "plainTextEditDescription",
                          "listViewSupplierEmails", "listViewSupplierTimes", "pushButton_3"}));
    QCOMPARE(page.focusWidget()->objectName(), QStringLiteral("listViewBranches"));
}

void TestSupplierForm::closedHandle()
{
    const QString name = QStringLiteral("closed");
    {
        const QSqlDatabase closed = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), name);
        const LogCatcher log;
        Page page(closed, 7U);
        for (const char *list : listNames)
            QCOMPARE(page.texts(list), QStringList());
        for (const char *button : buttonNames)
            QVERIFY(page.button(button)->isEnabled());
        for (const char *button : {"pushButtonUpravit_2", "pushButtonZmazat_2", "pushButton_3"})
            page.button(button)->click(); // no row to work on
        QCOMPARE(moduleLines(log), QStringList());
        page.updateCheck();
        page.listViewSuppliersSelection();
        page.listViewBranchesSelection();
        for (const char *list : listNames)
            QCOMPARE(page.texts(list), QStringList());
    }
    QSqlDatabase::removeDatabase(name);
}

void TestSupplierForm::readOnly()
{
    session().readOnly = true;
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    QStringList disabled;
    const QList<QWidget *> widgets = page.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->isEnabledTo(&page) && !widget->objectName().startsWith(QLatin1String("qt_")))
            disabled.append(widget->objectName());
    }
    disabled.sort();
    QCOMPARE(
        disabled,
        (QStringList{"pushButton", "pushButtonPridat_2", "pushButtonUpravit_2", "pushButtonZmazat_2", "pushButton_3"}));
    show(page);
    const BoxAnswerer boxes; // no dialog may come, nor be closed by it
    const LogCatcher log;
    doubleClick(page.list("listViewSuppliers"), 1);
    doubleClick(page.list("listViewBranchMails"), 0);
    QTest::qWait(20);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(moduleLines(log), QStringList());
}

void TestSupplierForm::readOnlyPageShowsEverything()
{
    session().readOnly = true;
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    show(page);
    QListView *suppliers = page.list("listViewSuppliers");
    const QStringList links = m_data->links();
    const LogCatcher log;
    for (int row = 0; row < 3; ++row) {
        const QModelIndex index = suppliers->model()->index(row, 1);
        QVERIFY(!index.data(Qt::CheckStateRole).isValid());
        QTest::mouseClick(suppliers->viewport(), Qt::LeftButton, Qt::NoModifier, checkBox(suppliers, index));
        QTest::keyClick(suppliers, Qt::Key_Space);
        QCoreApplication::processEvents();
        QCOMPARE(page.text("labelSupplierName"), index.data().toString());
    }
    QCOMPARE(m_data->links(), links);
    QCOMPARE(moduleLines(log), QStringList());
}

void TestSupplierForm::longNamesKeepThePageNarrow()
{
    const int width = Page(m_database->db(), 0U).minimumSizeHint().width();
    m_data->exec("UPDATE via_suppliers SET name = REPEAT('W', 10000), shortcut = REPEAT('W', 10000), "
                 "description = REPEAT('W', 10000)");
    m_data->exec("UPDATE branches SET name = REPEAT('W', 200)");
    m_data->exec("UPDATE via_suppliermails SET mail = CONCAT(supplierMailID, REPEAT('W', 10000), '@b.sk')");
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    QCOMPARE(page.text("labelSupplierName"), QString(10000, QLatin1Char('W')));
    QVERIFY2(page.minimumSizeHint().width() <= width, qPrintable(QString::number(page.minimumSizeHint().width())));
    page.resize(1000, 640);
    show(page);
    QCOMPARE(page.width(), 1000);
    QCOMPARE(page.height(), 640);
}

void TestSupplierForm::fitsItsScreen_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << 100 << QSize(1000, 640);
    QTest::newRow("large") << 100 << QSize(1560, 930);
    QTest::newRow("small, large letters") << 150 << QSize(1000, 640);
}

void TestSupplierForm::fitsItsScreen()
{
    QFETCH(int, percent);
    QFETCH(QSize, size);
    const QFont before = QApplication::font();
    QFont letters = before;
    letters.setPointSizeF(letters.pointSizeF() * percent / 100);
    QApplication::setFont(letters);
    {
        Page page(m_database->db(), 0U);
        page.resize(size);
        show(page);
        QCOMPARE(page.size(), size);
        const QList<QWidget *> parts = page.findChildren<QWidget *>();
        for (const QWidget *part : parts) {
            const bool hasText = qobject_cast<const QPushButton *>(part) || qobject_cast<const QLabel *>(part);
            if (hasText && part->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored) {
                const QSize needed = part->sizeHint();
                QVERIFY2(part->width() >= needed.width() && part->height() >= needed.height(),
                         qPrintable(part->objectName()));
            }
        }
    }
    QApplication::setFont(before);
}

QTEST_MAIN(TestSupplierForm)
#include "tst_supplierform.moc"
