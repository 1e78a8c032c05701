#include "board/dialogcopymenuofday.h"

#include "store/orderablerepository.h"
#include "ui_dialogcopymenuofday.h"

#include <QDebug>

DialogCopyMenuOfDay::DialogCopyMenuOfDay(unsigned branchID, QDate date, const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_branchID(branchID)
    , m_sourceDate(date)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogCopyMenuOfDay>())
{
    m_ui->setupUi(this);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &DialogCopyMenuOfDay::accept);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &DialogCopyMenuOfDay::reject);
    const QDate last = OrderableRepository(m_db).loadLastDate(m_branchID);
    if (!last.isValid())
        return;
    m_ui->calendar->setMinimumDate(last.addDays(1));
    m_ui->calendar->setSelectedDate(last.addDays(1));
}

DialogCopyMenuOfDay::~DialogCopyMenuOfDay() = default;

void DialogCopyMenuOfDay::accept()
{
    m_targetDate = m_ui->calendar->selectedDate();
    OrderableRepository repository(m_db);
    const QList<OrderableRecord> items = repository.loadOrderablesByDate(m_sourceDate, m_branchID);
    for (OrderableRecord item : items) {
        qDebug() << "orderableID" << item.orderableID;
        item.date = m_targetDate;
        repository.addOrderable(item);
    }
    QDialog::accept();
}
