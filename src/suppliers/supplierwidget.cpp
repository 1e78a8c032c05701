#include "suppliers/supplierwidget.h"

#include "models/branchmodel.h"
#include "models/suppliermodel.h"
#include "session/session.h"
#include "store/supplierrepository.h"
#include "suppliers/dialogsupplier.h"
#include "suppliers/listcontent.h"
#include "suppliers/mailaddress.h"
#include "ui_supplierwidget.h"
#include "widgets/deletionquestion.h"
#include "widgets/execdialog.h"

#include <QDebug>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTime>

namespace {

/// Columns of the lists of branches and of mails.
enum ListColumn { KeyColumn, NameColumn };

uint keyOf(const QModelIndex &index)
{
    return index.siblingAtColumn(KeyColumn).data().toUInt();
}

} // namespace

SupplierWidget::SupplierWidget(const QSqlDatabase &db, uint adminID, QWidget *parent)
    : QWidget(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::SupplierWidget>())
    , m_branchModel(new BranchModel(db, adminID, this))
    , m_supplierModel(new SupplierModel(db, this))
    , m_repository(new SupplierRepository(db, this))
    , m_suppliers(new QStandardItemModel(0, SupplierModel::CheckableCount, this))
    , m_savedSuppliers(std::make_unique<QStandardItemModel>(0, SupplierModel::CheckableCount))
{
    m_ui->setupUi(this);
    if (m_db.isOpen())
        loadLists();
    QWidget *const editors[] = {m_ui->pushButton, m_ui->pushButtonPridat_2, m_ui->pushButtonUpravit_2,
                                m_ui->pushButtonZmazat_2, m_ui->pushButton_3};
    for (QWidget *editor : editors)
        editor->setDisabled(session().readOnly);
}

SupplierWidget::~SupplierWidget() = default;

void SupplierWidget::loadLists()
{
    QStandardItemModel *branches = m_branchModel->adminBranches();
    showContent(m_ui->listViewBranches, branches, NameColumn);
    showContent(m_ui->listViewSuppliers, m_suppliers, SupplierModel::Name);
    connect(m_ui->listViewBranches->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SupplierWidget::listViewBranchesSelection);
    watchClicks();
    // The first branch brings its suppliers along, and the first of those, the remembered row, becomes current.
    if (branches->rowCount() > 0)
        m_ui->listViewBranches->setCurrentIndex(branches->index(0, NameColumn));
}

void SupplierWidget::listViewBranchesSelection()
{
    const QModelIndex branch = m_ui->listViewBranches->currentIndex();
    m_bid = keyOf(branch);
    m_ui->labelBranch->setText(branch.data().toString());
    loadBranchMails();
    loadSuppliers();
    showSuppliers();
}

void SupplierWidget::loadBranchMails()
{
    showContent(m_ui->listViewBranchMails, m_supplierModel->loadBranchMails(m_bid), NameColumn);
}

void SupplierWidget::loadSuppliers()
{
    if (m_suppliers != m_ui->listViewSuppliers->model())
        delete m_suppliers;
    m_suppliers = m_supplierModel->checkableSuppliers(m_bid);
    m_suppliers->setParent(this);
    m_savedSuppliers.reset(m_supplierModel->checkableSuppliers(m_bid));
}

void SupplierWidget::showSuppliers()
{
    showContent(m_ui->listViewSuppliers, m_suppliers, SupplierModel::Name);
    if (m_row < m_suppliers->rowCount())
        m_ui->listViewSuppliers->setCurrentIndex(m_suppliers->index(m_row, SupplierModel::Name));
    listViewSuppliersSelection();
    connect(m_ui->listViewSuppliers->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SupplierWidget::listViewSuppliersSelection);
    // The space bar sets a mark without a click. The list is still at work on it, so the answer waits.
    connect(m_suppliers, &QStandardItemModel::itemChanged, this, &SupplierWidget::catchKeyboardCheck,
            Qt::QueuedConnection);
}

void SupplierWidget::listViewSuppliersSelection()
{
    const QModelIndex supplier = m_ui->listViewSuppliers->currentIndex();
    const auto cell = [&supplier](int column) { return supplier.siblingAtColumn(column).data(); };
    if (supplier.isValid())
        m_row = supplier.row();
    m_supplierID = cell(SupplierModel::SupplierId).toUInt();
    m_ui->labelSupplierName->setText(supplier.data().toString());
    m_ui->plainTextEditDescription->setPlainText(cell(SupplierModel::Description).toString());
    showContent(m_ui->listViewSupplierEmails, m_supplierModel->loadSupplierMails(m_supplierID), NameColumn);
    m_ui->labelShortcut->setText(cell(SupplierModel::Shortcut).toString());
    m_ui->labelDeadline->setText(cell(SupplierModel::Deadline).toTime().toString(QStringLiteral("h:mm")));
    m_ui->labelDaysto->setText(cell(SupplierModel::DaysTo).toString());
    showContent(m_ui->listViewSupplierTimes, m_supplierModel->loadSupplierTimes(m_supplierID), NameColumn);
}

void SupplierWidget::watchClicks()
{
    m_clicked = connect(m_ui->listViewSuppliers, &QAbstractItemView::clicked, this, &SupplierWidget::updateCheck);
}

void SupplierWidget::updateCheck()
{
    disconnect(m_clicked);
    m_clicked = {};
    QScrollBar *bar = m_ui->listViewSuppliers->verticalScrollBar();
    const int scrolled = bar->value();
    if (writeChecks()) {
        showSuppliers();
        bar->setValue(scrolled);
    } else {
        listViewSuppliersSelection();
    }
    watchClicks();
}

bool SupplierWidget::isCheckChanged(int row) const
{
    const QModelIndex shown = m_suppliers->index(row, SupplierModel::Name);
    const QModelIndex saved = m_savedSuppliers->index(row, SupplierModel::Name);
    // The state as saved is a list of its own, which may have failed to load or have met another workstation's change.
    return keyOf(shown) == keyOf(saved) && shown.data(Qt::CheckStateRole) != saved.data(Qt::CheckStateRole);
}

bool SupplierWidget::writeChecks()
{
    bool changed = false;
    for (int row = 0; row < m_suppliers->rowCount(); ++row) {
        if (!isCheckChanged(row))
            continue;
        const QModelIndex supplier = m_suppliers->index(row, SupplierModel::Name);
        const uint supplierID = keyOf(supplier);
        if (supplier.data(Qt::CheckStateRole) == Qt::Checked)
            m_repository->addSupplierBranch(supplierID, m_bid);
        else
            m_repository->deleteSupplierBranch(supplierID, m_bid);
        qDebug() << "adding supplier:" << supplierID << "to branch:" << m_bid;
        // The walk goes on against the state as it is now, so a failed change is not tried again.
        loadSuppliers();
        changed = true;
    }
    return changed;
}

void SupplierWidget::catchKeyboardCheck()
{
    // While marks are being written, what is left to compare belongs to the walk.
    if (!m_clicked)
        return;
    for (int row = 0; row < m_suppliers->rowCount(); ++row) {
        if (isCheckChanged(row)) {
            updateCheck();
            return;
        }
    }
}

void SupplierWidget::on_pushButton_clicked()
{
    if (execDialog<DialogSupplier>(SupplierRecord(), m_db, this) != DialogSupplier::Saved)
        return;
    m_row = m_suppliers->rowCount();
    listViewBranchesSelection();
}

void SupplierWidget::on_pushButton_3_clicked()
{
    if (m_supplierID == 0)
        return;
    qDebug() << m_supplierID;
    const SupplierRecord supplier = m_repository->loadSupplier(m_supplierID);
    if (supplier.supplierID == 0) { // deleted by another workstation, or not to be read
        listViewBranchesSelection();
        return;
    }
    const int result = execDialog<DialogSupplier>(supplier, m_db, this);
    if (result == 0)
        return;
    if (result == DialogSupplier::Deleted)
        m_row = 0;
    listViewBranchesSelection();
}

void SupplierWidget::on_pushButtonPridat_2_clicked()
{
    const QString mail = askMailAddress(this, tr("Pridanie kontrolného emailu"), tr("Email: "));
    if (mail.isEmpty())
        return;
    m_repository->addBranchMail(m_bid, mail);
    loadBranchMails();
}

void SupplierWidget::on_pushButtonUpravit_2_clicked()
{
    const QModelIndex current = m_ui->listViewBranchMails->currentIndex();
    if (!current.isValid())
        return;
    const uint branchMailID = keyOf(current);
    const QString mail =
        askMailAddress(this, tr("Úprava kontrolného emailu"), tr("Email: "), current.data().toString());
    if (mail.isEmpty())
        return;
    m_repository->editBranchMail(branchMailID, mail);
    loadBranchMails();
}

void SupplierWidget::on_pushButtonZmazat_2_clicked()
{
    const QModelIndex current = m_ui->listViewBranchMails->currentIndex();
    if (!current.isValid())
        return;
    const uint branchMailID = keyOf(current);
    if (!confirmDeletion(this, tr("Zmazanie kontrolného mailu!"),
                         tr("Naozaj chcete zmazať mail ") + current.data().toString() + QLatin1Char('?')))
        return;
    m_repository->deleteBranchMail(branchMailID);
    loadBranchMails();
}

void SupplierWidget::on_listViewSuppliers_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    if (!session().readOnly)
        on_pushButton_3_clicked();
}

void SupplierWidget::on_listViewBranchMails_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    if (!session().readOnly)
        on_pushButtonUpravit_2_clicked();
}
