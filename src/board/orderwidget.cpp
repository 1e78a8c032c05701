#include "board/orderwidget.h"

#include "models/ordermodel.h"
#include "models/orderproxymodel.h"
#include "models/segmentmodel.h"
#include "ui_orderwidget.h"

namespace {

constexpr int segmentName = 1;
constexpr int noFilter = -1;

} // namespace

OrderWidget::OrderWidget(const QSqlDatabase &db, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::OrderWidget>())
    , m_orders(new OrderModel(db, this))
    , m_proxy(new OrderProxyModel(noFilter, noFilter, this))
    , m_segments(new SegmentModel(db, this))
{
    m_ui->setupUi(this);
    m_ui->dateEditFrom->setDate(QDate::currentDate());
    m_ui->dateEditTo->setDate(QDate::currentDate());
    m_proxy->setSourceModel(m_orders->allOrders());
    m_ui->tableViewZamestnanec->setModel(m_proxy);
    fillSegments();
}

OrderWidget::~OrderWidget() = default;

void OrderWidget::fillSegments()
{
    m_segments->refresh();
    for (int row = 0; row < m_segments->rowCount(); ++row)
        m_ui->comboBoxSegment->addItem(m_segments->index(row, segmentName).data().toString());
}

void OrderWidget::on_dateEditFrom_dateChanged(QDate date)
{
    if (m_ui->checkBoxSingleDay->isChecked())
        m_ui->dateEditTo->setDate(date);
    emit datefromchanged(date);
}

void OrderWidget::on_checkBoxSingleDay_clicked()
{
    const bool singleDay = m_ui->checkBoxSingleDay->isChecked();
    if (singleDay)
        m_ui->dateEditTo->setDate(m_ui->dateEditFrom->date());
    m_ui->dateEditTo->setDisabled(singleDay);
}

void OrderWidget::on_dateEditTo_dateChanged(QDate date)
{
    emit datetochanged(date);
}

void OrderWidget::on_comboBoxSegment_currentIndexChanged(QString arg1)
{
    emit segmentchanged(m_ui->comboBoxSegment->currentIndex() == 0 ? QString() : arg1);
}

void OrderWidget::on_lineEditPerson_textChanged(QString arg1)
{
    emit textchanged(arg1);
}
