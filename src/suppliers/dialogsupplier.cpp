#include "suppliers/dialogsupplier.h"

#include "models/suppliermodel.h"
#include "suppliers/dialogpromails.h"
#include "suppliers/listcontent.h"
#include "suppliers/mailaddress.h"
#include "ui_dialogsupplier.h"
#include "widgets/deletionquestion.h"
#include "widgets/editstate.h"
#include "widgets/enterkey.h"
#include "widgets/execdialog.h"
#include "widgets/savebutton.h"

#include <QDebug>
#include <QPointer>
#include <QStandardItemModel>

namespace {

/// Columns of the two lists.
enum ListColumn { KeyColumn, TextColumn, ColumnCount };

constexpr int addressRole = Qt::UserRole + 1;

QStandardItem *mailItem(const QString &mail)
{
    auto *item = new QStandardItem(mail);
    item->setEditable(false);
    return item;
}

} // namespace

DialogSupplier::DialogSupplier(SupplierRecord supplier, const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_supplier(std::move(supplier))
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogSupplier>())
    , m_repository(new SupplierRepository(db, this))
    , m_supplierModel(new SupplierModel(db, this))
{
    m_ui->setupUi(this);
    m_ui->plainTextEditDesc->setStyleSheet(QStringLiteral("background-color: white"));
    showContent(m_ui->listViewSupplierMails, new QStandardItemModel(0, ColumnCount), TextColumn);
    showContent(m_ui->listViewOdosielanie, new QStandardItemModel(0, ColumnCount), TextColumn);
    showRecord();
    watchName();
    // Else Enter in a list would go on to the default button and save.
    onEnter(m_ui->listViewSupplierMails, [this] { on_pushButtonUpravit_clicked(); });
    onEnter(m_ui->listViewOdosielanie, [this] { on_pushButtonUpravitOdosielanie_clicked(); });
    if (m_db.isOpen()) {
        loadSupplierMails();
        loadSupplierTimes();
    }
    mailSelection();
    timeSelection();
}

DialogSupplier::~DialogSupplier() = default;

void DialogSupplier::showRecord()
{
    const bool isNew = m_supplier.supplierID == 0;
    setEditState(this, isNew ? EditState::Add : EditState::Edit);
    m_ui->pushButtonDelete->setDisabled(isNew);
    // A sending time needs a supplier that is saved.
    QWidget *const timeWidgets[] = {m_ui->listViewOdosielanie, m_ui->pushButtonPridatOdosielanie,
                                    m_ui->pushButtonZmazatOdosielanie, m_ui->pushButtonUpravitOdosielanie,
                                    m_ui->labelOdosielanie};
    for (QWidget *widget : timeWidgets)
        widget->setHidden(isNew);
    if (isNew) {
        setWindowTitle(tr("Pridať dodávateľa"));
        return;
    }
    setWindowTitle(tr("Upraviť dodávateľa - ") + m_supplier.name);
    m_ui->lineEditName->setText(m_supplier.name);
    m_ui->plainTextEditDesc->setPlainText(m_supplier.description);
    m_ui->lineEditShortcut->setText(m_supplier.shortcut);
    m_ui->timeEdit->setTime(m_supplier.deadline);
    m_ui->spinBox->setValue(int(m_supplier.daysto));
}

void DialogSupplier::readRecord()
{
    m_supplier.name = m_ui->lineEditName->text();
    m_supplier.description = m_ui->plainTextEditDesc->toPlainText();
    m_supplier.deadline = m_ui->timeEdit->time();
    m_supplier.shortcut = m_ui->lineEditShortcut->text();
    m_supplier.daysto = uint(m_ui->spinBox->value());
}

void DialogSupplier::watchName()
{
    const auto offer = [this](const QString &name) {
        offerSave(m_ui->pushButtonSave, m_ui->pushButtonCancel, !name.isEmpty());
    };
    connect(m_ui->lineEditName, &QLineEdit::textChanged, this, offer);
    offer(m_ui->lineEditName->text());
}

void DialogSupplier::mailSelection()
{
    const bool isCurrent = m_ui->listViewSupplierMails->currentIndex().isValid();
    m_ui->pushButtonUpravit->setEnabled(isCurrent);
    m_ui->pushButtonZmazat->setEnabled(isCurrent);
}

void DialogSupplier::timeSelection()
{
    const bool isCurrent = m_ui->listViewOdosielanie->currentIndex().isValid();
    m_ui->pushButtonUpravitOdosielanie->setEnabled(isCurrent);
    m_ui->pushButtonZmazatOdosielanie->setEnabled(isCurrent);
}

void DialogSupplier::loadSupplierMails()
{
    showContent(m_ui->listViewSupplierMails, m_supplierModel->loadSupplierMails(m_supplier.supplierID), TextColumn);
    connect(m_ui->listViewSupplierMails->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DialogSupplier::mailSelection);
}

void DialogSupplier::loadSupplierTimes()
{
    showContent(m_ui->listViewOdosielanie, m_supplierModel->loadSupplierTimes(m_supplier.supplierID), TextColumn);
    connect(m_ui->listViewOdosielanie->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DialogSupplier::timeSelection);
}

void DialogSupplier::on_pushButtonPridat_clicked()
{
    const QString mail = askMailAddress(this, tr("Pridanie emailu dodávateľa"), tr("Email: "));
    if (mail.isEmpty())
        return;
    const QList<QStandardItem *> row{mailItem(mail), mailItem(mail)};
    row.first()->setData(mail, addressRole);
    qobject_cast<QStandardItemModel *>(m_ui->listViewSupplierMails->model())->appendRow(row);
}

void DialogSupplier::on_pushButtonUpravit_clicked()
{
    const QPersistentModelIndex current = m_ui->listViewSupplierMails->currentIndex();
    if (!current.isValid())
        return;
    const QString mail = askMailAddress(this, tr("Úprava emailu dodávateľa"), tr("Email: "), current.data().toString());
    if (!mail.isEmpty())
        m_ui->listViewSupplierMails->model()->setData(current, mail, Qt::EditRole);
}

void DialogSupplier::on_listViewSupplierMails_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    on_pushButtonUpravit_clicked();
}

void DialogSupplier::on_pushButtonZmazat_clicked()
{
    const QPersistentModelIndex current = m_ui->listViewSupplierMails->currentIndex();
    if (!current.isValid())
        return;
    if (!confirmDeletion(this, tr("Zmazanie mailu dodávateľa!"),
                         tr("Naozaj chcete zmazať mail ") + current.data().toString() + QLatin1Char('?')))
        return;
    m_ui->listViewSupplierMails->model()->removeRow(current.row());
    mailSelection();
}

void DialogSupplier::editTime(uint proMailDelayID)
{
    SupplierTime time;
    time.proMailDelayID = proMailDelayID;
    time.supplierID = m_supplier.supplierID;
    const QPointer<DialogSupplier> alive(this);
    execDialog<DialogProMails>(m_db, &time, this);
    if (!alive)
        return;
    loadSupplierTimes();
    timeSelection();
}

void DialogSupplier::on_pushButtonPridatOdosielanie_clicked()
{
    editTime(0);
}

void DialogSupplier::on_pushButtonUpravitOdosielanie_clicked()
{
    const QModelIndex current = m_ui->listViewOdosielanie->currentIndex();
    if (!current.isValid())
        return;
    const uint proMailDelayID = current.siblingAtColumn(KeyColumn).data().toUInt();
    qDebug() << "proEmailDelayID: " << proMailDelayID;
    editTime(proMailDelayID);
}

void DialogSupplier::on_pushButtonZmazatOdosielanie_clicked()
{
    const QModelIndex current = m_ui->listViewOdosielanie->currentIndex();
    if (!current.isValid())
        return;
    const int proMailDelayID = current.siblingAtColumn(KeyColumn).data().toInt();
    const QPointer<DialogSupplier> alive(this);
    const bool confirmed =
        confirmDeletion(this, tr("Zmazanie času odosielania mailu dodávateľovi!"),
                        tr("Naozaj chcete zmazať čas ") + current.data().toString() + QLatin1Char('?'));
    if (!alive)
        return;
    if (confirmed)
        m_repository->deleteTime(proMailDelayID);
    loadSupplierTimes();
    timeSelection();
}

void DialogSupplier::addMails()
{
    const QAbstractItemModel &mails = *m_ui->listViewSupplierMails->model();
    for (int row = 0; row < mails.rowCount(); ++row)
        m_repository->addSupplierMail(m_supplier.supplierID, mails.index(row, TextColumn).data().toString());
}

void DialogSupplier::on_pushButtonSave_clicked()
{
    readRecord();
    if (m_supplier.supplierID == 0) {
        const bool added = m_repository->addSupplier(m_supplier);
        const uint lastID = m_repository->loadLastSupplierID();
        // After a failure the last supplier is somebody else, who must not get these mails.
        m_supplier.supplierID = added ? lastID : 0;
    } else {
        m_repository->updateSupplier(m_supplier);
        m_repository->deleteSupplierMails(m_supplier.supplierID);
    }
    addMails();
    closeWith(Saved);
}

void DialogSupplier::on_pushButtonCancel_clicked()
{
    closeWith(Cancelled);
}

void DialogSupplier::on_pushButtonDelete_clicked()
{
    const bool deleted = m_repository->deleteSupplier(m_supplier);
    closeWith(deleted ? Deleted : Cancelled);
}

// Closing rejects the dialog, which takes the result with it.
void DialogSupplier::closeWith(int result)
{
    close();
    setResult(result);
}
