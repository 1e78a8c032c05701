// The part of MenuWidget that prints what it shows.

#include "board/menuwidget.h"
#include "exports/boardreport.h"
#include "exports/reportmonth.h"
#include "exports/titlefont.h"
#include "models/ordermodel.h"
#include "report/previewreport.h"
#include "report/rptfieldobject.h"
#include "session/sqlfailure.h"
#include "store/foodrepository.h"
#include "ui_menuwidget.h"

#include <QPointer>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardItemModel>

// Values of a printout ------------------------------------------------------------------------------------------------

void MenuWidget::setDSInfo(DataSetInfo &dsInfo)
{
    dsInfo.recordCount = m_reportModel ? m_reportModel->rowCount() : 0;
}

void MenuWidget::setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage)
{
    Q_UNUSED(reportPage)
    if (paramName == QLatin1String("header"))
        paramValue = monthlyHeader();
    else
        BoardReport::setValue(m_reportModel.get(), m_monthlyTotal, recNo, paramName, paramValue);
}

QString MenuWidget::monthlyHeader() const
{
    if (m_curGuiState == GS_ORDERS)
        return BoardReport::personHeader(m_selectedDate, m_ui->comboBoxPeople->currentText());
    const QComboBox *branches = m_ui->comboBoxBranches;
    return BoardReport::branchHeader(m_selectedDate, branches->currentIndex(), branches->currentText());
}

// Printouts -----------------------------------------------------------------------------------------------------------

void MenuWidget::on_toolButtonWeekly_clicked()
{
    // A failure's box may outlive the page. The page's own repository is missing where the database was closed.
    const QPointer<MenuWidget> self(this);
    std::unique_ptr<QAbstractItemModel> menu(
        FoodRepository(m_db, nullptr).loadWeekMenu(m_selectedDate.addDays(-3), m_branchID));
    if (!self)
        return;
    m_reportModel = std::move(menu);
    print(QStringLiteral(":/weeklymenu.xml"));
}

void MenuWidget::on_toolButtonMonthly_clicked()
{
    const bool ofPerson = m_curGuiState == GS_ORDERS;
    loadMonth(ofPerson);
    if (m_ui->actionExportToXLS->isChecked()) {
        if (ofPerson)
            monthlyExportOrderDelivToXLS(m_personID);
        else
            monthlyExportToXLS();
    } else if (ofPerson) {
        previewReport(this, QStringLiteral(":/monthlyreport.xml"), &MenuWidget::setValue, &MenuWidget::setDSInfo,
                      &MenuWidget::fitTitle);
    } else {
        print(QStringLiteral(":/branchmonthlyreport.xml"));
    }
}

void MenuWidget::loadMonth(bool ofPerson)
{
    OrderModel orders(m_db);
    const QDate from = ReportMonth::firstDay(m_selectedDate);
    const QDate to = ReportMonth::lastDay(m_selectedDate);
    m_reportModel.reset(ofPerson ? orders.personDateOrders(from, to, m_personID)
                                 : orders.branchDateOrders(from, to, m_branchID));
    m_monthlyTotal = BoardReport::monthlyTotal(*m_reportModel);
}

void MenuWidget::print(const QString &templateFile)
{
    previewReport(this, templateFile, &MenuWidget::setValue, &MenuWidget::setDSInfo);
}

void MenuWidget::fitTitle(RptFieldObject &field)
{
    if (field.name != QLatin1String("title"))
        return;
    const QString text = QString(field.value).replace(QLatin1String("[header]"), monthlyHeader());
    field.font.setPointSize(fittingPointSize(field.font, text, field.rect.width()));
}

// Host's licence ------------------------------------------------------------------------------------------------------

QString MenuWidget::getReserveCompanyName()
{
    QSqlQuery query(m_db);
    if (!query.exec(QStringLiteral("SELECT value FROM vars WHERE name = 'LCNSN'"))) {
        SqlFailure::log("MenuWidget::getReserveCompanyName()", query.lastError());
        return {};
    }
    if (!query.next())
        return {};
    // The text ends at the first zero byte.
    const QByteArray licence = QByteArray::fromBase64(query.value(0).toByteArray());
    return QString::fromUtf8(licence.constData());
}
