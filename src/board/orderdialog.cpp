#include "board/orderdialog.h"

#include "board/orderbox.h"
#include "board/orderform.h"
#include "board/totaldelegate.h"
#include "models/orderproxymodel.h"
#include "models/peoplemodel.h"
#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "store/orderrepository.h"
#include "ui_orderdialog.h"
#include "widgets/enterkey.h"

#include <QDateTime>
#include <QDebug>
#include <QLocale>
#include <QStandardItemModel>

#include <limits>

namespace {

/// Columns of the table, as its filter numbers them.
enum TableColumn { NameColumn, MinusColumn, QuantityColumn, PlusColumn };

constexpr int noFilter = -1;
constexpr int warningPixelSize = 22;
constexpr int warningMargin = 5;

} // namespace

OrderDialog::OrderDialog(const QSqlDatabase &db, unsigned segmentID, const QString &segmentName, QDate date,
                         unsigned uid, unsigned adminID, unsigned branchID, QWidget *parent)
    : QDialog(parent)
    , m_db(db)
    , m_segmentName(segmentName)
    , m_date(date)
    , m_uid(uid)
    , m_adminID(adminID)
    , m_branchID(branchID)
    , m_ui(std::make_unique<Ui::OrderDialog>())
    , m_peopleModel(new PeopleModel(db, this))
    , m_foodRepository(new FoodRepository(db, this))
    , m_orderRepository(new OrderRepository(db, this))
    , m_proxy(new OrderProxyModel(noFilter, noFilter, this))
    , m_delegate(new TotalDelegate(this))
{
    m_ui->setupUi(this);
    setUpWarning();
    if (!m_db.isOpen())
        return;
    loadForm(segmentID);
    setUpView();
    const QString person = m_peopleModel->personName(int(m_uid));
    setWindowTitle(
        tr("Objednávka - %1 - %2 - %3").arg(person, m_date.toString(QStringLiteral("d. M. yyyy")), m_segmentName));
}

OrderDialog::~OrderDialog()
{
    // The table closes an open editor as it goes, and the grid's last change must not reach a dialog half gone.
    m_proxy->disconnect(this);
}

void OrderDialog::setUpWarning()
{
    QFont font = m_ui->labelwarning->font();
    font.setPixelSize(warningPixelSize);
    m_ui->labelwarning->setFont(font);
    m_ui->labelwarning->setMargin(warningMargin);
    m_ui->labelwarning->setText(
        tr("<font color= #cc0001>Pozor, snažíte sa vytvoriť objednávku na starý dátum!</font>"));
    m_ui->labelwarning->setVisible(m_date < QDate::currentDate());
}

void OrderDialog::loadForm(unsigned segmentID)
{
    m_grid = m_foodRepository->loadPersonDayMenu(m_date, segmentID, int(m_uid), m_branchID);
    m_grid->setParent(this);
    OrderForm::removeUnorderable(*m_grid);
    OrderForm::emphasiseHeadings(*m_grid);
    OrderForm::addToolTips(*m_grid);
    connect(m_proxy, &QAbstractItemModel::dataChanged, this, &OrderDialog::recalculate);
    OrderForm::openQuantities(*m_grid);
    m_proxy->setSourceModel(m_grid);
    m_proxy->invalidate();
}

void OrderDialog::setUpView()
{
    QTableView *table = m_ui->tableViewMenu;
    table->setModel(m_proxy);
    table->setItemDelegate(m_delegate);
    table->ensurePolished();
    // All but the quantities is disabled and is to be read all the same.
    QPalette palette = table->palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, palette.color(QPalette::Active, QPalette::Text));
    table->setPalette(palette);
    table->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    for (const int column : {MinusColumn, PlusColumn})
        table->setColumnWidth(column, table->verticalHeader()->defaultSectionSize());
    goToFirstQuantity();
}

/// All other cells are disabled: without a current cell the keyboard would find none of the quantities. The form stays
/// scrolled to its beginning.
void OrderDialog::goToFirstQuantity()
{
    const int row = OrderForm::firstQuantityRow(*m_grid);
    if (row < 0)
        return;
    m_ui->tableViewMenu->setAutoScroll(false);
    m_ui->tableViewMenu->setCurrentIndex(m_proxy->mapFromSource(m_grid->index(row, PersonMenuColumn::Total)));
    m_ui->tableViewMenu->setAutoScroll(true);
}

void OrderDialog::recalculate()
{
    if (!m_grid)
        return;
    disconnect(m_proxy, &QAbstractItemModel::dataChanged, this, &OrderDialog::recalculate);
    OrderForm::recalculate(*m_grid, QLocale().currencySymbol(QLocale::CurrencySymbol));
    m_ui->pushButtonOk->setEnabled(true);
    connect(m_proxy, &QAbstractItemModel::dataChanged, this, &OrderDialog::recalculate);
}

void OrderDialog::on_pushButtonCancel_clicked()
{
    reject();
}

void OrderDialog::on_pushButtonOk_clicked()
{
    if (m_grid) {
        const QVector<OrderRecord> orders = OrderForm::orders(*m_grid, m_uid);
        for (const OrderRecord &order : orders)
            save(order);
    }
    accept();
}

void OrderDialog::save(OrderRecord order)
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("d.M.yyyy, H:m:s"));
    order.ordered = QStringLiteral("ZEP-adminID: %1, %2").arg(QString::number(m_adminID), now);
    int available = 0;
    int limit = 0;
    if (!m_orderRepository->checkOrderableLimit(order, available, limit))
        showFailure(tr("Nepodarilo sa skontrolovať limit!"));
    else if (limit != 0 && available < 0)
        showRefusal(order, qint64(available) + order.quantity);
    else
        replace(order);
}

void OrderDialog::replace(const OrderRecord &order)
{
    if (order.quantity == std::numeric_limits<int>::max())
        qWarning() << "OrderDialog - quantity out of range taken as" << order.quantity << "for orderableID"
                   << order.orderableID;
    if (!m_orderRepository->deleteOrder(order))
        showFailure(tr("Nepodarilo sa zrušiť objednávku!"));
    else if (order.quantity != 0 && !m_orderRepository->addOrder(order))
        showFailure(tr("Nepodarilo sa pridať objednávku!"));
}

void OrderDialog::showRefusal(const OrderRecord &order, qint64 allowed)
{
    const QString name = m_orderRepository->getFoodName(order.orderableID).toHtmlEscaped();
    const QString text = allowed < 1
        ? tr("Jedlo <i>%1</i> nemôže byť objednané (vyčerpaný limit)!").arg(name)
        : tr("Jedlo <i>%1</i> nemôže byť objednané v požadovanom množstve!\n\nObjednateľné množstvo: %2")
              .arg(name, QString::number(allowed));
    showOrderBox(this, QMessageBox::Warning, tr("Potvrdenie objednávky"), text, Qt::RichText);
}

void OrderDialog::showFailure(const QString &text)
{
    showOrderBox(this, QMessageBox::Critical, tr("Chyba databázy"), text, Qt::PlainText);
}

void OrderDialog::keyPressEvent(QKeyEvent *event)
{
    if (!pressFocusedButton(*this, *event))
        QDialog::keyPressEvent(event);
}
