#include "board/menuwidget.h"

#include "board/cardgrid.h"
#include "board/daymenuwidget.h"
#include "board/weeklist.h"
#include "models/branchmodel.h"
#include "models/monthlyoverviewmodel.h"
#include "models/peoplemodel.h"
#include "models/segmentmodel.h"
#include "models/typemodel.h"
#include "store/foodrepository.h"
#include "store/orderablerepository.h"
#include "store/settingsrepository.h"
#include "store/typerepository.h"
#include "ui_menuwidget.h"
#include "widgets/images.h"

#include <QActionGroup>
#include <QDebug>
#include <QMenu>
#include <QSignalBlocker>
#include <QStandardItemModel>

namespace {

const QLatin1String menuKey("menu");
const QLatin1String branchKey("branch");
const QLatin1String personKey("person");
const QLatin1String weekKey("week");

void logFilter(const char *line, const QMap<QString, QVariant> &filter)
{
    qDebug() << line << filter.value(menuKey).toBool() << filter.value(branchKey).toString()
             << filter.value(personKey).toString() << filter.value(weekKey).toString();
}

} // namespace

MenuWidget::MenuWidget(const QSqlDatabase &db, unsigned adminID, QWidget *parent)
    : QWidget(parent)
    , m_db(db)
    , m_adminID(adminID)
    , m_ui(std::make_unique<Ui::MenuWidget>())
{
    m_ui->setupUi(this);
    m_ui->butMenuSwitch->setIcon(imageIcon("sidebar/menu3.png"));
    m_ui->butOrdersSwitch->setIcon(imageIcon("sidebar/orders3.png"));
    m_ui->toolButton->setIcon(imageIcon("filter.png"));
    m_ui->toolButtonWeekly->setIcon(imageIcon("printer.png"));
    m_ui->toolButtonExport->setIcon(imageIcon("file_export.png"));
    m_ui->toolButtonL->setIcon(imageIcon("back.png"));
    m_ui->toolButtonR->setIcon(imageIcon("forward.png"));
}

MenuWidget::~MenuWidget()
{
    qDebug() << "destroying MenuWidget.";
}

void MenuWidget::initData()
{
    {
        const QSignalBlocker weeks(m_ui->comboBox);
        const QSignalBlocker people(m_ui->comboBoxPeople);
        const QSignalBlocker branches(m_ui->comboBoxBranches);
        const QSignalBlocker mode(m_ui->butMenuSwitch);
        connect(m_ui->butMenuSwitch, &QToolButton::toggled, this, &MenuWidget::on_radioButton_toggled);
        m_today = QDate::currentDate();
        m_selectedDate = WeekList::thursdayOf(m_today);
        setPersonWidgetsVisible(false);
        qDebug() << "MenuWidget::initData() ::: curGuiState v initData(): " << m_curGuiState;
        if (m_db.isOpen())
            loadData();
        hidewidgets();
        setDayWidgetHeight();
        if (m_cards)
            m_cards->invalidate();
        qDebug() << "MenuWidget::initData() ::: done loading";
        on_radioButton_toggled(true);
    }
    m_filterReady = true;
    buildPrintMenu();
    m_ui->butMenuSwitch->setChecked(true);
}

void MenuWidget::loadData()
{
    m_monthlyOverviewModel = new MonthlyOverviewModel(m_db, this);
    m_peopleModel = new PeopleModel(m_db, this);
    m_peopleModel->tableQuery(m_adminID, m_branchID);
    m_peopleWeek = m_today;
    m_ui->comboBoxPeople->setModel(m_peopleModel);
    m_ui->comboBoxPeople->setModelColumn(NameColumn);
    m_cards = std::make_unique<CardGrid>(m_ui->widgetCenter);
    m_segmentModel = new SegmentModel(m_db, this);
    m_segmentModel->refresh();
    m_cards->stretchRow(qMax(0, m_segmentModel->rowCount() - 1));
    m_typeModel = new TypeModel(m_db, this);
    loadSettingsAndMenu();
    fillWeeks();
    fillBranches();
    addCards();
}

void MenuWidget::loadSettingsAndMenu()
{
    m_typeRepository = new TypeRepository(m_db, this);
    m_settingsRepository = new SettingsRepository(m_db, this);
    m_foodRepository = new FoodRepository(m_db, this);
    m_activeDays = m_settingsRepository->loadCheckState();
    m_shownWeeks = WeekList::boundedWeeks(m_settingsRepository->loadShownWeeks());
    m_menuModel = m_foodRepository->loadMenuWidgetMenu(m_selectedDate, m_branchID, m_personID);
    m_menuModel->setParent(this);
    m_orderLimitEnabled = m_settingsRepository->variableGet(QStringLiteral("via_orderLimitEnabled")).toBool();
}

void MenuWidget::fillWeeks()
{
    const QDate firstMenuDate = OrderableRepository(m_db, nullptr).loadFirstDate();
    m_ui->comboBox->addItems(WeekList::texts(m_today, m_shownWeeks, firstMenuDate));
    // The present week; without menus the list may be too short to have it, and then nothing is selected.
    m_ui->comboBox->setCurrentIndex(m_shownWeeks);
}

void MenuWidget::fillBranches()
{
    m_branchModel = new BranchModel(m_db, m_adminID, this);
    m_branchList = m_branchModel->adminBranches();
    m_branchList->setParent(this);
    m_ui->comboBoxBranches->setModel(m_branchList);
    m_ui->comboBoxBranches->setModelColumn(NameColumn);
    if (m_branchList->rowCount() < 2)
        m_ui->comboBoxBranches->setEnabled(false);
}

void MenuWidget::addCards()
{
    for (int row = 0; row < m_segmentModel->rowCount(); ++row) {
        const QString name = m_segmentModel->index(row, NameColumn).data().toString();
        const unsigned segmentID = m_segmentModel->index(row, KeyColumn).data().toUInt();
        for (int column = 0; column < CardGrid::columns; ++column) {
            auto *card = new DayMenuWidget(m_selectedDate.addDays(column - 3), name, segmentID, m_personID, m_adminID,
                                           m_branchID, m_db, m_menuModel, this);
            card->setOrderLimitEnabled(m_orderLimitEnabled);
            card->setMenuModel(m_menuModel);
            // Date and day stand on the top row of the grid only.
            if (row > 0)
                card->setTitleHidden(true);
            connect(card, &DayMenuWidget::heightchanged, this, &MenuWidget::setDayWidgetHeight);
            connect(card, &DayMenuWidget::resetmodel, this, &MenuWidget::resetModel);
            m_cards->append(card);
        }
    }
}

void MenuWidget::buildPrintMenu()
{
    auto *targets = new QActionGroup(this);
    targets->setExclusive(true);
    targets->addAction(m_ui->actionPrintToPrinter);
    targets->addAction(m_ui->actionExportToXLS);
    m_ui->actionPrintToPrinter->setChecked(true);
    auto *menu = new QMenu(this);
    menu->addActions(targets->actions());
    m_ui->toolButtonMonthly->setMenu(menu);
}

void MenuWidget::filterSetter(QMap<QString, QVariant> filter)
{
    qDebug() << "MenuWidget::filterSetter()";
    m_filter = filter;
    logFilter("MenuWidget::filterSetter() ::: MenuWidget recieving filter : ", m_filter);
    m_filterReady = false;
    const bool menuMode = filter.value(menuKey).toBool();
    (menuMode ? m_ui->butMenuSwitch : m_ui->butOrdersSwitch)->setChecked(true);
    m_curGuiState = menuMode ? GS_MENU : GS_ORDERS;
    m_ui->comboBoxBranches->setCurrentText(filter.value(branchKey).toString());
    m_ui->comboBoxPeople->setCurrentText(filter.value(personKey).toString());
    // The saved week is not restored, on purpose: the board always opens on the present one.
    m_ui->comboBox->setCurrentIndex(m_shownWeeks);
    m_filterReady = true;
}

void MenuWidget::filterChanged()
{
    qDebug() << "MenuWidget::filterChanged()";
    if (!m_filterReady)
        return;
    m_filter.insert(menuKey, m_curGuiState == GS_MENU);
    m_filter.insert(branchKey, m_ui->comboBoxBranches->currentText());
    m_filter.insert(personKey, m_ui->comboBoxPeople->currentText());
    m_filter.insert(weekKey, m_ui->comboBox->currentText());
    emit filter(QStringLiteral("menuwidget"), m_filter);
    logFilter("MenuWidget::filterChanged() ::: MenuWidget changing filter to: ", m_filter);
}

// Cards ---------------------------------------------------------------------------------------------------------------

void MenuWidget::resetModel()
{
    if (!m_cards)
        return;
    QStandardItemModel *previous = m_menuModel;
    previous->clear();
    m_menuModel = m_foodRepository->loadMenuWidgetMenu(m_selectedDate, m_branchID, m_personID);
    m_menuModel->setParent(this);
    m_cards->showWeek(m_selectedDate, m_branchID, m_menuModel);
    previous->deleteLater();
}

void MenuWidget::setDayWidgetHeight()
{
    if (m_cards)
        m_cards->equaliseHeights();
}

void MenuWidget::hidewidgets()
{
    if (m_cards)
        m_cards->hideInactiveDays(m_activeDays);
}
