#include "people/peoplecomboboxdialog.h"

#include "models/peoplemodel.h"
#include "models/peopleproxymodel.h"
#include "ui_peoplecomboboxdialog.h"

#include <QItemSelectionModel>
#include <QKeyEvent>

namespace {

constexpr int nameColumn = 1;

bool movesInList(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp;
}

} // namespace

PeopleComboboxDialog::PeopleComboboxDialog(const QSqlDatabase &db, uint adminID, uint branchID, QWidget *parent)
    : QDialog(parent)
    , m_database(db)
    , m_adminID(adminID)
    , m_branchID(branchID)
    , m_ui(std::make_unique<Ui::PeopleComboboxDialog>())
    , m_people(new PeopleModel(m_database, this))
    , m_proxy(new PeopleProxyModel(this))
{
    m_ui->setupUi(this);
    m_people->tableQuery(m_adminID, m_branchID);
    m_proxy->setSourceModel(m_people);
    m_ui->listView->setModel(m_proxy);
    m_ui->listView->setModelColumn(nameColumn);
    m_ui->lineEdit->installEventFilter(this);
    connect(this, &PeopleComboboxDialog::textchanged, m_proxy, &PeopleProxyModel::textCatcher);
    QItemSelectionModel *selection = m_ui->listView->selectionModel();
    connect(selection, &QItemSelectionModel::selectionChanged, this, &PeopleComboboxDialog::itemSelection);
    // A list that gets the focus makes its first row current without selecting it. OK takes the current row, so what it
    // would take is always shown as selected.
    connect(selection, &QItemSelectionModel::currentChanged, selection, [selection](const QModelIndex &current) {
        selection->select(current, QItemSelectionModel::ClearAndSelect);
    });
}

PeopleComboboxDialog::~PeopleComboboxDialog() = default;

void PeopleComboboxDialog::setDate(QDate date)
{
    m_people->setDate(date);
    m_people->tableQuery(m_adminID, m_branchID);
    itemSelection();
}

void PeopleComboboxDialog::on_lineEdit_textChanged(const QString &arg1)
{
    emit textchanged(arg1);
    itemSelection();
}

void PeopleComboboxDialog::on_listView_activated(const QModelIndex &index)
{
    choose(index);
}

void PeopleComboboxDialog::on_pushButtonOk_clicked()
{
    choose(m_ui->listView->currentIndex());
}

void PeopleComboboxDialog::on_pushButtonCancel_clicked()
{
    close();
}

void PeopleComboboxDialog::itemSelection()
{
    m_ui->pushButtonOk->setEnabled(m_ui->listView->currentIndex().isValid());
    m_ui->pushButtonOk->setDefault(true);
}

bool PeopleComboboxDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_ui->lineEdit || !movesInList(*event))
        return QDialog::eventFilter(watched, event);
    QCoreApplication::sendEvent(m_ui->listView, event);
    return true;
}

void PeopleComboboxDialog::choose(const QModelIndex &index)
{
    const int row = m_proxy->mapToSource(index).row();
    close();
    setResult(row); // only now: closing sets the result to 0
}
