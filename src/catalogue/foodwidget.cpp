#include "catalogue/foodwidget.h"

#include "catalogue/csvrow.h"
#include "catalogue/dialogalergen.h"
#include "catalogue/dialogfood.h"
#include "catalogue/dialogtype.h"
#include "catalogue/foodexport.h"
#include "catalogue/foodimport.h"
#include "models/alergenmodel.h"
#include "models/foodmodel.h"
#include "models/foodproxymodel.h"
#include "models/segmentmodel.h"
#include "models/suppliermodel.h"
#include "models/typemodel.h"
#include "session/session.h"
#include "ui_foodwidget.h"
#include "widgets/enterkey.h"
#include "widgets/execdialog.h"
#include "widgets/images.h"
#include "widgets/messages.h"
#include "widgets/waitcursor.h"

#include <QDebug>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLocale>
#include <QPointer>
#include <QShortcut>
#include <QTextCodec>
#include <QTextStream>

namespace {

constexpr int keyColumn = 0;
constexpr int typeNameColumn = 1;
constexpr int positionColumn = 2;
const QSize pictureSize(480, 240);

} // namespace

FoodWidget::FoodWidget(const QSqlDatabase &db, QWidget *parent)
    : QWidget(parent)
    , m_db(db)
    , m_ui(std::make_unique<Ui::FoodWidget>())
    , m_foodRepository(db)
    , m_supplierRepository(db)
{
    m_ui->setupUi(this);
    m_ui->pushButton->setIcon(imageIcon("file_export.png"));
    m_ui->pushButton_2->setIcon(imageIcon("file_import.png"));
    if (m_db.isOpen())
        openCatalogue();
    else
        showNoConnection();
    if (session().readOnly) {
        const QList<QWidget *> editing{m_ui->pushButtonFood, m_ui->pushButtonEdit, m_ui->pushButtonType,
                                       m_ui->pushButton_2};
        for (QWidget *button : editing)
            button->setEnabled(false);
    }
}

FoodWidget::~FoodWidget() = default;

void FoodWidget::openCatalogue()
{
    m_foodModel = new FoodModel(m_db, this);
    m_foodModel->refresh();
    m_foodProxy = new FoodProxyModel(this);
    m_typeModel = new TypeModel(m_db, this);
    m_supplierModel = new SupplierModel(m_db, this);
    m_alergenModel = new AlergenModel(m_db, this);
    m_segmentModel = new SegmentModel(m_db, this);
    if (m_supplierRepository.loadLastSupplierID() == 0) {
        m_ui->pushButtonFood->setEnabled(false);
        m_ui->pushButtonFood->setToolTip(tr("Najprv vytvorte dodávatela."));
    }
    setUpViews();
    connectViews();
    m_ui->labelPicture->resize(pictureSize);
    tableViewTypeSelection();
}

void FoodWidget::setUpViews()
{
    m_foodProxy->setSourceModel(m_foodModel);
    m_foodProxy->setSortLocaleAware(true);
    m_foodProxy->setDynamicSortFilter(true);
    m_ui->tableViewFood->setModel(m_foodProxy);
    m_ui->tableViewFood->horizontalHeader()->hide();
    m_ui->tableViewType->setModel(m_typeModel);
    m_ui->tableViewType->verticalHeader()->hide();
    m_ui->tableViewType->setColumnHidden(keyColumn, true);
    m_ui->tableViewType->setColumnHidden(positionColumn, true);
}

void FoodWidget::connectViews()
{
    connect(this, &FoodWidget::typechanged, m_foodProxy, &FoodProxyModel::typeCatcher);
    connect(this, &FoodWidget::textchanged, m_foodProxy, &FoodProxyModel::textCatcher);
    connect(m_ui->tableViewType->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FoodWidget::tableViewTypeSelection);
    connect(m_ui->tableViewFood->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FoodWidget::tableViewFoodSelection);
    connect(this, &FoodWidget::typechanged, this, &FoodWidget::tableViewFoodSelection);
    connect(m_ui->tableViewType->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this] { emit typechanged(); });

    auto *allTypes = new QShortcut(Qt::Key_Escape, m_ui->tableViewType);
    allTypes->setContext(Qt::WidgetShortcut);
    connect(allTypes, &QShortcut::activated, this, [this] { emit typechanged(); });
    onEnter(m_ui->tableViewType, [this] { on_tableViewType_doubleClicked(m_ui->tableViewType->currentIndex()); });
    onEnter(m_ui->tableViewFood, [this] { on_tableViewFood_doubleClicked(m_ui->tableViewFood->currentIndex()); });
}

void FoodWidget::showNoConnection()
{
    setEnabled(false);
    m_ui->labelTitle->setText(tr("Pripojenie na databázu zlyhalo!"));
    m_ui->labelPicture->setText(QStringLiteral(" "));
    m_ui->labelSupplier->clear();
    m_ui->labelPrice->clear();
    // There are no lists to work on; nothing that happens to the widgets may reach the slots.
    const QList<QWidget *> widgets = findChildren<QWidget *>();
    for (QWidget *widget : widgets)
        widget->disconnect(this);
}

void FoodWidget::on_pushButtonAlergens_clicked()
{
    const QPointer<FoodWidget> page(this);
    execDialog<DialogAlergen>(m_db, this);
    if (page)
        tableViewFoodSelection();
}

void FoodWidget::on_pushButtonEdit_clicked()
{
    const QPointer<FoodWidget> page(this);
    const int result = execDialog<DialogFood>(m_foodRepository.loadFood(m_foodID), m_db, this);
    qDebug() << "result" << result;
    if (!page)
        return;
    if (result > 0) {
        const uint edited = m_foodID;
        reloadFoods();
        if (result != QDialog::Accepted)
            tableViewFoodSelection();
        else
            selectFood(edited);
    }
    setFoodPreview(m_foodRepository.loadFood(m_foodID));
}

void FoodWidget::on_pushButtonFood_clicked()
{
    if (execDialog<DialogFood>(FoodRecord(), m_db, this) < 1)
        return;
    reloadFoods();
    m_foodID = m_foodRepository.loadLastfoodID();
    setFoodPreview(m_foodRepository.loadFood(m_foodID));
}

void FoodWidget::reloadFoods()
{
    m_foodModel->refresh();
    m_foodProxy->invalidate();
}

/// Keeps the operator's place in the list over a reload. A food that the filter hides stays unselected.
void FoodWidget::selectFood(uint foodID)
{
    const QModelIndexList found =
        m_foodModel->match(m_foodModel->index(0, keyColumn), Qt::DisplayRole, foodID, 1, Qt::MatchExactly);
    if (found.isEmpty())
        return;
    const QModelIndex food = m_foodProxy->mapFromSource(found.first().siblingAtColumn(FoodModel::Name));
    if (food.isValid())
        m_ui->tableViewFood->setCurrentIndex(food);
}

void FoodWidget::on_searchFilter_textChanged(QString arg1)
{
    emit textchanged(arg1);
    tableViewFoodSelection();
}

void FoodWidget::on_pushButtonType_clicked()
{
    if (!session().readOnly)
        editType(0);
}

void FoodWidget::on_tableViewType_doubleClicked(QModelIndex index)
{
    if (!session().readOnly)
        editType(index.siblingAtColumn(keyColumn).data().toInt());
}

void FoodWidget::editType(int typeID)
{
    const QPointer<FoodWidget> page(this);
    execDialog<DialogType>(m_db, this, typeID);
    if (page)
        reloadTypes();
}

/// A reload takes the selection away. The filtered type is selected again, so that list and filter agree; a type that
/// is gone gives way to all types.
void FoodWidget::reloadTypes()
{
    const QVariant typeID = m_ui->tableViewType->currentIndex().siblingAtColumn(keyColumn).data();
    m_typeModel->refresh();
    if (!typeID.isValid())
        return;
    const QModelIndexList found =
        m_typeModel->match(m_typeModel->index(0, keyColumn), Qt::DisplayRole, typeID, 1, Qt::MatchExactly);
    if (found.isEmpty())
        tableViewTypeSelection();
    else
        m_ui->tableViewType->setCurrentIndex(found.first().siblingAtColumn(typeNameColumn));
}

void FoodWidget::tableViewTypeSelection()
{
    emit typechanged(m_ui->tableViewType->currentIndex().siblingAtColumn(keyColumn).data().toInt());
}

void FoodWidget::tableViewFoodSelection()
{
    QModelIndex food = m_ui->tableViewFood->currentIndex();
    // A current food can be edited in a read-only session too; see the class.
    m_ui->pushButtonEdit->setEnabled(food.isValid());
    if (!food.isValid())
        food = m_foodProxy->index(0, 0);
    m_foodID = m_foodProxy->mapToSource(food).siblingAtColumn(keyColumn).data().toUInt();
    setFoodPreview(m_foodRepository.loadFood(m_foodID));
}

void FoodWidget::setFoodPreview(FoodRecord food)
{
    m_ui->labelTitle->setText(food.name);
    QPixmap picture;
    if (!food.picture.isNull() && picture.loadFromData(food.picture))
        m_ui->labelPicture->setPixmap(picture.scaled(m_ui->labelPicture->size(), Qt::KeepAspectRatio));
    else
        m_ui->labelPicture->clear();
    m_ui->labelSupplier->setText(m_supplierRepository.loadSupplier(food.supplierID).name);
    QString description = food.description;
    const QStringList alergens = m_alergenModel->loadFoodAlergens(food.foodID);
    if (!alergens.isEmpty())
        description += tr("\n\nAlergény: \n") + QStringLiteral("- ") + alergens.join(QStringLiteral("\n- "));
    m_ui->plainTextEditDescription->setPlainText(description);
    m_ui->labelPrice->setText(QLocale().toCurrencyString(food.price));
}

void FoodWidget::on_tableViewFood_doubleClicked(QModelIndex index)
{
    Q_UNUSED(index)
    if (!session().readOnly)
        on_pushButtonEdit_clicked();
}

void FoodWidget::on_pushButton_clicked()
{
    if (session().debugLevel != 0)
        qDebug() << "FoodWidget::jedla()";
    const FoodExport::Table table = FoodExport::loadTable();
    if (table.error.isValid()) {
        qCritical("foodwidget::export jedal - SQl ERROR: %s", table.error.text().toLocal8Bit().constData());
        showMessage(this, QMessageBox::Critical, tr("Export jedál"),
                    tr("Zlyhalo načítanie dát z databázy!\n\nSQL chyba: %1").arg(table.error.text()));
        return;
    }
    if (!write(table.rows)) {
        showMessage(this, QMessageBox::Critical, tr("Strava - Export jedál"),
                    tr("Export sa nepodarilo uložiť do súboru!"));
        return;
    }
    const int foods = table.rows.size() - 1;
    qDebug() << "Export úspešný, počet exportovaných záznamov: " << foods;
    showMessage(this, QMessageBox::Information, tr("Strava - Export jedál"),
                tr("Export prebehol úspešne. \n Počet zapísaných záznamov: %1").arg(foods));
}

bool FoodWidget::write(QList<QStringList> table)
{
    qDebug() << "csv in progress";
    const QString fileName = QFileDialog::getSaveFileName(this, tr("Súbor CSV pre export"), QStringLiteral("jedla.csv"),
                                                          tr("Súbory CSV (*.csv)"));
    qDebug() << fileName;
    return !fileName.isEmpty() && FoodExport::writeFile(fileName, table);
}

void FoodWidget::on_pushButton_2_clicked()
{
    m_supplierModel->loadAllSuppliers();
    const QString fileName = QFileDialog::getOpenFileName(this, tr("Súbor CSV pre import"), QStringLiteral("jedla.csv"),
                                                          tr("Súbory CSV (*.csv)"));
    QFile file(fileName);
    // A cancelled question and a file that cannot be opened are a stream without records: the summary counts nothing.
    if (!fileName.isEmpty())
        file.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream in(&file);
    in.setCodec(QTextCodec::codecForLocale());
    FoodImport foodImport(m_db, *m_supplierModel, *m_typeModel, m_foodModel, m_segmentModel);
    {
        const WaitCursor wait;
        foodImport.run(in);
    }
    file.close();
    showMessage(this, QMessageBox::Information, tr("Strava - Import jedál"), foodImport.summary());
}

bool FoodWidget::readCSVRow(QTextStream &in, QStringList *row)
{
    return Csv::readRow(in, row);
}
