#include "../report/recordingprinter.h"
#include "dispatchdata.h"
#include "forms.h"
#include "report/rptengine.h"

#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>

#include <algorithm>

using Dialog = Form<DialogReport>;

namespace {

/// A text and where its baseline starts, in dots of the recording printer.
struct Word {
    int y;
    int x;
    QString text;
};

/// The texts on the paper, line by line.
QVector<Word> printed(QDialog *preview)
{
    RecordingPrinter printer;
    emit qobject_cast<QPrintPreviewDialog *>(preview)->paintRequested(&printer);
    QVector<Word> words;
    const QVector<Mark> marks = printer.marks(Mark::Text);
    for (const Mark &mark : marks) {
        const QPoint place = mark.transform.map(mark.rect.topLeft()).toPoint();
        words.append({place.y(), place.x(), mark.text});
    }
    std::sort(words.begin(), words.end(),
              [](const Word &a, const Word &b) { return std::make_pair(a.y, a.x) < std::make_pair(b.y, b.x); });
    return words;
}

/// What a print of one page says but for its frame: the template's title, the heading, and the cells row by row. The
/// head of the table and the footer are the template's.
QStringList content(QDialog *preview)
{
    constexpr int footerHeight = 200; // from its system's name up, 4 mm
    const QStringList heads{"Položka", "Počet", "Meno", "Názov", "Vydané"};
    const QVector<Word> words = printed(preview);
    const auto system = std::find_if(words.begin(), words.end(),
                                     [](const Word &word) { return word.text.startsWith(QLatin1String("NORVIK-IT")); });
    QStringList texts;
    for (const Word &word : words) {
        if (system != words.end() && word.y > system->y - footerHeight)
            break;
        if (!heads.contains(word.text))
            texts.append(word.text);
    }
    return texts;
}

QVariant untouched()
{
    return QStringLiteral("as it came");
}

} // namespace

/// What the print buttons show.
class TestDialogReportPrint : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase();
    void init();
    void everySupplier();
    void oneSupplier();
    void noSupplier();
    void allBranches();
    void failedSuppliers();
    void noRow();
    void oneEngine();
    void previewBelongsToTheDialog();
    void repaintsSayTheSame();
    void values();
    void rowsFollowThePrint();
    void startingRows();
    void orders();
    void ordersOfAllBranches();
    void ordersAreLoadedAtEachPrint();
    void noOrders();
    void ordersValues();
    void hostileNames_data();
    void hostileNames();
    void dialogGoesWhileAPreviewStands_data();
    void dialogGoesWhileAPreviewStands();
    void parentGoesWhileAPreviewStands();

private:
    std::unique_ptr<Dialog> dialog(uint bid = 1, uint segmentID = 1) const
    {
        return std::make_unique<Dialog>(DispatchData::day(), segmentID, bid, m_database->db());
    }
    /// Presses the button and closes that number of previews; gives their contents.
    QStringList print(const Dialog &form, int previews, const char *button = "pushButtonPrint") const
    {
        QStringList contents;
        BoxAnswerer boxes;
        for (int preview = 0; preview < previews; ++preview)
            boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&contents](QDialog *shown) {
                contents.append(content(shown).join(QLatin1Char('|')));
                QTest::keyClick(shown, Qt::Key_Escape);
            });
        form.button(button)->click();
        QTest::qWait(20);
        const QString failures = boxes.takeFailures();
        if (!failures.isEmpty())
            contents.append(failures);
        return contents;
    }
    QStringList ordersOf(const Dialog &form) const
    {
        return print(form, 1, "pushButtonPrintOrders").value(0).split(QLatin1Char('|'));
    }
    /// The content of a supplier's print, "|" between its texts.
    static QString order(const char *supplier, const char *rows)
    {
        return QStringLiteral("Objednávka|") + heading(supplier) + QString::fromUtf8(rows);
    }
    static QString heading(const char *supplier)
    {
        return QStringLiteral("Predbežná objednávka - Strojárne 4. 5. 2031, Obed: ") + QString::fromUtf8(supplier);
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DispatchData> m_data;
};

void TestDialogReportPrint::cleanupTestCase()
{
    m_data.reset();
    m_database.reset();
}

void TestDialogReportPrint::init()
{
    m_data.reset();
    m_data = std::make_unique<DispatchData>(*m_database);
}

void TestDialogReportPrint::everySupplier()
{
    const auto form = dialog();
    const QStringList previews = print(*form, 3);
    QCOMPARE(previews,
             (QStringList{order("Pekáreň", "|Vývar|4|Guláš|3"), order("Bistro", "|Rezeň|1"), order("Gril", "")}));
}

void TestDialogReportPrint::oneSupplier()
{
    const auto form = dialog();
    form->select("listViewSuppliers", 2);
    QCOMPARE(print(*form, 1), (QStringList{order("Bistro", "|Rezeň|1")}));
    form->select("listViewSuppliers", 3);
    QCOMPARE(print(*form, 1), (QStringList{order("Gril", "")}));
    // Back to all of them.
    form->select("listViewSuppliers", 0);
    QCOMPARE(print(*form, 3).size(), 3);
}

/// One print under the name of the first row. Its rows are those without a supplier: the headings of meal types that
/// have orders count as such.
void TestDialogReportPrint::noSupplier()
{
    const auto form = dialog(2);
    QCOMPARE(print(*form, 1), (QStringList{order("- všetci dodávatelia -", "")}));
    m_data->exec("INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (61, 92, NULL, 'Ovocie', 1)");
    m_data->exec("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, price, locked) "
                 "VALUES (161, 61, 2, 1, '2031-05-04', 1, 1, 1)");
    m_data->exec("INSERT INTO via_orders (orderableID, uid, quantity, ordered) VALUES (161, 7, 2, 'x')");
    QCOMPARE(print(*dialog(2), 1), (QStringList{order("- všetci dodávatelia -", "|Hlavné jedlá|2|Ovocie|2")}));
}

void TestDialogReportPrint::allBranches()
{
    const auto form = dialog(0);
    QCOMPARE(print(*form, 1), (QStringList{order("Jedáleň", "|Halušky|6")}));
}

void TestDialogReportPrint::failedSuppliers()
{
    const TestDatabase other(QStringLiteral("other"));
    const DispatchData data(other);
    other.exec(QStringLiteral("RENAME TABLE via_suppliers TO via_away"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať menu!"));
    const Dialog form(DispatchData::day(), 1U, 1U, other.db());
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(form.texts("listViewSuppliers"), QStringList());
    QCOMPARE(print(form, 0), QStringList());
}

/// Without a current row the mails shown are those of all suppliers, and so are the prints.
void TestDialogReportPrint::noRow()
{
    const auto form = dialog();
    form->list("listViewSuppliers")->setCurrentIndex(QModelIndex());
    QCOMPARE(form->texts("listViewSupplierMails").size(), 5);
    QCOMPARE(print(*form, 3).size(), 3);
}

void TestDialogReportPrint::oneEngine()
{
    const auto form = dialog();
    const QPointer<RptEngine> engine(form->findChild<RptEngine *>());
    QVERIFY(engine);
    QCOMPARE(engine->parent(), form.get());
    QCOMPARE(engine->pages().size(), 1);
    print(*form, 3);
    QCOMPARE(form->findChildren<RptEngine *>(), QList<RptEngine *>{engine});
    // The list of orders has an engine of its own, for that print.
    print(*form, 1, "pushButtonPrintOrders");
    QCOMPARE(form->findChildren<RptEngine *>(), QList<RptEngine *>{engine});
    QCOMPARE(form->findChildren<QSortFilterProxyModel *>().size(), 1 + 3);
}

void TestDialogReportPrint::previewBelongsToTheDialog()
{
    const auto form = dialog();
    form->select("listViewSuppliers", 1);
    for (const char *button : {"pushButtonPrint", "pushButtonPrintOrders"}) {
        BoxAnswerer boxes;
        boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&form](QDialog *preview) {
            QCOMPARE(preview->parentWidget(), form.get());
            QCOMPARE(preview->findChild<QPrintPreviewWidget *>()->zoomMode(), QPrintPreviewWidget::FitInView);
            preview->reject();
        });
        form->button(button)->click();
        BOXES_DONE(boxes);
    }
}

void TestDialogReportPrint::repaintsSayTheSame()
{
    const auto form = dialog();
    form->select("listViewSuppliers", 1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [](QDialog *preview) {
        const QStringList first = content(preview);
        preview->findChild<QPrintPreviewWidget *>()->updatePreview();
        QCOMPARE(content(preview), first);
        preview->reject();
    });
    form->button("pushButtonPrint")->click();
    BOXES_DONE(boxes);
}

void TestDialogReportPrint::values()
{
    const auto form = dialog();
    form->select("listViewSuppliers", 1);
    print(*form, 1);
    const auto value = [&form](int row, const char *name) {
        QVariant result = untouched();
        form->setValue(row, QLatin1String(name), result, 0);
        return result;
    };
    QCOMPARE(value(0, "0"), QVariant(QStringLiteral("Vývar")));
    QCOMPARE(value(0, "1"), QVariant(QStringLiteral("4")));
    QCOMPARE(value(1, "0"), QVariant(QStringLiteral("Guláš")));
    QCOMPARE(value(1, "1"), QVariant(QStringLiteral("3")));
    QVERIFY(!value(0, "2").isValid()); // the rows have two columns
    QVERIFY(!value(0, "3").isValid());
    QVERIFY(!value(2, "0").isValid()); // and there are two of them
    QVERIFY(!value(-1, "0").isValid());
    QCOMPARE(value(1, "header"), QVariant(heading("Pekáreň")));
    for (const char *name : {"4", "00", " 0", "-1", "Header", "header ", ""})
        QCOMPARE(value(0, name), untouched());
    DataSetInfo info;
    form->setDSInfo(info);
    QCOMPARE(info.recordCount, 2);
}

void TestDialogReportPrint::rowsFollowThePrint()
{
    const auto form = dialog();
    QStringList counts;
    BoxAnswerer boxes;
    for (int preview = 0; preview < 3; ++preview)
        boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog *shown) {
            DataSetInfo info;
            form->setDSInfo(info);
            QVariant header;
            form->setValue(0, QStringLiteral("header"), header, 0);
            counts.append(QString::number(info.recordCount) + header.toString().section(QLatin1Char(':'), 1));
            shown->reject();
        });
    form->on_pushButtonPrint_clicked();
    BOXES_DONE(boxes);
    QCOMPARE(counts, (QStringList{"2 Pekáreň", "1 Bistro", "0 Gril"}));
}

/// Until the first print the rows are filtered by a fixed supplier: none is meant by it.
void TestDialogReportPrint::startingRows()
{
    m_data->exec("INSERT INTO via_orders (orderableID, uid, quantity, ordered) VALUES (124, 7, 2, 'x')");
    const auto form = dialog();
    DataSetInfo info;
    form->setDSInfo(info);
    QCOMPARE(info.recordCount, 1);
    QVariant value;
    form->setValue(0, QStringLiteral("0"), value, 0);
    QCOMPARE(value, QVariant(QStringLiteral("Steak")));
    form->setValue(0, QStringLiteral("header"), value, 0);
    QCOMPARE(value, QVariant(heading("")));
}

void TestDialogReportPrint::orders()
{
    m_data->exec("UPDATE via_orders SET delivered='2031-05-04 11:30:00' WHERE orderableID=121");
    QStringList texts = ordersOf(*dialog());
    QCOMPARE(texts.mid(0, 2), (QStringList{"Výpis objednávok", "Zoznam ku dňu: 4. 5. 2031, Obed"}));
    // By surname; the orders of one person come as the database has them.
    QStringList rows = texts.mid(2)
                           .join(QLatin1Char('|'))
                           .replace(QRegularExpression(QStringLiteral("\\|(?=[ČŽ])")), QStringLiteral("\n"))
                           .split(QLatin1Char('\n'));
    QVERIFY2(rows.size() == 4, qPrintable(rows.join(QLatin1Char('\n'))));
    std::sort(rows.begin(), rows.begin() + 2);
    std::sort(rows.begin() + 2, rows.end());
    QCOMPARE(rows,
             (QStringList{"Čech Ján *[78]|BIS Rezeň|1", "Čech Ján *[78]|PEK Vývar|3",
                          "Žiak Žofia *[77]|PEK Guláš|3|2031-05-04T11:30:00.000", "Žiak Žofia *[77]|PEK Vývar|1"}));
}

void TestDialogReportPrint::ordersOfAllBranches()
{
    QCOMPARE(
        ordersOf(*dialog(0)),
        (QStringList{"Výpis objednávok", "Zoznam ku dňu: 4. 5. 2031, Obed", "Žiak Žofia *[77]", "JED Halušky", "6"}));
}

void TestDialogReportPrint::ordersAreLoadedAtEachPrint()
{
    const auto form = dialog();
    print(*form, 1, "pushButtonPrintOrders");
    DataSetInfo info;
    form->setDSInfo2(info);
    QCOMPARE(info.recordCount, 4);
    m_data->exec("INSERT INTO via_orders (orderableID, uid, quantity, ordered) VALUES (124, 7, 2, 'x')");
    const QStringList texts = ordersOf(*form);
    QVERIFY(texts.contains(QStringLiteral("GRI Steak")));
    form->setDSInfo2(info);
    QCOMPARE(info.recordCount, 5);
}

void TestDialogReportPrint::noOrders()
{
    const auto form = dialog(1, 2);
    QCOMPARE(print(*form, 1, "pushButtonPrintOrders"),
             (QStringList{"Výpis objednávok|Zoznam ku dňu: 4. 5. 2031, Večera"}));
    form->select("listViewSuppliers", 1);
    QCOMPARE(print(*form, 1), (QStringList{"Objednávka|Predbežná objednávka - Strojárne 4. 5. 2031, Večera: Pekáreň"}));
}

void TestDialogReportPrint::ordersValues()
{
    m_data->exec("DELETE FROM via_orders WHERE uid=7");
    m_data->exec("UPDATE via_orders SET delivered='2031-05-04 11:30:00' WHERE orderableID=111");
    m_data->exec("DELETE FROM via_orders WHERE orderableID=123");
    const auto form = dialog();
    const auto value = [&form](int row, const char *name) {
        QVariant result = untouched();
        form->setValue2(row, QLatin1String(name), result, 0);
        return result;
    };
    QVERIFY(!value(0, "0").isValid()); // nothing loaded yet
    print(*form, 1, "pushButtonPrintOrders");
    QCOMPARE(value(0, "0").toString(), QStringLiteral("Čech Ján *[78]"));
    QCOMPARE(value(0, "1").toString(), QStringLiteral("PEK Vývar"));
    QCOMPARE(value(0, "2").toString(), QStringLiteral("3"));
    QVERIFY(value(0, "3").toString().contains(QLatin1String("11:30")));
    QVERIFY(!value(1, "0").isValid());
    QCOMPARE(value(7, "header").toString(), QStringLiteral("Zoznam ku dňu: 4. 5. 2031, Obed"));
    for (const char *name : {"4", "8", "Header", ""})
        QCOMPARE(value(0, name), untouched());
}

void TestDialogReportPrint::hostileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("ampersand") << "A & B";
    QTest::newRow("percent") << "100% %1";
    QTest::newRow("hash and question mark") << "#1 ?";
    QTest::newRow("markup") << "<b>x</b>";
    QTest::newRow("quotes") << "\"a\" 'b' \\";
    QTest::newRow("token") << "[header] <Date> [0]";
    QTest::newRow("formula") << "<Sum([1])> =1+1; ?1:0";
}

/// The callbacks give every name as it is stored; what the page makes of it is the engine's affair.
void TestDialogReportPrint::hostileNames()
{
    QFETCH(QString, name);
    session().companyName = name;
    m_data->rename("via_foods", "name", "foodID", 23, name);
    m_data->rename("via_suppliers", "name", "supplierID", 3, name);
    m_data->rename("via_segments", "name", "segmentID", 1, name);
    const auto form = dialog();
    form->select("listViewSuppliers", 2);
    QCOMPARE(print(*form, 1).size(), 1);
    QVariant value;
    form->setValue(0, QStringLiteral("0"), value, 0);
    QCOMPARE(value.toString(), name);
    form->setValue(0, QStringLiteral("header"), value, 0);
    QCOMPARE(value.toString(),
             QStringLiteral("Predbežná objednávka - ") + name + QStringLiteral(" 4. 5. 2031, ") + name
                 + QStringLiteral(": ") + name);
    print(*form, 1, "pushButtonPrintOrders");
    form->setValue2(0, QStringLiteral("header"), value, 0);
    QCOMPARE(value.toString(), QStringLiteral("Zoznam ku dňu: 4. 5. 2031, ") + name);
}

void TestDialogReportPrint::dialogGoesWhileAPreviewStands_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("row");
    QTest::newRow("every supplier") << "pushButtonPrint" << 0;
    QTest::newRow("one supplier") << "pushButtonPrint" << 1;
    QTest::newRow("orders") << "pushButtonPrintOrders" << 0;
}

void TestDialogReportPrint::dialogGoesWhileAPreviewStands()
{
    QFETCH(QString, button);
    QFETCH(int, row);
    auto form = dialog();
    form->select("listViewSuppliers", row);
    show(*form);
    BoxAnswerer boxes;
    QPointer<QDialog> shown;
    boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog *preview) {
        shown = preview;
        form.reset();
    });
    form->findChild<QPushButton *>(button)->click();
    QTest::qWait(20);
    BOXES_DONE(boxes); // no second preview either
    QVERIFY(!form);
    QVERIFY(!shown);
}

void TestDialogReportPrint::parentGoesWhileAPreviewStands()
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        auto card = std::make_unique<QWidget>();
        auto *form = new DialogReport(DispatchData::day(), 1U, 1U, m_database->db(), card.get());
        show(*form);
        auto *button = form->findChild<QPushButton *>(QStringLiteral("pushButtonPrint"));
        button->setFocus();
        BoxAnswerer boxes;
        boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&card](QDialog *) { card.reset(); });
        QTest::keyPress(button, key);
        if (key == Qt::Key_Space)
            QTest::keyRelease(button, key);
        QTest::qWait(20);
        BOXES_DONE(boxes);
        QVERIFY(!card);
    }
}

QTEST_MAIN(TestDialogReportPrint)
#include "tst_dialogreportprint.moc"
