#include "catalogue/dialogfood.h"

#include "models/alergenmodel.h"
#include "models/suppliermodel.h"
#include "models/typemodel.h"
#include "session/sqlfailure.h"
#include "store/alergenrepository.h"
#include "ui_dialogfood.h"
#include "widgets/deletionquestion.h"
#include "widgets/editstate.h"
#include "widgets/waitcursor.h"

#include <QBuffer>
#include <QDebug>
#include <QDoubleValidator>
#include <QFileDialog>
#include <QSqlError>
#include <QStandardItemModel>

namespace {

constexpr int keyColumn = 0; ///< of the types, suppliers and allergens
constexpr int nameColumn = 1; ///< of the types and suppliers

/// Columns of the list with check boxes.
enum CheckableColumn { TitleColumn, AlergenIdColumn };

constexpr int resultDeleted = 2;

/// A price as it is stored and shown, with a decimal point in every locale, or typed with a decimal comma.
class PriceValidator : public QDoubleValidator {
public:
    explicit PriceValidator(QObject *parent)
        : QDoubleValidator(parent)
    {
        setBottom(0);
        setDecimals(2);
        setNotation(StandardNotation);
        QLocale plain = QLocale::c();
        plain.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
        setLocale(plain);
    }

    static QString withPoint(const QString &price)
    {
        return QString(price).replace(QLatin1Char(','), QLatin1Char('.'));
    }

    State validate(QString &input, int &cursor) const override
    {
        QString price = withPoint(input);
        return QDoubleValidator::validate(price, cursor);
    }
};

/// Makes the row of this key current, or none.
void selectKey(QComboBox *box, uint key)
{
    box->setCurrentIndex(box->findData(QString::number(key), Qt::DisplayRole, Qt::MatchCaseSensitive));
}

/// The key of the current row; without one the food keeps what it has.
uint selectedKey(const QComboBox *box, const QAbstractItemModel &model, uint present)
{
    const QModelIndex key = model.index(box->currentIndex(), keyColumn);
    return key.isValid() ? key.data().toUInt() : present;
}

} // namespace

DialogFood::DialogFood(FoodRecord food, const QSqlDatabase &db, QWidget *parent)
    : QDialog(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::DialogFood>())
    , m_food(std::move(food))
    , m_suppliers(new SupplierModel(db, this))
    , m_types(new TypeModel(db, this))
    , m_alergens(new AlergenModel(db, this))
{
    m_ui->setupUi(this);
    m_ui->labelTitle->hide();
    if (!m_db.isOpen())
        return;

    if (m_suppliers->loadAllSuppliers())
        m_ui->comboBoxSupplier->setModel(m_suppliers);
    m_ui->comboBoxType->setModel(m_types);
    if (m_food.foodID == 0)
        showNewFood();
    else
        showFood();
    m_ui->lineEditPrice->setValidator(new PriceValidator(this));
    m_ui->labelCurrency->setText(QLocale().currencySymbol(QLocale::CurrencySymbol));

    m_alergens->refresh();
    m_checkableAlergens = m_alergens->checkableAlergens(m_food.foodID);
    m_checkableAlergens->setParent(this);
    m_ui->listViewAlergens->setModel(m_checkableAlergens);
    m_ui->comboBoxSupplier->setModelColumn(nameColumn);
}

DialogFood::~DialogFood() = default;

QString DialogFood::caption() const
{
    return m_typeName + QStringLiteral(" - ") + m_food.name;
}

void DialogFood::showNewFood()
{
    setEditState(this, EditState::Add);
    setWindowTitle(tr("Pridať jedlo"));
    m_ui->pushButtonDelete->hide();
    m_ui->pushButtonSave->setEnabled(false);
    m_ui->comboBoxType->setModelColumn(nameColumn);
    m_ui->lineEditPrice->setText(QStringLiteral("0"));
}

void DialogFood::showFood()
{
    // The keys are found in the column that the boxes show at first; only then they turn to the names.
    selectKey(m_ui->comboBoxType, m_food.typeID);
    m_ui->comboBoxType->setModelColumn(nameColumn);
    selectKey(m_ui->comboBoxSupplier, m_food.supplierID);
    m_ui->comboBoxSupplier->setModelColumn(nameColumn);
    m_typeName = m_ui->comboBoxType->currentText();
    setEditState(this, EditState::Edit);
    setWindowTitle(tr("Upraviť jedlo - ") + caption());
    m_ui->lineEdit->setText(m_food.name);
    showPicture();
    m_ui->plainTextEditDesc->setPlainText(m_food.description);
    m_ui->lineEditPrice->setText(QVariant(m_food.price).toString());
}

void DialogFood::showPicture()
{
    const WaitCursor cursor;
    QPixmap picture;
    if (picture.loadFromData(m_food.picture))
        m_ui->labelPixmap->setPixmap(
            picture.scaled(m_ui->labelPixmap->size(), Qt::KeepAspectRatio, Qt::FastTransformation));
    else
        m_ui->labelPixmap->clear();
}

void DialogFood::on_lineEdit_textChanged(QString arg1)
{
    m_ui->pushButtonSave->setEnabled(!arg1.isEmpty());
}

void DialogFood::on_pushButtonChoosePicture_clicked()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Vybrať obrázok"), QString(),
                                                      QStringLiteral("JPEG (*.jpg *.jpeg);;PNG (*.png)"));
    if (file.isEmpty())
        return;
    const WaitCursor cursor;
    const QPixmap picture(file);
    if (picture.isNull())
        return; // no word about it, on purpose: the picture shown stays the one that is saved
    m_pictureChosen = true;
    m_ui->labelPixmap->setPixmap(picture);
}

void DialogFood::on_pushButtonSave_clicked()
{
    readForm();
    FoodRepository foods(m_db);
    // A failure has shown its box, and the save goes on all the same, on purpose: operators know a save as one that
    // closes the dialog. The marks of a food that was refused then go to the last one of the catalogue.
    if (m_food.foodID == 0) {
        foods.addFood(m_food);
        m_food.foodID = foods.loadLastfoodID();
    } else {
        foods.updateFood(m_food);
    }
    saveAlergens();
    accept();
}

void DialogFood::readForm()
{
    m_food.name = m_ui->lineEdit->text();
    m_food.typeID = selectedKey(m_ui->comboBoxType, *m_types, m_food.typeID);
    m_food.description = m_ui->plainTextEditDesc->document()->toPlainText();
    encodePicture();
    m_food.supplierID = selectedKey(m_ui->comboBoxSupplier, *m_suppliers, m_food.supplierID);
    m_food.price = QVariant(PriceValidator::withPoint(m_ui->lineEditPrice->text())).toDouble();
}

void DialogFood::encodePicture()
{
    // The store writes a picture only with the flag, so encoding is spent on a newly chosen one alone.
    m_food.hasPicture = false;
    if (!m_pictureChosen)
        return;
    const WaitCursor cursor;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    m_food.hasPicture = m_ui->labelPixmap->pixmap(Qt::ReturnByValue).save(&buffer, "JPG");
    if (m_food.hasPicture)
        m_food.picture = bytes;
    else // half a picture must not replace the stored one
        qCritical("DialogFood - the picture cannot be stored as JPEG, food %u", m_food.foodID);
}

void DialogFood::saveAlergens()
{
    AlergenRepository repository(m_db);
    for (int row = 0; row < m_alergens->rowCount(); ++row) {
        const QVariant alergenID = m_alergens->index(row, keyColumn).data();
        // The two lists come in the order of the key, each from its own statement. One that another workstation added
        // or deleted between them must not move the marks to their neighbours, so the mark is found by the key.
        const QList<QStandardItem *> found =
            m_checkableAlergens->findItems(alergenID.toString(), Qt::MatchExactly, AlergenIdColumn);
        if (found.isEmpty())
            continue;
        if (m_checkableAlergens->item(found.first()->row(), TitleColumn)->checkState() == Qt::Checked)
            repository.addFoodAlergen(m_food.foodID, alergenID.toUInt());
        else
            repository.deleteFoodAlergen(m_food.foodID, alergenID.toUInt());
    }
}

void DialogFood::on_pushButtonCancel_clicked()
{
    close();
}

void DialogFood::on_pushButtonDelete_clicked()
{
    if (!confirmDeletion(this, tr("Zmazanie jedla!"), tr("Naozaj chcete zmazať jedlo ") + caption() + QLatin1Char('?')))
        return;
    const bool deleted = deleteWithAlergens();
    close();
    if (deleted)
        setResult(resultDeleted); // closing set it to 0
}

bool DialogFood::deleteWithAlergens()
{
    m_db.transaction(); // one that cannot start has no connection, of which the statements below tell
    AlergenRepository alergens(m_db);
    const int rows = m_checkableAlergens ? m_checkableAlergens->rowCount() : 0;
    for (int row = 0; row < rows; ++row)
        alergens.deleteFoodAlergen(m_food.foodID, m_checkableAlergens->item(row, AlergenIdColumn)->text().toUInt());
    if (!FoodRepository(m_db).deleteFood(m_food.foodID)) {
        m_db.rollback();
        return false;
    }
    if (m_db.commit())
        return true;
    SqlFailure::log("DialogFood(deleting)", m_db.lastError());
    SqlFailure::show(tr("Chyba databázy"), tr("Nepodarilo sa zmazať jedlo!"));
    return false;
}
