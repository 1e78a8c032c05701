#include "board/dialogmenu.h"

#include "board/limitdelegate.h"
#include "board/menuarrangement.h"
#include "catalogue/dialogfood.h"
#include "models/foodproxymodel.h"
#include "models/menuproxymodel.h"
#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "store/orderablerepository.h"
#include "store/typerepository.h"
#include "ui_dialogmenu.h"
#include "widgets/enterkey.h"
#include "widgets/execdialog.h"

#include <QDebug>
#include <QEvent>
#include <QPointer>
#include <QStandardItemModel>
#include <QTimer>

namespace {

/// Columns of the table, as its filter numbers them.
enum TableColumn { NameColumn, TotalColumn };

constexpr int limitWidth = 59;
constexpr int noFilter = -1;

} // namespace

DialogMenu::DialogMenu(QDate date, unsigned segmentID, unsigned branchID, const QString &segmentName,
                       const QSqlDatabase &db, bool orderLimitEnabled, QWidget *parent)
    : QDialog(parent)
    , m_date(date)
    , m_segmentID(segmentID)
    , m_branchID(branchID)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogMenu>())
    , m_foodRepository(new FoodRepository(db, this))
    , m_foodProxy(new FoodProxyModel(this))
    , m_menuProxy(new MenuProxyModel(noFilter, noFilter, orderLimitEnabled, this))
    , m_menuRows(m_foodRepository->loadDayMenu(date, segmentID, branchID))
    , m_foodRows(new QStandardItemModel(0, MenuColumn::Count, this))
{
    m_menuRows->setParent(this);
    m_ui->setupUi(this);
    showAddFood(false);
    setTitles(segmentName);
    MenuArrangement::split(*m_menuRows, *m_foodRows,
                           tr("Táto položka sa nedá odstániť z menu pretože má existujúce objednávky."));
    setUpViews();
    QTimer::singleShot(1, this, &DialogMenu::setTableMenuCols);
}

DialogMenu::~DialogMenu() = default;

void DialogMenu::setTitles(const QString &segmentName)
{
    const QString date = m_date.toString(QStringLiteral("d. M. yyyy"));
    const QString slot = segmentName == QLatin1String(" ") ? QString() : QStringLiteral(" - ") + segmentName;
    setWindowTitle(tr("Upraviť menu - ") + date + slot);
    m_ui->label_2->setText(tr("Menu - ") + date + slot);
}

void DialogMenu::setUpViews()
{
    m_foodProxy->setSortLocaleAware(true);
    m_foodProxy->setDynamicSortFilter(true);
    m_foodProxy->setSourceModel(m_foodRows);
    m_menuProxy->setSourceModel(m_menuRows);
    connect(this, &DialogMenu::textchanged, m_foodProxy, &FoodProxyModel::textCatcher);

    m_ui->listViewFood->setModel(m_foodProxy);
    m_ui->listViewFood->setItemDelegate(new MenuDelegate(this));
    m_ui->tableViewMenu->setModel(m_menuProxy);
    m_ui->tableViewMenu->setItemDelegate(new LimitDelegate(this));
    m_ui->tableViewMenu->setColumnHidden(TotalColumn, true);
    m_ui->tableViewMenu->viewport()->installEventFilter(this);
    m_menuProxy->invalidate();
    onEnter(m_ui->listViewFood, [this] { on_toolButtonR_clicked(); });
}

void DialogMenu::showAddFood(bool show)
{
    m_ui->labelAddFood->setVisible(show);
    m_ui->pushButtonAddFood->setVisible(show);
}

void DialogMenu::on_lineEditFilter_textChanged(QString arg1)
{
    emit textchanged(arg1);
    const bool nothingFound = m_foodProxy->rowCount() == 0;
    if (nothingFound)
        m_ui->labelAddFood->setText(tr("Žiadne jedlo v databáze neobsahuje '") + arg1 + QLatin1Char('\''));
    showAddFood(nothingFound);
}

void DialogMenu::on_pushButton_clicked()
{
    qDebug() << "deleting all previous orderables";
    OrderableRepository repository(m_db);
    const QVector<uint> removed = MenuArrangement::removedItems(*m_foodRows);
    for (const uint orderableID : removed)
        repository.deleteOrderable(orderableID);

    OrderableRecord slot;
    slot.bid = m_branchID;
    slot.segmentID = m_segmentID;
    slot.date = m_date;
    const QVector<OrderableRecord> items = MenuArrangement::menuItems(*m_menuRows, slot);
    for (const OrderableRecord &item : items) {
        qDebug() << item.orderableID << item.foodID << item.bid << item.segmentID << item.date << item.position
                 << item.price << item.limit << " adding/updating orderable";
        if (item.orderableID < 1)
            repository.addOrderable(item);
        else
            repository.updateOrderable(item);
    }
    accept();
}

void DialogMenu::on_tableViewMenu_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    on_toolButtonL_clicked();
}

void DialogMenu::on_listViewFood_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    on_toolButtonR_clicked();
}

void DialogMenu::on_toolButtonR_clicked()
{
    const QModelIndex food = m_foodProxy->mapToSource(m_ui->listViewFood->currentIndex());
    MenuArrangement::add(*m_foodRows, food.row(), *m_menuRows);
    m_ui->listViewFood->setFocus();
    m_menuProxy->invalidate();
}

void DialogMenu::on_toolButtonL_clicked()
{
    const QModelIndex item = m_menuProxy->mapToSource(m_ui->tableViewMenu->currentIndex());
    // A heading whose last food has gone goes with it.
    if (MenuArrangement::remove(*m_menuRows, item.row(), *m_foodRows))
        m_menuProxy->invalidate();
}

void DialogMenu::on_toolButtonU_clicked()
{
    moveMenuRow(&MenuArrangement::moveUp, -1);
}

void DialogMenu::on_toolButtonD_clicked()
{
    moveMenuRow(&MenuArrangement::moveDown, 1);
}

void DialogMenu::moveMenuRow(bool (*exchange)(QStandardItemModel &, int), int rows)
{
    const QModelIndex item = m_menuProxy->mapToSource(m_ui->tableViewMenu->currentIndex());
    const int row = item.row();
    const int column = item.column();
    if (exchange(*m_menuRows, row))
        m_ui->tableViewMenu->selectionModel()->setCurrentIndex(
            m_menuProxy->mapFromSource(m_menuRows->index(row + rows, column)),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_ui->tableViewMenu->setFocus();
}

void DialogMenu::on_pushButtonAddFood_clicked()
{
    const QPointer<DialogMenu> self(this);
    if (execDialog<DialogFood>(FoodRecord(), m_db, this) <= 0 || !self)
        return;
    qDebug() << "saving new and refreshing";
    const FoodRecord food = m_foodRepository->loadFood(m_foodRepository->loadLastfoodID());
    const TypeRecord type = TypeRepository(m_db).loadType(food.typeID);
    m_foodRows->appendRow(MenuArrangement::newFoodRow(food, type.position));
    m_foodProxy->setSourceModel(m_foodRows);
    m_foodProxy->invalidate();
    showAddFood(m_foodProxy->rowCount() == 0);
}

void DialogMenu::setTableMenuCols()
{
    m_ui->tableViewMenu->setColumnWidth(NameColumn, m_ui->tableViewMenu->viewport()->width() - limitWidth);
}

void DialogMenu::keyPressEvent(QKeyEvent *event)
{
    if (!pressFocusedButton(*this, *event))
        QDialog::keyPressEvent(event);
}

bool DialogMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->tableViewMenu->viewport() && event->type() == QEvent::Resize)
        setTableMenuCols();
    return QDialog::eventFilter(watched, event);
}
