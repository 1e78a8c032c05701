// The part of MenuWidget that exports a month to a workbook.

#include "board/menuwidget.h"
#include "exports/branchmonthsheet.h"
#include "exports/controlmonth.h"
#include "exports/controlsheet.h"
#include "exports/personmonthsheet.h"
#include "models/monthlyoverviewmodel.h"
#include "models/segmentmodel.h"
#include "models/typemodel.h"
#include "session/sqlfailure.h"
#include "session/sqltext.h"
#include "spreadsheet/book.h"
#include "ui_menuwidget.h"
#include "widgets/messages.h"
#include "widgets/waitcursor.h"

#include <QDebug>
#include <QFileDialog>
#include <QPointer>
#include <QSqlError>
#include <QSqlQuery>

namespace {

/// Fills a new book by `write`, saves it and gives whether both went well. A failure is logged under `tag` with the
/// book's reason.
template<typename Month, typename Write>
bool saveBook(const Spreadsheet::BookPointer &book, Write write, const Month &month, const QString &fileName,
              const char *tag)
{
    const WaitCursor wait;
    const bool saved = write(*book, month, QDateTime::currentDateTime()) && book->save(fileName);
    if (!saved)
        qWarning("%s - %s", tag, book->errorMessage().toLocal8Bit().constData());
    return saved;
}

bool save(const BranchMonth &month, const QString &fileName)
{
    return saveBook(Spreadsheet::xlCreateBookA(), writeBranchMonth, month, fileName,
                    "MenuWidget::monthlyExportToXLS()");
}

bool save(const PersonMonth &month, const QString &fileName)
{
    return saveBook(Spreadsheet::xlCreateBookA(), writePersonMonth, month, fileName,
                    "MenuWidget::monthlyExportOrderDelivToXLS()");
}

bool save(const ControlMonth &month, const QString &fileName)
{
    return saveBook(Spreadsheet::xlCreateXMLBookA(), writeControlSheet, month, fileName,
                    "MenuWidget::on_toolButtonExport_clicked()");
}

} // namespace

QString MenuWidget::askWorkbookName(const QString &defaultName, const QString &filter)
{
    const QPointer<MenuWidget> self(this);
    // What QFileDialog::getSaveFileName shows, but on the heap: the page may go away, and take the dialog along.
    const QPointer<QFileDialog> dialog(new QFileDialog(this, tr("Vytlačiť zostavu do súboru"), defaultName, filter));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!self)
        return {};
    const QString fileName = accepted ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    setEnabled(true);
    return fileName;
}

// Monthly workbooks ---------------------------------------------------------------------------------------------------

void MenuWidget::monthlyExportToXLS()
{
    qDebug("*** MenuWidget::monthlyExortToXLS() ***");
    const QString fileName =
        askWorkbookName(QStringLiteral("mesacny_prehlad_objednavok.xls"), tr("XLS (*.xls);;Všetky súbory (*)"));
    if (fileName.isEmpty())
        return;
    const BranchMonth month{m_selectedDate, m_ui->comboBoxBranches->currentText(),
                            branchMonthPeople(m_reportModel.get())};
    tellMonth(save(month, fileName), branchMonthTitle(),
              tr("Mesačný výpis objednávok zamestnancov prebehol úspešne. \n%1"), fileName);
}

void MenuWidget::monthlyExportOrderDelivToXLS(int selUid)
{
    // The name of the other slot, on purpose: whoever searches the log for monthly exports finds both by one line.
    qDebug("*** MenuWidget::monthlyExortToXLS() ***");
    const QString fileName =
        askWorkbookName(QStringLiteral("mesacny_vypis_objednanej_stravy.xls"), tr("XLS (*.xls);;Všetky súbory (*)"));
    if (fileName.isEmpty())
        return;
    const PersonMonth month{m_selectedDate, tr("ID: ") + exportedPerson(selUid),
                            personMonthOrders(m_reportModel.get())};
    tellMonth(save(month, fileName), personMonthTitle(), tr("Mesačný výpis objednanej stravy prebehol úspešne. \n%1"),
              fileName);
}

void MenuWidget::tellMonth(bool saved, const QString &title, const QString &success, const QString &fileName)
{
    if (saved) {
        showMessage(this, QMessageBox::Information, title, success.arg(fileName));
        return;
    }
    // With the branch's title for a person too, on purpose: both exports fail with one and the same box.
    showMessage(this, QMessageBox::Critical, branchMonthTitle(),
                tr("Zápis do súboru \"%1\" XLS zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.")
                    .arg(fileName));
}

QString MenuWidget::exportedPerson(int uid) const
{
    QSqlQuery query(m_db);
    const bool done = query.exec(QStringLiteral("SELECT CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) name FROM "
                                                "people p WHERE p.uid=%1")
                                     .arg(uid));
    if (!done)
        SqlFailure::log("MenuWidget::monthlyExportOrderDelivToXLS()", query.lastError());
    return query.next() ? sqlText(query.value(0)) : QString();
}

// Control export ------------------------------------------------------------------------------------------------------

void MenuWidget::on_toolButtonExport_clicked()
{
    const ControlMonth month = controlMonth();
    const QString fileName =
        askWorkbookName(QStringLiteral("Kontrolný export.xlsx"), tr("XLSX (*.xlsx);;Všetky súbory (*)"));
    if (fileName.isEmpty())
        return;
    if (save(month, fileName)) {
        showMessage(this, QMessageBox::Information, controlTitle(),
                    tr("Kontrolný export stravy prebehol úspešne. \n%1").arg(fileName));
    } else {
        showMessage(this, QMessageBox::Critical, controlTitle(),
                    tr("Zápis do súboru \"%1\" zlyhal! \nSkontrolujte, či súbor nie je používaný inou aplikáciou.")
                        .arg(fileName));
    }
}

ControlMonth MenuWidget::controlMonth()
{
    const WaitCursor wait;
    if (m_monthlyOverviewModel) {
        m_monthlyOverviewModel->setDate(m_selectedDate);
        m_monthlyOverviewModel->setBranch(m_branchID);
    }
    qDebug() << "SELECTED BID v KONTROLNY EXPORT: " << m_branchID;
    ControlMonth month;
    month.day = m_selectedDate;
    month.branch = m_ui->comboBoxBranches->currentText();
    if (!m_monthlyOverviewModel)
        return month;
    m_monthlyOverviewModel->refresh();
    // Orders speak of slots by their positions of this moment.
    m_segmentModel->refresh();
    m_typeModel->refresh();
    month.segments = controlSegments(m_segmentModel);
    month.types = controlTypes(m_typeModel);
    month.orders = controlOrders(m_monthlyOverviewModel);
    // A month of a large firm is not to stay in memory as long as the page.
    m_monthlyOverviewModel->clear();
    return month;
}
