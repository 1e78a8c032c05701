#include "board/boardpage.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QMetaEnum>
#include <QScrollArea>
#include <QtTest>

/// The board's form and meta-object: no database.
class TestMenuWidgetForm : public QObject {
    Q_OBJECT

private slots:
    void metaObject();
    void guiStates();
    void widgetsOfTheForm_data();
    void widgetsOfTheForm();
    void restOfTheForm();
    void printTargets();
    void printoutWithoutAModel();
    void disposalIsLogged();
};

void TestMenuWidgetForm::metaObject()
{
    QCOMPARE(metaMethods(MenuWidget::staticMetaObject),
             (QStringList{"signal void filter(QString,QVariantMap)",
                          "signal void checkCurrentTextSignal()",
                          "slot void on_comboBox_currentIndexChanged(int)",
                          "slot void on_toolButtonR_clicked()",
                          "slot void on_toolButtonL_clicked()",
                          "slot void on_radioButton_toggled(bool)",
                          "slot void on_comboBoxPeople_currentIndexChanged(int)",
                          "slot void setDayWidgetHeight()",
                          "slot void on_toolButton_clicked()",
                          "slot void on_toolButtonMonthly_clicked()",
                          "slot void setDSInfo(DataSetInfo&)",
                          "slot void setValue(int,QString,QVariant&,int)",
                          "slot void on_comboBoxBranches_currentIndexChanged(int)",
                          "slot void hidewidgets()",
                          "slot void on_toolButtonWeekly_clicked()",
                          "slot void resetModel()",
                          "slot void filterChanged()",
                          "slot void on_toolButtonExport_clicked()",
                          "slot void monthlyExportToXLS()",
                          "slot void monthlyExportOrderDelivToXLS(int)",
                          "slot QString getReserveCompanyName()",
                          "slot QDate recreateDateFromComboBoxWeek()",
                          "slot void refreshPeopleWeekChange()",
                          "slot void disableWidgetsForEmployeeOutsideWorkingHours()"}));
}

void TestMenuWidgetForm::guiStates()
{
    const auto states = QMetaEnum::fromType<MenuWidget::GuiState>();
    QCOMPARE(states.keyCount(), 2);
    QCOMPARE(states.keyToValue("GS_MENU"), 0);
    QCOMPARE(states.keyToValue("GS_ORDERS"), 1);
}

void TestMenuWidgetForm::widgetsOfTheForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QSize>("iconSize");
    QTest::addColumn<QSize>("minimumSize");
    const auto add = [](const char *name, const char *text, const char *toolTip, const char *image, QSize iconSize = {},
                        QSize minimumSize = {}) {
        QTest::newRow(name) << QString(name) << QString::fromUtf8(text) << QString::fromUtf8(toolTip) << QString(image)
                            << iconSize << minimumSize;
    };
    add("butMenuSwitch", "tvorba menu", "Tvorba a úprava menu", ":/images/sidebar/menu3.png", {32, 32}, {110, 0});
    add("butOrdersSwitch", "objednávky", "Objednávky zamestnanca", ":/images/sidebar/orders3.png", {32, 32}, {110, 0});
    add("label_11", "", "Stredisko", "");
    add("comboBoxBranches", "", "", "", {}, {0, 25});
    add("personIconLabel", "", "Zamestnanec", "");
    add("comboBoxPeople", "",
        "<html><head/><body><p>Nezobrazujú sa zamestnanci, <br/>ktorí sú vo vybranom týždni<br/>úplne mimo prac. "
        "pomeru. <br/><br/>Pre umožnenie výberu takého <br/>zamestnanca, prepnite najprv<br/>správny "
        "týždeň.</p></body></html>",
        "", {}, {250, 25});
    add("toolButton", "...", "Filter výberu zamestnanca", ":/images/filter.png");
    for (const char *line : {"linePeople", "line", "line_2", "line_3"})
        add(line, "", "", "", {}, {10, 0});
    add("toolButtonWeekly", "Týždenné menu", "", ":/images/printer.png", {28, 16});
    add("toolButtonMonthly", "Mesačný výpis", "Mesačný prehľad objednávok", "", {}, {250, 25});
    add("toolButtonExport", "Kontrolný export", "", ":/images/file_export.png");
    add("toolButtonL", "<", "", ":/images/back.png");
    add("toolButtonR", ">", "", ":/images/forward.png");
}

void TestMenuWidgetForm::widgetsOfTheForm()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, image);
    QFETCH(QSize, iconSize);
    QFETCH(QSize, minimumSize);
    const BoardPage page{QSqlDatabase()};
    const auto *widget = page.findChild<QWidget *>(name);
    QVERIFY(widget);
    QCOMPARE(widget->property("text").toString(), text);
    if (!widget->toolTip().isEmpty() || !name.startsWith(QLatin1String("toolButton")))
        QTEST(widget->toolTip(), "toolTip");
    if (iconSize.isValid())
        QCOMPARE(widget->property("iconSize").toSize(), iconSize);
    if (minimumSize.isValid())
        QCOMPARE(widget->minimumSize(), minimumSize);
    if (!image.isEmpty()) {
        const QImage shown = widget->property("icon").value<QIcon>().pixmap(16, 16).toImage();
        QVERIFY(!shown.isNull());
        QCOMPARE(shown, QIcon(image).pixmap(16, 16).toImage());
    }
}

void TestMenuWidgetForm::restOfTheForm()
{
    const BoardPage page{QSqlDatabase()};
    QCOMPARE(page.size(), QSize(1650, 984));
    for (const char *name : {"butMenuSwitch", "butOrdersSwitch"}) {
        QVERIFY(page.button(name)->isCheckable());
        QVERIFY(page.button(name)->autoExclusive());
        QCOMPARE(page.button(name)->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    }
    QVERIFY(page.button("butMenuSwitch")->isChecked());
    QCOMPARE(page.button("toolButtonWeekly")->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(page.button("toolButtonMonthly")->popupMode(), QToolButton::MenuButtonPopup);
    for (const char *name : {"label_11", "personIconLabel"})
        QVERIFY(page.find<QLabel>(name)->pixmap(Qt::ReturnByValue).width() > 0);
    const auto *top = page.button("butMenuSwitch")->parentWidget();
    QCOMPARE(top->property("hidestripe"), QVariant(true));
    QCOMPARE(top->property("whitePanel"), QVariant(true));
    const auto *area = page.find<QScrollArea>("scrollArea");
    QCOMPARE(area->widget(), page.find<QWidget>("widgetCenter"));
    QCOMPARE(area->widget()->property("whitePanel"), QVariant(true));
    QVERIFY(page.layout()->indexOf(page.find<QWidget>("scrollArea")) > 0);
    for (const char *name : {"toolButton", "toolButtonL", "toolButtonR"})
        QVERIFY(!page.button(name)->accessibleName().isEmpty());
    for (const QComboBox *combo : {page.weeks(), page.people(), page.branches()})
        QVERIFY(!combo->accessibleName().isEmpty());
}

void TestMenuWidgetForm::printTargets()
{
    BoardPage page{QSqlDatabase()};
    page.initData();
    QMenu *menu = page.button("toolButtonMonthly")->menu();
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 2);
    QAction *printer = menu->actions().at(0);
    QAction *sheet = menu->actions().at(1);
    QCOMPARE(printer->objectName(), QStringLiteral("actionPrintToPrinter"));
    QCOMPARE(printer->text(), QStringLiteral("na tlačiarni"));
    QCOMPARE(sheet->objectName(), QStringLiteral("actionExportToXLS"));
    QCOMPARE(sheet->text(), QStringLiteral("export do XLS"));
    QVERIFY(printer->isChecked() && !sheet->isChecked());
    sheet->trigger();
    QVERIFY(!printer->isChecked() && sheet->isChecked());
}

void TestMenuWidgetForm::printoutWithoutAModel()
{
    BoardPage page{QSqlDatabase()};
    DataSetInfo info;
    info.recordCount = 7;
    page.setDSInfo(info);
    QCOMPARE(info.recordCount, 0);
}

void TestMenuWidgetForm::disposalIsLogged()
{
    LogCatcher log;
    {
        BoardPage page{QSqlDatabase()};
        page.initData();
        QVERIFY(!log.has(QStringLiteral("destroying MenuWidget.")));
    }
    QVERIFY(log.has(QStringLiteral("destroying MenuWidget.")));
}

QTEST_MAIN(TestMenuWidgetForm)
#include "tst_menuwidgetform.moc"
