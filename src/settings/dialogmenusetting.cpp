#include "settings/dialogmenusetting.h"

#include "models/segmentmodel.h"
#include "settings/dialogaddsegment.h"
#include "settings/segmentediting.h"
#include "store/segmentrepository.h"
#include "ui_dialogmenusetting.h"
#include "widgets/execdialog.h"

#include <QPointer>

DialogMenuSetting::DialogMenuSetting(const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogMenuSetting>())
    , m_segments(new SegmentModel(db, this))
{
    m_ui->setupUi(this);
    SegmentEditing::showNames(m_ui->listViewSegments, m_segments);
    connect(m_ui->listViewSegments->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DialogMenuSetting::itemSelection);
    resetModel();
}

DialogMenuSetting::~DialogMenuSetting() = default;

void DialogMenuSetting::openSegment(uint segmentID)
{
    const QPointer<DialogMenuSetting> self(this);
    execDialog<DialogAddSegment>(segmentID, m_db, this);
    if (!self)
        return;
    resetModel();
    itemSelection();
}

void DialogMenuSetting::on_pushButtonPridat_2_clicked()
{
    openSegment(0);
}

void DialogMenuSetting::on_pushButtonUpravit_2_clicked()
{
    openSegment(m_segmentID);
}

void DialogMenuSetting::on_pushButtonZmazat_2_clicked()
{
    SegmentRecord segment = SegmentRepository(m_db).loadSegment(m_segmentID);
    segment.segmentID = m_segmentID; // also of a slot that somebody else has deleted meanwhile
    const SegmentEditing::Deletion deletion =
        SegmentEditing::askAndDelete(this, m_db, segment, m_segments->rowCount(), SegmentEditing::Renumbering::Always);
    if (deletion != SegmentEditing::Deletion::Declined)
        resetModel();
}

void DialogMenuSetting::itemSelection()
{
    m_segmentID = m_ui->listViewSegments->currentIndex().siblingAtColumn(0).data().toUInt();
    if (m_segmentID == 0)
        return;
    m_ui->pushButtonUpravit_2->setEnabled(true);
    m_ui->pushButtonZmazat_2->setEnabled(true);
    m_ui->pushButtonUpravit_2->setDefault(true);
}

void DialogMenuSetting::resetModel()
{
    m_segments->refresh();
    SegmentEditing::showNames(m_ui->listViewSegments, m_segments);
    m_ui->pushButtonUpravit_2->setEnabled(false);
    m_ui->pushButtonZmazat_2->setEnabled(false);
    m_ui->pushButtonPridat_2->setDefault(true);
}
