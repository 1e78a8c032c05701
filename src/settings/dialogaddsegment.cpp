#include "settings/dialogaddsegment.h"

#include "models/segmentmodel.h"
#include "settings/segmentediting.h"
#include "ui_dialogaddsegment.h"
#include "widgets/editstate.h"
#include "widgets/positionbox.h"
#include "widgets/savebutton.h"

#include <QDebug>

namespace {

constexpr int positionColumn = 3;
constexpr int resultDeleted = 2;

} // namespace

DialogAddSegment::DialogAddSegment(uint segmentID, const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_segmentID(segmentID)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogAddSegment>())
    , m_segments(new SegmentModel(db, this))
{
    m_ui->setupUi(this);
    m_segments->refresh();
    fillPositions(m_ui->comboBox, *m_segments, positionColumn);
    if (m_segmentID > 0)
        startEditing();
    else
        startNew();
}

DialogAddSegment::~DialogAddSegment() = default;

void DialogAddSegment::startNew()
{
    setEditState(this, EditState::Add);
    setWindowTitle(tr("Pridanie Segmentu"));
    addLastPosition(m_ui->comboBox);
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, false);
    m_ui->pushButtonDelete->setEnabled(false);
}

void DialogAddSegment::startEditing()
{
    setEditState(this, EditState::Edit);
    setWindowTitle(tr("Úprava Segmentu"));
    m_segment = SegmentRepository(m_db).loadSegment(m_segmentID);
    m_ui->lineEditTitle->setText(m_segment.name);
    // The checks of the times see these too: a slot stored with its times crossed opens with the save closed.
    m_ui->timeEdit->setTime(m_segment.start);
    m_ui->timeEditStop->setTime(m_segment.stop);
    showPosition(m_ui->comboBox, m_segment.position);
    m_ui->pushButtonSave->setDefault(true);
}

void DialogAddSegment::on_lineEditTitle_textEdited(QString arg1)
{
    offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, !arg1.isEmpty());
}

void DialogAddSegment::on_pushButtonSave_clicked()
{
    m_segment.name = m_ui->lineEditTitle->text();
    m_segment.start = m_ui->timeEdit->time();
    m_segment.stop = m_ui->timeEditStop->time();

    SegmentRepository repository(m_db);
    makeRoom(repository);
    if (m_ui->comboBox->currentIndex() >= 0)
        m_segment.position = m_ui->comboBox->currentText().toUInt();
    if (m_segmentID == 0) {
        repository.addSegment(m_segment);
        qDebug() << "pridavam" << m_segment.segmentID << m_segment.name;
    } else {
        repository.updateSegment(m_segment);
        qDebug() << "updatujem" << m_segment.segmentID << m_segment.name;
    }
    accept();
}

void DialogAddSegment::makeRoom(SegmentRepository &repository) const
{
    const int target = m_ui->comboBox->currentIndex() + 1;
    qDebug() << m_segment.position << target;
    if (m_segmentID == 0)
        SegmentEditing::movePositions(repository, Positions::makeRoom(target, m_segments->rowCount()));
    else if (m_segment.position > 0 && target > 0) // a slot that is gone, or a list that is not there, moves nothing
        SegmentEditing::movePositions(repository, Positions::shift(int(m_segment.position), target));
}

void DialogAddSegment::on_pushButtonCancel_clicked()
{
    reject();
}

void DialogAddSegment::on_pushButtonDelete_clicked()
{
    const SegmentEditing::Deletion deletion = SegmentEditing::askAndDelete(
        this, m_db, m_segment, m_segments->rowCount(), SegmentEditing::Renumbering::AfterSuccess);
    if (deletion != SegmentEditing::Deletion::Declined)
        done(deletion == SegmentEditing::Deletion::Done ? resultDeleted : 0);
}

void DialogAddSegment::on_timeEditStop_userTimeChanged(QTime time)
{
    m_ui->pushButtonSave->setEnabled(time >= m_ui->timeEdit->time());
}

void DialogAddSegment::on_timeEdit_userTimeChanged(QTime time)
{
    m_ui->pushButtonSave->setEnabled(time <= m_ui->timeEditStop->time());
}
