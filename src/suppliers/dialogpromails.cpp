#include "suppliers/dialogpromails.h"

#include "store/supplierrepository.h"
#include "ui_dialogpromails.h"
#include "widgets/editstate.h"
#include "widgets/savebutton.h"

DialogProMails::DialogProMails(const QSqlDatabase &db, SupplierTime *time, QWidget *parent)
    : QDialog(parent)
    , m_db(db)
    , m_time(time)
    , m_ui(std::make_unique<Ui::DialogProMails>())
    , m_repository(new SupplierRepository(db, this))
{
    m_ui->setupUi(this);
    if (m_time->proMailDelayID == 0)
        offerNew();
    else
        showSaved();
}

DialogProMails::~DialogProMails() = default;

void DialogProMails::offerNew()
{
    setEditState(this, EditState::Add);
    setWindowTitle(tr("Pridanie času odoslania"));
    m_ui->pushButtonCancel->setDefault(true);
    m_ui->pushButtonDelete->setEnabled(false);
}

void DialogProMails::showSaved()
{
    setEditState(this, EditState::Edit);
    setWindowTitle(tr("Úprava času odoslania"));
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, true);
    if (m_db.isOpen()) {
        const std::unique_ptr<SupplierTime> saved(m_repository->loadTime(int(m_time->proMailDelayID)));
        // Without a saved one the keys stay, so that a save never adds a time for no supplier.
        if (saved->proMailDelayID != 0)
            *m_time = *saved;
    }
    m_ui->spinBox->setValue(int(m_time->daysto));
    m_ui->timeEdit->setTime(m_time->sendtime);
}

void DialogProMails::on_pushButtonSave_clicked()
{
    m_time->daysto = uint(m_ui->spinBox->value());
    m_time->sendtime = m_ui->timeEdit->time();
    if (m_time->proMailDelayID != 0)
        m_repository->updateTime(m_time);
    else
        m_repository->addTime(m_time);
    close();
}

void DialogProMails::on_pushButtonCancel_clicked()
{
    close();
}

void DialogProMails::on_pushButtonDelete_clicked()
{
    m_repository->deleteTime(int(m_time->proMailDelayID));
    close();
}
