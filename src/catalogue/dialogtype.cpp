#include "catalogue/dialogtype.h"

#include "models/typemodel.h"
#include "store/positions.h"
#include "ui_dialogtype.h"
#include "widgets/deletionquestion.h"
#include "widgets/editstate.h"
#include "widgets/positionbox.h"
#include "widgets/savebutton.h"

#include <QDebug>

namespace {

constexpr int positionColumn = 2;

} // namespace

DialogType::DialogType(const QSqlDatabase &db, QWidget *parent, int typeID)
    : QDialog(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogType>())
    , m_repository(db)
    , m_types(new TypeModel(db, this))
{
    m_ui->setupUi(this);
    if (!m_db.isOpen())
        return;
    m_type = m_repository.loadType(uint(typeID));
    fillPositions(m_ui->comboBoxPos, *m_types, positionColumn);
    if (m_type.typeID == 0)
        showNewType();
    else
        showType();
}

DialogType::~DialogType() = default;

void DialogType::showNewType()
{
    setEditState(this, EditState::Add);
    setWindowTitle(tr("Pridanie typu výdaja"));
    addLastPosition(m_ui->comboBoxPos);
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, false);
    m_ui->pushButtonDelete->setEnabled(false);
}

void DialogType::showType()
{
    setEditState(this, EditState::Edit);
    setWindowTitle(tr("Úprava typu výdaja"));
    m_ui->lineEditName->setText(m_type.name); // opens the save, unless it is empty
    showPosition(m_ui->comboBoxPos, m_type.position);
    m_ui->checkBoxInformative->setChecked(m_type.informative != 0);
    m_ui->pushButtonDelete->setEnabled(true);
}

void DialogType::on_lineEditName_textChanged(QString arg1)
{
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, !arg1.isEmpty());
}

void DialogType::on_pushButtonSave_clicked()
{
    makeRoom();
    m_type.name = m_ui->lineEditName->text();
    if (m_ui->comboBoxPos->currentIndex() >= 0)
        m_type.position = m_ui->comboBoxPos->currentText().toUInt();
    m_type.informative = m_ui->checkBoxInformative->isChecked() ? 1 : 0;
    // The lines name a segment, a service slot, where a type is meant; log readers know them so.
    if (m_type.typeID == 0) {
        m_repository.addType(m_type);
        qDebug() << "adding segment" << m_type.typeID << m_type.name;
    } else {
        m_repository.updateType(m_type);
        qDebug() << "updating" << m_type.typeID << m_type.name;
    }
    close();
}

void DialogType::makeRoom()
{
    const int target = m_ui->comboBoxPos->currentIndex() + 1;
    qDebug() << m_type.position << target;
    if (target == 0)
        return; // the position is not among the listed ones and the user chose none of these: it stays
    move(m_type.typeID == 0 ? Positions::makeRoom(target, m_types->rowCount())
                            : Positions::shift(int(m_type.position), target));
}

void DialogType::move(const QVector<PositionMove> &moves)
{
    for (const PositionMove &step : moves) {
        if (step.to > step.from)
            qDebug() << "moving segment, position" << step.from;
        m_repository.moveType(uint(step.from), uint(step.to));
    }
}

void DialogType::on_pushButtonCancel_clicked()
{
    close();
}

void DialogType::on_pushButtonDelete_clicked()
{
    if (!confirmDeletion(this, tr("Zmazanie typu výdaja!"),
                         tr("Naozaj chcete zmazať typ výdaja ") + m_type.name + QLatin1Char('?')))
        return;
    if (m_repository.deleteType(m_type.typeID))
        move(Positions::closeGap(int(m_type.position), m_types->rowCount()));
    close();
}
