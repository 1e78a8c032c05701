// The part of MenuWidget that follows its selectors: week, mode, person and branch.

#include "board/cardgrid.h"
#include "board/menuwidget.h"
#include "board/weekarrows.h"
#include "board/weeklist.h"
#include "exports/reportmonth.h"
#include "models/peoplemodel.h"
#include "people/peoplecomboboxdialog.h"
#include "ui_menuwidget.h"

#include <QDebug>
#include <QMessageBox>
#include <QPointer>
#include <QSignalBlocker>
#include <QStandardItemModel>

namespace {

constexpr int wholeWeek = 7;

} // namespace

// Weeks ---------------------------------------------------------------------------------------------------------------

void MenuWidget::on_comboBox_currentIndexChanged(int index)
{
    qDebug() << "MenuWidget::on_comboBox_currentIndexChanged()" << index;
    m_selectedDate = WeekList::thursdayAt(m_today, m_shownWeeks, index);
    resetModel();
    if (m_cards)
        m_cards->invalidate();
    enableArrows(arrowsInList(index, m_ui->comboBox->count()));
    refreshPeopleWeekChange();
    filterChanged();
}

void MenuWidget::on_toolButtonR_clicked()
{
    if (m_ui->comboBox->currentIndex() > 0)
        m_ui->comboBox->setCurrentIndex(m_ui->comboBox->currentIndex() - 1);
}

void MenuWidget::on_toolButtonL_clicked()
{
    if (m_ui->comboBox->currentIndex() + 1 < m_ui->comboBox->count())
        m_ui->comboBox->setCurrentIndex(m_ui->comboBox->currentIndex() + 1);
}

QDate MenuWidget::recreateDateFromComboBoxWeek()
{
    return WeekList::mondayFromText(m_ui->comboBox->currentText());
}

void MenuWidget::enableArrows(const WeekArrows &arrows)
{
    m_ui->toolButtonL->setEnabled(arrows.older);
    m_ui->toolButtonR->setEnabled(arrows.newer);
}

void MenuWidget::refreshPeopleWeekChange()
{
    qDebug() << "MenuWidget::refreshPeopleWeekChange() ~BEGIN~";
    // In both modes the same words, although on_radioButton_toggled sets others for GS_MENU: kept on purpose.
    setMonthlyCaption(tr("obj. stravy"), QStringLiteral("  "));
    if (m_curGuiState == GS_ORDERS)
        refreshPeople();
    else if (m_cards)
        m_cards->enableAll();
    qDebug() << "MenuWidget::refreshPeopleWeekChange() ~END~";
}

void MenuWidget::refreshPeople()
{
    const QDate monday = recreateDateFromComboBoxWeek();
    if (isEmployed(monday, wholeWeek))
        keepPersonInWeek(monday);
    else if (m_personID > 0)
        leavePersonOutOfWeek(monday);
    else if (m_personID == 0)
        loadPeopleOfWeek(monday);
}

void MenuWidget::keepPersonInWeek(QDate monday)
{
    const QString name = m_ui->comboBoxPeople->currentText();
    loadPeopleOfWeek(monday);
    {
        const QSignalBlocker people(m_ui->comboBoxPeople);
        m_ui->comboBoxPeople->setCurrentText(name);
    }
    // As a rule it is the same person, whose menu is there already.
    const int row = m_ui->comboBoxPeople->currentIndex();
    if (personInRow(row) != m_personID)
        on_comboBoxPeople_currentIndexChanged(row);
    disableWidgetsForEmployeeOutsideWorkingHours();
    m_ui->toolButtonMonthly->setEnabled(true);
}

void MenuWidget::leavePersonOutOfWeek(QDate monday)
{
    disableWidgetsForEmployeeOutsideWorkingHours();
    m_ui->toolButtonMonthly->setEnabled(false);
    const QPointer<QMessageBox> box(
        new QMessageBox(QMessageBox::Information, tr("Objednávky stravy"),
                        tr("Zamestnanec \"%1\" je mimo pracovného pomeru.\nVyberte prosím iného zamestnanca, alebo "
                           "týždeň \nv rozsahu pracovného pomeru: %2")
                            .arg(m_ui->comboBoxPeople->currentText(), m_peopleModel->workingPeriodText(m_personID)),
                        QMessageBox::Ok, this));
    box->setTextFormat(Qt::PlainText);
    box->exec();
    if (!box)
        return;
    delete box;
    loadPeopleOfWeek(monday);
    on_comboBoxPeople_currentIndexChanged(-1);
}

void MenuWidget::loadPeopleOfWeek(QDate monday)
{
    if (!m_peopleModel)
        return;
    m_peopleWeek = monday;
    m_peopleModel->setDate(monday);
    loadPeople();
}

void MenuWidget::loadPeople()
{
    // A combo box selects the first row by itself when its model is reset, or no row, as the version of Qt has it. Were
    // that told, the menu would be loaded for people whom nobody chose.
    const QSignalBlocker people(m_ui->comboBoxPeople);
    m_peopleModel->tableQuery(m_adminID, m_branchID);
    m_ui->comboBoxPeople->setCurrentIndex(-1);
}

void MenuWidget::loadPeopleAndSelectFirst()
{
    const bool hadPerson = m_ui->comboBoxPeople->currentIndex() >= 0;
    loadPeople();
    m_ui->comboBoxPeople->setCurrentIndex(0);
    if (hadPerson && m_ui->comboBoxPeople->currentIndex() < 0)
        on_comboBoxPeople_currentIndexChanged(-1);
}

bool MenuWidget::isEmployed(QDate day, int days) const
{
    return day.isValid() && m_peopleModel && m_peopleModel->isInWorkingPeriod(m_personID, day, days);
}

void MenuWidget::disableWidgetsForEmployeeOutsideWorkingHours()
{
    if (m_curGuiState != GS_ORDERS)
        return;
    qDebug() << "MenuWidget::disableWidgetsForEmployeeOutsideWorkingHours()";
    if (!m_cards || m_cards->rows() == 0)
        return;
    const QDate dayBefore = recreateDateFromComboBoxWeek().addDays(-1);
    EmployedDays employed{};
    for (std::size_t day = 0; day < employed.size(); ++day)
        employed[day] = isEmployed(dayBefore.addDays(int(day)), 1);
    for (int column = 0; column < CardGrid::columns; ++column)
        m_cards->setDayEnabled(column, employed[std::size_t(column) + 1]);
    enableArrows(arrowsInEmployment(employed, m_ui->comboBox->currentIndex() == m_ui->comboBox->count() - 1));
}

// Modes, people and branches ------------------------------------------------------------------------------------------

void MenuWidget::on_radioButton_toggled(bool checked)
{
    qDebug() << "MenuWidget::on_radioButton_toggled() ::: rezim menu aktivny:" << checked;
    m_curGuiState = checked ? GS_MENU : GS_ORDERS;
    setPersonWidgetsVisible(!checked);
    m_ui->toolButtonExport->setVisible(checked);
    m_ui->toolButtonWeekly->setVisible(checked);
    if (checked)
        showMenu();
    else
        showOrders();
    filterChanged();
}

void MenuWidget::showMenu()
{
    setMonthlyCaption(tr("objednávok"), QStringLiteral(" "));
    m_personID = -1;
    if (m_cards)
        m_cards->setPerson(m_personID);
    resetModel();
    if (m_cards)
        m_cards->enableAll();
    enableArrows({});
    m_ui->toolButtonMonthly->setEnabled(true);
}

void MenuWidget::showOrders()
{
    setMonthlyCaption(tr("obj. stravy"), QString());
    if (m_peopleModel)
        loadPeopleAndSelectFirst();
}

void MenuWidget::setPersonWidgetsVisible(bool visible)
{
    m_ui->comboBoxPeople->setVisible(visible);
    m_ui->linePeople->setVisible(visible);
    m_ui->personIconLabel->setVisible(visible);
    m_ui->toolButton->setVisible(visible);
}

void MenuWidget::setMonthlyCaption(const QString &what, const QString &ending)
{
    m_ui->toolButtonMonthly->setText(tr("Mesačný výpis %1: %2").arg(what, ReportMonth::text(m_selectedDate) + ending));
}

int MenuWidget::personInRow(int row) const
{
    return m_peopleModel ? m_peopleModel->index(row, KeyColumn).data().toInt() : 0;
}

void MenuWidget::on_comboBoxPeople_currentIndexChanged(int index)
{
    if (m_curGuiState == GS_ORDERS) {
        m_personID = personInRow(index);
        if (m_cards)
            m_cards->setPerson(m_personID);
        resetModel();
    }
    filterChanged();
    disableWidgetsForEmployeeOutsideWorkingHours();
    if (index >= 0)
        m_ui->toolButtonMonthly->setEnabled(true);
}

void MenuWidget::on_toolButton_clicked()
{
    const QPointer<PeopleComboboxDialog> dialog(new PeopleComboboxDialog(m_db, m_adminID, m_branchID, this));
    // The result is a row: both lists must be of one week.
    dialog->setDate(m_peopleWeek);
    const int row = dialog->exec();
    if (!dialog)
        return;
    delete dialog;
    m_ui->comboBoxPeople->setCurrentIndex(row);
}

void MenuWidget::on_comboBoxBranches_currentIndexChanged(int index)
{
    m_branchID = m_branchList ? m_branchList->index(index, KeyColumn).data().toUInt() : 0;
    if (m_curGuiState == GS_ORDERS && m_peopleModel && m_peopleModel->rowCount() > 0)
        loadPeopleAndSelectFirst();
    resetModel();
    filterChanged();
}
