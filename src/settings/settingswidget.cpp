#include "settings/settingswidget.h"

#include "models/segmentmodel.h"
#include "settings/dialogaddsegment.h"
#include "settings/segmentediting.h"
#include "store/activedays.h"
#include "store/segmentrepository.h"
#include "store/settingsrepository.h"
#include "ui_settingswidget.h"
#include "widgets/enterkey.h"
#include "widgets/execdialog.h"
#include "widgets/messages.h"
#include "widgets/waitcursor.h"

#include <QDebug>
#include <QPointer>

#include <algorithm>
#include <array>

namespace {

/// The page's boxes for the days, Monday first.
std::array<QCheckBox *, 7> dayBoxes(const Ui::SettingsWidget &form)
{
    return {form.checkBox_1, form.checkBox_2, form.checkBox_3, form.checkBox_4,
            form.checkBox_5, form.checkBox_6, form.checkBox_7};
}

} // namespace

SettingsWidget::SettingsWidget(const QSqlDatabase &db, QWidget *parent)
    : QWidget(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::SettingsWidget>())
    , m_settings(new SettingsRepository(db, this))
    , m_segments(new SegmentModel(db, this))
{
    m_ui->setupUi(this);
    if (!m_db.isOpen())
        return;
    m_dayCode = m_settings->loadCheckState();
    const int shownWeeks = m_settings->loadShownWeeks();
    m_ui->comboBoxOrderLimit->setCurrentIndex(m_settings->loadOrderLimit());
    m_ui->cbOrderLimit->setChecked(m_settings->variableGet(QStringLiteral("via_orderLimitEnabled")).toBool());
    m_ui->spinBox->setValue(shownWeeks);
    qDebug() << m_dayCode;
    setState();

    m_ui->listViewSegments->setStyleSheet(QStringLiteral("background-color: white"));
    SegmentEditing::showNames(m_ui->listViewSegments, m_segments);
    connect(m_ui->listViewSegments->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SettingsWidget::itemSelection);
    resetModel();
    onEnter(m_ui->listViewSegments, [this] { m_ui->pushButtonUpravit_2->click(); });
}

SettingsWidget::~SettingsWidget() = default;

void SettingsWidget::on_checkBox_1_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::on_checkBox_2_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::on_checkBox_3_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::on_checkBox_4_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::on_checkBox_5_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::on_checkBox_6_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::on_checkBox_7_stateChanged(int arg1)
{
    Q_UNUSED(arg1)
    calculateDays();
}

void SettingsWidget::calculateDays()
{
    std::array<Qt::CheckState, 7> states{};
    const std::array<QCheckBox *, 7> boxes = dayBoxes(*m_ui);
    std::transform(boxes.cbegin(), boxes.cend(), states.begin(),
                   [](const QCheckBox *box) { return box->checkState(); });
    m_dayCode = ActiveDays::encode(states);
    m_settings->setCheckState(m_dayCode);
}

void SettingsWidget::setState()
{
    // A copy: each box that changes makes the member the sum of the boxes as they stand by then.
    const int dayCode = m_dayCode;
    int day = 1;
    for (QCheckBox *box : dayBoxes(*m_ui))
        box->setChecked(ActiveDays::isOn(dayCode, day++));
}

void SettingsWidget::on_spinBox_valueChanged(int arg1)
{
    m_settings->setShownWeeks(arg1);
}

void SettingsWidget::resetModel()
{
    m_segments->refresh();
    SegmentEditing::showNames(m_ui->listViewSegments, m_segments);
    m_ui->pushButtonUpravit_2->setEnabled(false);
    m_ui->pushButtonZmazat_2->setEnabled(false);
    makeDefault(m_ui->pushButtonPridat_2);
}

void SettingsWidget::itemSelection()
{
    m_segmentID = m_ui->listViewSegments->currentIndex().siblingAtColumn(0).data().toUInt();
    if (m_segmentID == 0)
        return;
    m_ui->pushButtonUpravit_2->setEnabled(true);
    m_ui->pushButtonZmazat_2->setEnabled(true);
    makeDefault(m_ui->pushButtonUpravit_2);
}

void SettingsWidget::makeDefault(QPushButton *button)
{
    // On a page, unlike in a dialog, nobody takes the mark off the others.
    for (QPushButton *other : {m_ui->pushButtonPridat_2, m_ui->pushButtonZmazat_2, m_ui->pushButtonUpravit_2})
        other->setDefault(other == button);
}

void SettingsWidget::openSegment(uint segmentID)
{
    const QPointer<SettingsWidget> self(this);
    execDialog<DialogAddSegment>(segmentID, m_db, this);
    if (!self)
        return;
    resetModel();
    itemSelection();
}

void SettingsWidget::on_pushButtonPridat_2_clicked()
{
    openSegment(0);
}

void SettingsWidget::on_pushButtonUpravit_2_clicked()
{
    openSegment(m_segmentID);
}

void SettingsWidget::on_pushButtonZmazat_2_clicked()
{
    SegmentRecord segment = SegmentRepository(m_db).loadSegment(m_segmentID);
    segment.segmentID = m_segmentID; // also of a slot that somebody else has deleted meanwhile
    const SegmentEditing::Deletion deletion = SegmentEditing::askAndDelete(this, m_db, segment, m_segments->rowCount(),
                                                                           SegmentEditing::Renumbering::AfterSuccess);
    if (deletion != SegmentEditing::Deletion::Declined)
        resetModel();
}

void SettingsWidget::on_listViewSegments_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    on_pushButtonUpravit_2_clicked();
}

void SettingsWidget::on_comboBoxOrderLimit_currentIndexChanged(int index)
{
    if (index < 0)
        return;
    const WaitCursor cursor;
    m_settings->setOrderLimit(index);
}

bool SettingsWidget::removeAllLimits()
{
    const WaitCursor cursor;
    return m_settings->removeAllOrderableLimits() >= 0;
}

void SettingsWidget::on_cbOrderLimit_clicked(bool checked)
{
    if (!checked && !takeLimitsOff())
        return;
    const WaitCursor cursor;
    m_settings->variableSet(QStringLiteral("via_orderLimitEnabled"), checked);
}

bool SettingsWidget::takeLimitsOff()
{
    const QString title = tr("Zrušenie limitu počtu objednávok");
    const QPointer<SettingsWidget> self(this);
    const int answer = askMessage(this, QMessageBox::Warning, title,
                                  tr("Zakázaním limitu počtu objednávok sa vymažú všetky nastavené limity na jedlách v "
                                     "menu.\n\nNaozaj si to prajete?"),
                                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes && removeAllLimits())
        return true;
    if (answer == QMessageBox::Yes)
        showMessage(this, QMessageBox::Critical, title, tr("Existujúce limity sa nepodarilo vymazať!"));
    if (self)
        m_ui->cbOrderLimit->setChecked(true);
    return false;
}
