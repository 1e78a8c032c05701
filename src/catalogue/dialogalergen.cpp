#include "catalogue/dialogalergen.h"

#include "catalogue/dialogaddalergen.h"
#include "models/alergenmodel.h"
#include "session/session.h"
#include "ui_dialogalergen.h"
#include "widgets/deletionquestion.h"
#include "widgets/execdialog.h"

#include <QPointer>

namespace {

constexpr int keyColumn = 0;
constexpr int titleColumn = 1;

} // namespace

DialogAlergen::DialogAlergen(const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogAlergen>())
    , m_repository(db)
    , m_alergens(new AlergenModel(db, this))
{
    m_ui->setupUi(this);
    m_ui->labelTitle->hide();
    m_ui->listViewAlergens->setModel(m_alergens);
    connect(m_ui->listViewAlergens->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DialogAlergen::itemSelection);
    m_ui->pushButtonPridat->setEnabled(!session().readOnly);
    resetModel();
}

DialogAlergen::~DialogAlergen() = default;

void DialogAlergen::resetModel()
{
    m_alergens->refresh();
    m_ui->listViewAlergens->setModelColumn(titleColumn); // a model without columns, as before a load, does not take it
    showNone();
}

void DialogAlergen::showNone()
{
    m_alergenID = 0;
    m_title.clear();
    m_ui->plainTextEditAlergens->clear();
    m_ui->pushButtonUpravit->setEnabled(false);
    m_ui->pushButtonZmazat->setEnabled(false);
    m_ui->pushButtonPridat->setDefault(true);
}

void DialogAlergen::itemSelection()
{
    // Not the current row: under the keyboard the selection changes before it does.
    const QModelIndexList selected = m_ui->listViewAlergens->selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        showNone();
        return;
    }
    const QModelIndex row = selected.first();
    m_alergenID = row.siblingAtColumn(keyColumn).data().toUInt();
    m_title = row.siblingAtColumn(titleColumn).data().toString();
    if (m_alergenID != 0 && !session().readOnly) {
        m_ui->pushButtonZmazat->setEnabled(true);
        m_ui->pushButtonUpravit->setEnabled(true);
        m_ui->pushButtonUpravit->setDefault(true);
    }
    m_ui->plainTextEditAlergens->setPlainText(m_repository.loadAlergen(m_alergenID).description);
}

void DialogAlergen::on_pushButtonPridat_clicked()
{
    edit(0);
}

void DialogAlergen::on_pushButtonUpravit_clicked()
{
    edit(m_alergenID);
}

void DialogAlergen::edit(unsigned alergenID)
{
    const QPointer<DialogAlergen> self(this);
    execDialog<DialogAddAlergen>(alergenID, m_db, this);
    if (!self)
        return;
    resetModel();
    itemSelection();
}

void DialogAlergen::on_pushButtonZmazat_clicked()
{
    if (!confirmDeletion(this, tr("Zmazanie Alergénu!"),
                         tr("Naozaj chcete zmazať alergén ") + m_title + QLatin1Char('?')))
        return;
    m_repository.deleteAlergen(m_alergenID);
    resetModel();
}
