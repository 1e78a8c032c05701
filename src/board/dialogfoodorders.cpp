#include "board/dialogfoodorders.h"

#include "models/ordermodel.h"
#include "ui_dialogfoodorders.h"

namespace {

constexpr int nameColumn = 1;
constexpr int nameWidth = 200;

} // namespace

DialogFoodOrders::DialogFoodOrders(const QSqlDatabase &db, unsigned orderableID, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DialogFoodOrders>())
{
    m_ui->setupUi(this);
    auto *orders = new OrderModel(db, this);
    m_ui->tableView->setModel(orders->orderPeopleList(orderableID));
    m_ui->tableView->setColumnWidth(nameColumn, nameWidth);
}

DialogFoodOrders::~DialogFoodOrders() = default;
