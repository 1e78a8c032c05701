#include "suppliers/dialogreport.h"

#include "models/menuproxymodel.h"
#include "models/ordermodel.h"
#include "models/suppliermodel.h"
#include "report/previewreport.h"
#include "session/session.h"
#include "store/foodrepository.h"
#include "suppliers/listcontent.h"
#include "suppliers/orderheading.h"
#include "ui_dialogreport.h"
#include "widgets/enterkey.h"
#include "widgets/images.h"

#include <QDesktopServices>
#include <QPointer>
#include <QStandardItemModel>
#include <QUrl>

namespace {

/// Columns of the suppliers and of the mails.
enum ListColumn { KeyColumn, TextColumn };

/// Columns of a supplier's rows.
enum ItemColumn { NameColumn, PortionsColumn };

/// The filter of orders stays off: a supplier's rows are those with orders anyway.
constexpr int noFilter = -1;
/// What the rows are filtered by until the first print or message: a value without an effect.
constexpr int startingSupplier = 4;

/// The row of the suppliers that stands for all of them.
constexpr int allSuppliersRow = 0;

/// The column that a template asks for, "0" to "3"; -1 for any other name.
int columnOf(const QString &paramName)
{
    return QStringList{QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}.indexOf(
        paramName);
}

QVariant cell(const QAbstractItemModel *rows, int row, int column)
{
    return rows ? rows->index(row, column).data() : QVariant();
}

int rowCount(const QAbstractItemModel *rows)
{
    return rows ? rows->rowCount() : 0;
}

} // namespace

DialogReport::DialogReport(QDate date, uint segmentID, uint bid, const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_date(date)
    , m_segmentID(segmentID)
    , m_bid(bid)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogReport>())
{
    setUpForm();
    if (!m_db.isOpen())
        return;
    loadSegment();
    loadLists();
    loadMenu();
    makeEngine();
}

DialogReport::~DialogReport() = default;

void DialogReport::setUpForm()
{
    m_ui->setupUi(this);
    m_ui->pushButtonPrint->setIcon(imageIcon("printer.png"));
    m_ui->pushButtonSend->setIcon(imageIcon("mail.png"));
    on_checkBoxCopyToBranch_stateChanged(m_ui->checkBoxCopyToBranch->checkState());
}

void DialogReport::loadSegment()
{
    m_segment = SegmentRepository(m_db).loadSegment(m_segmentID);
    m_ui->labelTitle->setText(m_date.toString(QStringLiteral("d.M.yyyy")) + QLatin1Char(' ') + m_segment.name);
}

void DialogReport::loadLists()
{
    m_supplierModel = new SupplierModel(m_db, this);
    m_suppliers = m_supplierModel->branchSuppliers(m_bid);
    m_branchMails = m_supplierModel->loadBranchMails(m_bid);
    showContent(m_ui->listViewBranchMails, m_branchMails, TextColumn);
    showContent(m_ui->listViewSuppliers, m_suppliers, TextColumn);
    m_ui->listViewSuppliers->setCurrentIndex(m_suppliers->index(allSuppliersRow, TextColumn));
    on_listViewSuppliers_clicked(m_ui->listViewSuppliers->currentIndex());
    // The arrow keys choose a supplier without a click, and so does a press that is released elsewhere.
    connect(m_ui->listViewSuppliers->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &DialogReport::on_listViewSuppliers_clicked);
}

void DialogReport::loadMenu()
{
    m_menu = FoodRepository(m_db).loadDayMenu(m_date, m_segmentID, m_bid);
    m_menu->setParent(this);
    showRowsOf(startingSupplier);
}

void DialogReport::makeEngine()
{
    m_engine = new RptEngine(this);
    m_engine->loadReportFile(QStringLiteral(":/menureport.xml"));
    connect(m_engine, &RptEngine::setValue, this, &DialogReport::setValue, Qt::DirectConnection);
    connect(m_engine, &RptEngine::setDSInfo, this, &DialogReport::setDSInfo, Qt::DirectConnection);
}

void DialogReport::showRowsOf(int supplierID)
{
    // The one before stays a child of the dialog until that goes.
    m_proxy = new MenuProxyModel(noFilter, supplierID, false, this);
    m_proxy->setSourceModel(m_menu);
    m_proxy->invalidate();
}

void DialogReport::on_listViewSuppliers_clicked(QModelIndex index)
{
    if (!m_supplierModel)
        return;
    m_orderMails = m_supplierModel->loadOrderMails(index.siblingAtColumn(KeyColumn).data().toUInt(), m_bid);
    showContent(m_ui->listViewSupplierMails, m_orderMails, TextColumn);
}

void DialogReport::on_checkBoxCopyToBranch_stateChanged(int arg1)
{
    m_ui->labelBranchMails->setVisible(arg1 != Qt::Unchecked);
    m_ui->listViewBranchMails->setVisible(arg1 != Qt::Unchecked);
}

QVector<OrderMail::AddressRow> DialogReport::orderMails() const
{
    QVector<OrderMail::AddressRow> rows;
    for (int row = 0; row < rowCount(m_orderMails); ++row)
        rows.append({cell(m_orderMails, row, KeyColumn).toUInt(), cell(m_orderMails, row, TextColumn).toString()});
    return rows;
}

QStringList DialogReport::blindCopies() const
{
    QStringList mails;
    if (!m_ui->checkBoxCopyToBranch->isChecked())
        return mails;
    for (int row = 0; row < rowCount(m_branchMails); ++row)
        mails.append(cell(m_branchMails, row, TextColumn).toString());
    return mails;
}

QVector<OrderMail::Item> DialogReport::shownItems() const
{
    QVector<OrderMail::Item> items;
    for (int row = 0; row < rowCount(m_proxy); ++row)
        items.append({cell(m_proxy, row, NameColumn).toString(), cell(m_proxy, row, PortionsColumn).toString()});
    return items;
}

void DialogReport::on_pushButtonSend_clicked()
{
    const QVector<OrderMail::Recipients> messages = OrderMail::recipients(orderMails());
    for (const OrderMail::Recipients &message : messages) {
        showRowsOf(int(message.supplierID));
        const QString address =
            OrderMail::address(message, blindCopies(), {session().companyName, m_date, m_segment.name, shownItems()});
        QDesktopServices::openUrl(QUrl(address, QUrl::TolerantMode));
    }
}

void DialogReport::on_pushButtonPrint_clicked()
{
    const int current = m_ui->listViewSuppliers->currentIndex().row();
    const int rows = rowCount(m_suppliers);
    if (rows == 1 || current > allSuppliersRow) {
        printOrder(rows == 1 ? allSuppliersRow : current);
        return;
    }
    for (int row = allSuppliersRow + 1; row < rows; ++row) {
        if (!printOrder(row))
            return;
    }
}

/// False when the dialog went away while the preview stood; nothing of it may be touched then.
bool DialogReport::printOrder(int row)
{
    m_supplierName = cell(m_suppliers, row, TextColumn).toString();
    showRowsOf(cell(m_suppliers, row, KeyColumn).toInt());
    const QPointer<DialogReport> self(this);
    if (!m_engine->pages().isEmpty())
        m_engine->startPrint(false, false, QString());
    return self;
}

void DialogReport::on_pushButtonPrintOrders_clicked()
{
    if (!m_db.isOpen())
        return;
    m_orders.reset(OrderModel(m_db).segmentOrders(m_date, m_segmentID, m_bid));
    previewReport(this, QStringLiteral(":/segmentreport.xml"), &DialogReport::setValue2, &DialogReport::setDSInfo2);
}

void DialogReport::setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage)
{
    Q_UNUSED(reportPage)
    const int column = columnOf(paramName);
    if (column >= 0)
        paramValue = cell(m_proxy, recNo, column);
    else if (paramName == QLatin1String("header"))
        paramValue = orderHeading(m_isFinalOrder, session().companyName, m_date, m_segment.name, m_supplierName);
}

void DialogReport::setDSInfo(DataSetInfo &dsInfo)
{
    dsInfo.recordCount = rowCount(m_proxy);
}

void DialogReport::setValue2(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage)
{
    Q_UNUSED(reportPage)
    const int column = columnOf(paramName);
    if (column >= 0)
        paramValue = cell(m_orders.get(), recNo, column);
    else if (paramName == QLatin1String("header"))
        paramValue = ordersHeading(m_date, m_segment.name);
}

void DialogReport::setDSInfo2(DataSetInfo &dsInfo)
{
    dsInfo.recordCount = rowCount(m_orders.get());
}

void DialogReport::keyPressEvent(QKeyEvent *event)
{
    if (!pressFocusedButton(*this, *event))
        QDialog::keyPressEvent(event);
}
