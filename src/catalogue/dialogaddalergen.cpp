#include "catalogue/dialogaddalergen.h"

#include "ui_dialogaddalergen.h"
#include "widgets/deletionquestion.h"
#include "widgets/editstate.h"
#include "widgets/savebutton.h"

#include <QDebug>

DialogAddAlergen::DialogAddAlergen(uint alergenID, const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogAddAlergen>())
    , m_repository(db)
{
    m_ui->setupUi(this);
    if (alergenID != 0)
        m_alergen = m_repository.loadAlergen(alergenID);
    if (m_alergen.alergenID == 0) {
        setEditState(this, EditState::Add);
        setWindowTitle(tr("Pridanie alergénu"));
        offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, false);
        return;
    }
    setEditState(this, EditState::Edit);
    setWindowTitle(tr("Úprava Alergénu"));
    m_ui->lineEditTitle->setText(m_alergen.title);
    m_ui->plainTextEditDescription->setPlainText(m_alergen.description);
    m_ui->pushButtonDelete->setEnabled(true);
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, !m_alergen.title.isEmpty());
}

DialogAddAlergen::~DialogAddAlergen() = default;

void DialogAddAlergen::on_lineEditTitle_textEdited(QString arg1)
{
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, !arg1.isEmpty());
}

void DialogAddAlergen::on_pushButtonSave_clicked()
{
    if (!m_ui->lineEditTitle->text().isEmpty()) {
        m_alergen.title = m_ui->lineEditTitle->text();
        m_alergen.description = m_ui->plainTextEditDescription->toPlainText();
        if (m_alergen.alergenID == 0) {
            m_repository.addAlergen(m_alergen);
            qDebug() << "pridavam" << m_alergen.alergenID << m_alergen.title << m_alergen.description;
        } else {
            m_repository.updateAlergen(m_alergen);
            qDebug() << "updatujem" << m_alergen.alergenID << m_alergen.title << m_alergen.description;
        }
    }
    close();
}

void DialogAddAlergen::on_pushButtonCancel_clicked()
{
    close();
}

void DialogAddAlergen::on_pushButtonDelete_clicked()
{
    if (!confirmDeletion(this, tr("Zmazanie Alergénu!"),
                         tr("Naozaj chcete zmazať alergén ") + m_alergen.title + QLatin1Char('?')))
        return;
    m_repository.deleteAlergen(m_alergen.alergenID);
    close();
}
