#include "cataloguedata.h"
#include "foodpage.h"
#include "session/session.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"
#include "support/missingtable.h"

#include <QBuffer>
#include <QHeaderView>
#include <QSignalSpy>
#include <QSqlQuery>

#include <memory>

/// The page of foods without its dialogs: what it shows, filters and previews.
class TestFoodWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup() { session() = Session(); }

    void metaObject();
    void form();
    void tables();
    void opensOnAllFoods();
    void typeFilters();
    void headerShowsAllTypesAgain();
    void wordsFilter_data();
    void wordsFilter();
    void filterAndTypeCombine();
    void firstVisibleFoodIsPreviewed();
    void selectedFoodCanBeEdited();
    void previewWithAlergens();
    void previewWithoutAnything();
    void pictureIsScaledIntoItsLabel();
    void brokenPictureIsNoPicture();
    void emptyCatalogue();
    void noSupplierNoFood();
    void readOnly();
    void selectionTurnsEditOnInReadOnly();
    void closedConnection();
    void failedListsLeaveTheViewsEmpty();
    void hostileText();
    void longNamesKeepThePageSmall();
    void tabOrder();

private:
    std::unique_ptr<TestDatabase> m_database;
};

namespace {

QByteArray pngOf(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

void setPicture(const TestDatabase &database, int food, const QByteArray &bytes)
{
    database.exec(QStringLiteral("UPDATE via_foods SET picture=x'%1' WHERE foodID=%2")
                      .arg(QString::fromLatin1(bytes.toHex()))
                      .arg(food));
}

} // namespace

void TestFoodWidget::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
}

void TestFoodWidget::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestFoodWidget::init()
{
    fillCatalogue(*m_database);
}

void TestFoodWidget::metaObject()
{
    QCOMPARE(
        metaMethods(FoodWidget::staticMetaObject),
        (QStringList{"signal void typechanged(int)", "signal void typechanged()", "signal void textchanged(QString)",
                     "slot void on_pushButtonAlergens_clicked()", "slot void on_pushButtonEdit_clicked()",
                     "slot void on_pushButtonFood_clicked()", "slot void on_searchFilter_textChanged(QString)",
                     "slot void on_pushButtonType_clicked()", "slot void on_tableViewType_doubleClicked(QModelIndex)",
                     "slot void tableViewTypeSelection()", "slot void tableViewFoodSelection()",
                     "slot void setFoodPreview(FoodRecord)", "slot void on_tableViewFood_doubleClicked(QModelIndex)",
                     "slot void on_pushButton_clicked()", "slot bool write(QList<QStringList>)",
                     "slot void on_pushButton_2_clicked()", "slot bool readCSVRow(QTextStream&,QStringList*)"}));
}

void TestFoodWidget::form()
{
    const FoodPage page(m_database->db());
    const QMap<QByteArray, QString> buttons{{"pushButtonType", "+ pridať typ"},
                                            {"pushButtonFood", "+ pridať jedlo"},
                                            {"pushButtonAlergens", "zoznam alergénov"},
                                            {"pushButton_2", "Import"},
                                            {"pushButton", "Export"},
                                            {"pushButtonEdit", "upraviť"}};
    for (auto button = buttons.cbegin(); button != buttons.cend(); ++button)
        QCOMPARE(page.button(button.key().constData())->text(), button.value());
    QCOMPARE(page.filter()->placeholderText(), QStringLiteral("Filter - Názov jedla, popis"));
    QVERIFY(page.filter()->isClearButtonEnabled());
    QCOMPARE(page.text("label"), QStringLiteral("Dodávatel : "));
    QCOMPARE(page.text("label_2"), QStringLiteral("Cena : "));
    QVERIFY(page.find<QPlainTextEdit>("plainTextEditDescription")->isReadOnly());
    for (const char *property : {"silverPanel", "titleText"})
        QCOMPARE(page.find<QLabel>("labelTitle")->property(property), QVariant(true));
    int whitePanels = 0;
    int stripes = 0;
    const QList<QWidget *> widgets = page.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        whitePanels += widget->property("whitePanel").toBool() ? 1 : 0;
        stripes += widget->property("hidestripe").toBool() ? 1 : 0;
    }
    QCOMPARE(whitePanels, 3);
    QCOMPARE(stripes, 1);
    for (const char *image : {":/images/file_import.png", ":/images/file_export.png"})
        QVERIFY2(QFile::exists(image), image);
    QVERIFY(!page.button("pushButton")->icon().isNull());
    QVERIFY(!page.button("pushButton_2")->icon().isNull());
}

void TestFoodWidget::tables()
{
    const FoodPage page(m_database->db());
    const QTableView *types = page.types();
    QVERIFY(types->alternatingRowColors());
    QCOMPARE(types->gridStyle(), Qt::DotLine);
    QVERIFY(types->horizontalHeader()->stretchLastSection());
    QCOMPARE(types->verticalHeader()->defaultSectionSize(), 21);
    QCOMPARE(types->verticalHeader()->minimumSectionSize(), 18);
    QVERIFY(types->verticalHeader()->isHidden());
    QVERIFY(types->isColumnHidden(0));
    QVERIFY(!types->isColumnHidden(1));
    QVERIFY(types->isColumnHidden(2));
    QCOMPARE(types->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Typ jedla"));
    QCOMPARE(columnTexts(*types->model(), 1), (QStringList{"Polievky", "Hlavné jedlá"}));
    QVERIFY(page.foods()->horizontalHeader()->isHidden());
    QCOMPARE(page.foods()->model()->columnCount(), 1);
}

void TestFoodWidget::opensOnAllFoods()
{
    const FoodPage page(m_database->db());
    QCOMPARE(page.names(), (QStringList{"Polievka dňa", "Rezeň", "Guláš"}));
    QVERIFY(!page.types()->currentIndex().isValid());
    QVERIFY(!page.foods()->currentIndex().isValid());
    QCOMPARE(page.title(), QStringLiteral("Polievka dňa"));
    QVERIFY(!page.button("pushButtonEdit")->isEnabled());
    for (const char *button : {"pushButtonType", "pushButtonFood", "pushButtonAlergens", "pushButton_2", "pushButton"})
        QVERIFY2(page.button(button)->isEnabled(), button);
}

void TestFoodWidget::typeFilters()
{
    const FoodPage page(m_database->db());
    const QSignalSpy changes(&page, SIGNAL(typechanged(int)));
    QVERIFY(changes.isValid());
    page.selectType(1);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().first().toInt(), 2);
    QCOMPARE(page.names(), (QStringList{"Rezeň", "Guláš"}));
    QCOMPARE(page.title(), QStringLiteral("Rezeň"));
    page.selectType(0);
    QCOMPARE(page.names(), QStringList{"Polievka dňa"});
    QCOMPARE(page.title(), QStringLiteral("Polievka dňa"));
}

void TestFoodWidget::headerShowsAllTypesAgain()
{
    FoodPage page(m_database->db());
    showActive(page);
    page.selectType(1);
    const QHeaderView *header = page.types()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(header->sectionViewportPosition(1) + 20, header->height() / 2));
    QCOMPARE(page.names(), (QStringList{"Polievka dňa", "Rezeň", "Guláš"}));
    QCOMPARE(page.types()->currentIndex().row(), 1); // the row stays selected
    QVERIFY(page.types()->selectionModel()->isRowSelected(1, QModelIndex()));

    page.selectType(0);
    QCOMPARE(page.names(), QStringList{"Polievka dňa"});
    page.types()->setFocus();
    QTest::keyClick(page.types(), Qt::Key_Escape);
    QCOMPARE(page.names().size(), 3);
}

void TestFoodWidget::wordsFilter_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("names");
    const QStringList all{"Polievka dňa", "Rezeň", "Guláš"};
    QTest::newRow("two words over name and description") << "kur pol" << QStringList{"Polievka dňa"};
    QTest::newRow("case") << "KUR POL" << QStringList{"Polievka dňa"};
    QTest::newRow("diacritics") << "REZEŇ" << QStringList{"Rezeň"};
    QTest::newRow("both must be found") << "kur rez" << QStringList();
    QTest::newRow("two blanks") << "  " << all;
    QTest::newRow("asterisk") << "*" << all;
    QTest::newRow("question mark") << "re?eň" << QStringList{"Rezeň"};
    QTest::newRow("opening bracket") << "[" << QStringList();
    QTest::newRow("bracket closed") << "[gx]uláš" << QStringList{"Guláš"};
    QTest::newRow("over the seam of name and description") << "dňa*s" << QStringList{"Polievka dňa"};
}

void TestFoodWidget::wordsFilter()
{
    QFETCH(QString, words);
    QFETCH(QStringList, names);
    const FoodPage page(m_database->db());
    const QSignalSpy changes(&page, &FoodWidget::textchanged);
    QVERIFY(changes.isValid());
    page.filter()->setText(words);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().first().toString(), words);
    QCOMPARE(page.names(), names);
    QCOMPARE(page.title(), names.isEmpty() ? QString() : names.first());
    page.filter()->clear();
    QCOMPARE(page.names().size(), 3);
}

void TestFoodWidget::filterAndTypeCombine()
{
    const FoodPage page(m_database->db());
    page.selectType(1);
    page.filter()->setText(QStringLiteral("zem"));
    QCOMPARE(page.names(), QStringList{"Rezeň"});
    page.selectType(0);
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.title(), QString());
}

void TestFoodWidget::firstVisibleFoodIsPreviewed()
{
    const FoodPage page(m_database->db());
    page.selectFood(2);
    QCOMPARE(page.title(), QStringLiteral("Guláš"));
    page.filter()->setText(QStringLiteral("rez")); // hides the current food
    QVERIFY(!page.foods()->currentIndex().isValid());
    QCOMPARE(page.title(), QStringLiteral("Rezeň"));
    QVERIFY(!page.button("pushButtonEdit")->isEnabled());
}

void TestFoodWidget::selectedFoodCanBeEdited()
{
    const FoodPage page(m_database->db());
    page.selectFood(1);
    QVERIFY(page.button("pushButtonEdit")->isEnabled());
    QCOMPARE(page.title(), QStringLiteral("Rezeň"));
    page.foods()->selectionModel()->clear();
    page.filter()->setText(QStringLiteral("*"));
    QVERIFY(!page.button("pushButtonEdit")->isEnabled());
}

void TestFoodWidget::previewWithAlergens()
{
    const FoodPage page(m_database->db());
    QCOMPARE(page.title(), QStringLiteral("Polievka dňa"));
    QCOMPARE(page.description(), QStringLiteral("s kuracím mäsom\n\nAlergény: \n- Lepok\n- Mlieko"));
    QCOMPARE(page.text("labelSupplier"), QStringLiteral("Jedáleň"));
    QCOMPARE(page.text("labelPrice"), QLocale().toCurrencyString(1.5));
    QCOMPARE(page.text("labelPrice"), QStringLiteral("1,50 €").replace(QLatin1Char(' '), QChar::Nbsp));
}

void TestFoodWidget::previewWithoutAnything()
{
    m_database->exec(QStringLiteral("UPDATE via_foods SET supplierID=NULL WHERE foodID=3"));
    const FoodPage page(m_database->db());
    page.selectFood(2);
    QCOMPARE(page.description(), QString());
    QCOMPARE(page.text("labelSupplier"), QString());
    QVERIFY(!page.find<QLabel>("labelPicture")->pixmap(Qt::ReturnByValue).width());
}

void TestFoodWidget::pictureIsScaledIntoItsLabel()
{
    setPicture(*m_database, 1, pngOf({100, 100}));
    setPicture(*m_database, 2, pngOf({3000, 1000}));
    const FoodPage page(m_database->db());
    const auto *label = page.find<QLabel>("labelPicture");
    QCOMPARE(label->size(), QSize(480, 240));
    QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), QSize(240, 240));
    page.selectFood(1);
    QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), QSize(480, 160));
    page.selectFood(2);
    QVERIFY(label->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(label->text(), QString());
}

void TestFoodWidget::brokenPictureIsNoPicture()
{
    const LogCatcher log;
    const FoodPage page(m_database->db()); // the first food's two bytes are no picture
    QVERIFY(page.find<QLabel>("labelPicture")->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(log.lines(QtWarningMsg).filter(QStringLiteral("QPixmap")), QStringList());
    QCOMPARE(log.critical(), QStringList());
}

void TestFoodWidget::emptyCatalogue()
{
    m_database->clear();
    const FoodPage page(m_database->db());
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.title(), QString());
    QCOMPARE(page.description(), QString());
    QVERIFY(!page.button("pushButtonEdit")->isEnabled());
    page.filter()->setText(QStringLiteral("x"));
    QCOMPARE(page.title(), QString());
}

void TestFoodWidget::noSupplierNoFood()
{
    m_database->clear();
    const FoodPage page(m_database->db());
    QVERIFY(!page.button("pushButtonFood")->isEnabled());
    QCOMPARE(page.button("pushButtonFood")->toolTip(), QStringLiteral("Najprv vytvorte dodávatela."));
    QVERIFY(page.button("pushButton_2")->isEnabled());
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (1, 'x')"));
    page.filter()->setText(QStringLiteral("x"));
    QVERIFY(!page.button("pushButtonFood")->isEnabled()); // until the page is made anew
    const FoodPage other(m_database->db());
    QVERIFY(other.button("pushButtonFood")->isEnabled());
    QCOMPARE(other.button("pushButtonFood")->toolTip(), QString());
}

void TestFoodWidget::readOnly()
{
    session().readOnly = true;
    FoodPage page(m_database->db());
    for (const char *button : {"pushButtonFood", "pushButtonEdit", "pushButtonType", "pushButton_2"})
        QVERIFY2(!page.button(button)->isEnabled(), button);
    QVERIFY(page.button("pushButton")->isEnabled());
    QVERIFY(page.button("pushButtonAlergens")->isEnabled());
    showActive(page);
    // A dialog that opened would stay, and block the test.
    const auto doubleClick = [](const QTableView *view, const QModelIndex &index) {
        const QPoint middle = view->visualRect(index).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    };
    doubleClick(page.types(), page.types()->model()->index(0, 1));
    doubleClick(page.foods(), page.foods()->model()->index(0, 0));
    QTest::keyClick(page.foods(), Qt::Key_Return);
    QTest::keyClick(page.types(), Qt::Key_Return);
    page.on_pushButtonType_clicked();
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(page.title(), QStringLiteral("Polievka dňa"));
}

void TestFoodWidget::selectionTurnsEditOnInReadOnly()
{
    session().readOnly = true;
    const FoodPage page(m_database->db());
    page.selectFood(1);
    QVERIFY(page.button("pushButtonEdit")->isEnabled());
}

void TestFoodWidget::closedConnection()
{
    const LogCatcher log;
    const QSqlDatabase closed = QSqlDatabase::cloneDatabase(m_database->db(), QStringLiteral("closed"));
    FoodPage page(closed);
    QVERIFY(!page.isEnabled());
    QCOMPARE(page.title(), QStringLiteral("Pripojenie na databázu zlyhalo!"));
    QCOMPARE(page.text("labelPicture"), QStringLiteral(" "));
    QCOMPARE(page.text("labelSupplier"), QString());
    QCOMPARE(page.text("labelPrice"), QString());
    page.filter()->setText(QStringLiteral("x"));
    page.show();
    QVERIFY(!page.foods()->model());
    QCOMPARE(log.critical(), QStringList());
}

void TestFoodWidget::failedListsLeaveTheViewsEmpty()
{
    const MissingTable foods(*m_database, QStringLiteral("via_foods"));
    const MissingTable types(*m_database, QStringLiteral("via_types"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať jedlo!"));
    const LogCatcher log;
    const FoodPage page(m_database->db());
    BOXES_DONE(boxes); // of the preview; the lists only log
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.types()->model()->rowCount(), 0);
    QVERIFY(log.has(QStringLiteral("FoodModel - setQuery ERROR: [1146]: ") + foods.error()));
    QVERIFY(log.has(QStringLiteral("TypeModel - setQuery ERROR: [1146]: ") + types.error()));
}

void TestFoodWidget::hostileText()
{
    const QStringList texts{QStringLiteral("<b>tučné</b> &amp; \\ ' \" %1 %2"),
                            QString::fromUtf8("\xf0\x9f\x8d\x94 \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d")};
    for (const QString &text : texts) {
        QSqlQuery query(m_database->db());
        query.prepare(QStringLiteral("UPDATE via_foods SET name=?, description=? WHERE foodID=1"));
        query.addBindValue(text);
        query.addBindValue(text);
        QVERIFY(query.exec());
        query.prepare(QStringLiteral("UPDATE via_suppliers SET name=? WHERE supplierID=4"));
        query.addBindValue(text);
        QVERIFY(query.exec());
        query.prepare(QStringLiteral("UPDATE via_alergens SET title=? WHERE alergenID=1"));
        query.addBindValue(text);
        QVERIFY(query.exec());
        const FoodPage page(m_database->db());
        QCOMPARE(page.names().constFirst(), text);
        QCOMPARE(page.title(), text);
        QCOMPARE(page.find<QLabel>("labelTitle")->textFormat(), Qt::PlainText);
        QCOMPARE(page.description(), text + QStringLiteral("\n\nAlergény: \n- ") + text + QStringLiteral("\n- Mlieko"));
        QCOMPARE(page.text("labelSupplier"), text);
        QCOMPARE(page.find<QLabel>("labelSupplier")->textFormat(), Qt::PlainText);
        page.filter()->setText(text);
    }
}

void TestFoodWidget::longNamesKeepThePageSmall()
{
    FoodPage usual(m_database->db());
    const QSize size = usual.minimumSizeHint();
    for (const char *update :
         {"UPDATE via_foods SET name=REPEAT('x', 10000), description=REPEAT('y', 10000)",
          "UPDATE via_suppliers SET name=REPEAT('dlhé meno ', 1000)", "UPDATE via_types SET name=REPEAT('typ ', 2500)"})
        m_database->exec(QLatin1String(update));
    FoodPage page(m_database->db());
    page.selectFood(1);
    QCOMPARE(page.title().size(), 10000);
    QVERIFY2(page.minimumSizeHint().width() <= size.width(),
             qPrintable(QString::number(page.minimumSizeHint().width())));
    QVERIFY2(page.minimumSizeHint().height() <= size.height() + 64,
             qPrintable(QString::number(page.minimumSizeHint().height())));
}

void TestFoodWidget::tabOrder()
{
    FoodPage page(m_database->db());
    page.selectFood(1);
    showActive(page);
    page.types()->setFocus();
    QStringList visited;
    for (int step = 0; step < 10; ++step) {
        visited.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited,
             (QStringList{"tableViewType", "pushButtonType", "searchFilter", "tableViewFood", "pushButtonFood",
                          "pushButtonAlergens", "pushButton_2", "pushButton", "plainTextEditDescription",
                          "pushButtonEdit"}));
}

QTEST_MAIN(TestFoodWidget)
#include "tst_foodwidget.moc"
