#include "board/daymenuwidget.h"

#include "board/cardstate.h"
#include "board/dialogcopymenuofday.h"
#include "board/dialogfoodorders.h"
#include "board/dialogmenu.h"
#include "board/menudelegate.h"
#include "board/orderdialog.h"
#include "exports/cardreport.h"
#include "models/daymenuproxymodel.h"
#include "models/peoplemodel.h"
#include "report/previewreport.h"
#include "session/menucolumns.h"
#include "session/session.h"
#include "store/orderablerepository.h"
#include "ui_daymenuwidget.h"
#include "widgets/enterkey.h"
#include "widgets/execdialog.h"
#include "widgets/images.h"

#include <QDebug>
#include <QEvent>
#include <QLocale>

namespace {

/// Columns of the table, as the filter of the day numbers them.
enum TableColumn { NameColumn, TotalColumn, LimitColumn };

constexpr int narrowColumnWidth = 30;
constexpr int headerHeight = 25;
constexpr int rowPadding = 6;
/// A card's least width, in average characters: room for a date and the longest name of a day.
constexpr int leastWidth = 31;

/// Pixels of a card beside its rows, header and sum: the line of buttons with its margins, and the title above it.
constexpr int heightWithoutTitle = 40;
constexpr int heightWithTitle = 62;
constexpr int emptyTitleHeight = 7;
constexpr int heightReserve = 4;

const char evenDayBorderless[] = "border: 0px;";
const char evenDayTable[] = "background-color:#DADADA; border: 0px solid #003366;";
const char evenDayBody[] = "QWidget#widgetDayMenu{border: 1px solid #B3D8FF; border-radius: 2px; background: #E6F2FF;}";
const char evenDayButton[] =
    "*{border: 1px solid #292929; border-radius: 2px; background: #464646;} :hover {background-color: "
    "qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 #5a5a5a, stop: 0.49 #5a5a5a, stop: 0.51 #464646, stop: 1 "
    "#464646);} :disabled {background-color: lightgray; border-color: darkgray;}:pressed {background-color: #00b5d5; "
    "border-color: #0090a9;}QToolButton QToolTip { color: white;}";

/// A button lays itself out anew for every image it is given, the same one included.
void showImage(QToolButton *button, const QIcon &image)
{
    if (button->icon().cacheKey() != image.cacheKey())
        button->setIcon(image);
}

} // namespace

DayMenuWidget::DayMenuWidget(QDate date, const QString &segmentName, unsigned segmentID, int personID, unsigned adminID,
                             unsigned branchID, const QSqlDatabase &db, QAbstractItemModel *model, QWidget *parent)
    : QWidget(parent)
    , m_db(db)
    , m_segmentID(segmentID)
    , m_personID(personID)
    , m_adminID(adminID)
    , m_branchID(branchID)
    , m_segmentName(segmentName)
    , m_ui(std::make_unique<Ui::DayMenuWidget>())
    , m_delegate(new MenuDelegate(this))
    , m_proxy(new DayMenuProxyModel(this))
    , m_peopleModel(new PeopleModel(db, this))
    , m_sourceModel(model)
    , m_lockedImage(imageIcon("locked2.png"))
    , m_unlockedImage(imageIcon("unlocked.png"))
    , m_finalReportImage(imageIcon("finalreport.png"))
    , m_partialReportImage(imageIcon("partialreport.png"))
{
    m_ui->setupUi(this);
    setUpImages();
    m_ui->labelSegment->setText(QLatin1Char(' ') + segmentName);
    m_ui->labelSegment->setToolTip(QStringLiteral("<span>%1</span>").arg(segmentName.toHtmlEscaped()));
    setDate(date);
    m_ui->labelday->setText(QLocale().toString(date, QStringLiteral("dddd ")));
    m_proxy->setSegment(segmentID);
    setUpTable();
    if (date.day() % 2 == 0)
        setUpStyle();
}

DayMenuWidget::~DayMenuWidget() = default;

void DayMenuWidget::setUpImages()
{
    m_ui->toolButCopy->setIcon(imageIcon("content_copy.png"));
    m_ui->toolButtonPersonReport->setIcon(imageIcon("personreport.png"));
    m_ui->toolButtonMenuReport->setIcon(m_finalReportImage);
    m_ui->toolButtonOrder->setIcon(imageIcon("sidebar/orders3.png"));
    m_ui->toolButtonLock->setIcon(m_unlockedImage);
    m_ui->toolButEdit->setIcon(imageIcon("pencil.png"));
}

void DayMenuWidget::setUpTable()
{
    QTableView *table = m_ui->tableView;
    table->setItemDelegate(m_delegate);
    table->setModel(m_proxy);
    table->horizontalHeader()->setFixedHeight(headerHeight);
    table->setAccessibleName(m_segmentName);
    fitToFont();
    table->installEventFilter(this);
    onEnter(table, [this] { on_tableView_doubleClicked(m_ui->tableView->currentIndex()); });
}

void DayMenuWidget::setUpStyle()
{
    QPalette palette = m_ui->labelSegment->palette();
    palette.setColor(QPalette::WindowText, QColor(0, 51, 102));
    m_ui->labelSegment->setPalette(palette);
    m_ui->labelSegment->setStyleSheet(QLatin1String(evenDayBorderless));
    m_ui->TitleWidget->setStyleSheet(QLatin1String(evenDayBorderless));
    m_ui->tableView->setStyleSheet(QLatin1String(evenDayTable));
    m_ui->widgetDayMenu->setStyleSheet(QLatin1String(evenDayBody));
    for (QToolButton *button : {m_ui->toolButEdit, m_ui->toolButtonLock, m_ui->toolButtonOrder,
                                m_ui->toolButtonMenuReport, m_ui->toolButtonPersonReport})
        button->setStyleSheet(QLatin1String(evenDayButton));
}

void DayMenuWidget::setDate(QDate date)
{
    m_date = date;
    m_ui->labeldate->setText(date.toString(QStringLiteral("d. M. yyyy")));
}

void DayMenuWidget::setPerson(int personID)
{
    if (m_personID != personID)
        m_personName.reset();
    m_personID = personID;
}

void DayMenuWidget::setBranch(unsigned branchID)
{
    m_branchID = branchID;
}

void DayMenuWidget::setOrderLimitEnabled(bool enabled)
{
    m_orderLimitEnabled = enabled;
    m_proxy->setOrderLimitEnabled(enabled);
}

void DayMenuWidget::setMenuModel(QAbstractItemModel *model)
{
    m_lock = 0;
    m_sourceModel = model;
    // The filter's values come first: the rows are then filtered once, when the table asks for them.
    m_proxy->setDate(m_date);
    m_proxy->setPerson(m_personID);
    if (m_proxy->sourceModel() == model)
        m_proxy->invalidate();
    else
        m_proxy->setSourceModel(model);
    QHeaderView *header = m_ui->tableView->horizontalHeader();
    if (header->count() > NameColumn)
        header->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    for (int column = TotalColumn; column < header->count(); ++column)
        header->resizeSection(column, narrowColumnWidth);
    setButtonState();
    setHeight();
    emit heightchanged();
}

void DayMenuWidget::setLabel(const QString &text)
{
    if (text == QLatin1String("~default~")) {
        m_ui->labelday->show();
        return;
    }
    m_ui->labelday->hide();
    m_ui->labeldate->setText(text);
    m_ui->labeldate->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
}

void DayMenuWidget::setTitleHidden(bool hide)
{
    m_ui->labelday->setHidden(hide);
    m_ui->labeldate->setHidden(hide);
    m_ui->TitleWidget->setHidden(hide);
}

int DayMenuWidget::preferredHeight() const
{
    // The hint of a hidden title would still count its copy button.
    const bool hasTitle = !m_ui->TitleWidget->isHidden() && m_ui->TitleWidget->sizeHint().height() > emptyTitleHeight;
    return (hasTitle ? heightWithTitle : heightWithoutTitle) + m_ui->tableView->verticalHeader()->length()
        + m_ui->tableView->horizontalHeader()->minimumSectionSize() + heightReserve + m_ui->sumWidget->height();
}

void DayMenuWidget::setHeight()
{
    m_ui->tableView->setFixedHeight(m_ui->tableView->verticalHeader()->length() + headerHeight);
}

void DayMenuWidget::setLock(int mylock)
{
    if (m_lock != 2)
        m_lock = mylock;
    showImage(m_ui->toolButtonLock, m_lock > 0 ? m_lockedImage : m_unlockedImage);
}

void DayMenuWidget::setReport(bool myreport)
{
    m_report = myreport;
    showImage(m_ui->toolButtonMenuReport, myreport ? m_finalReportImage : m_partialReportImage);
}

void DayMenuWidget::setButtonState()
{
    CardState state;
    state.lock = m_lock == 2 ? 2 : 0;
    readItems(state);
    const qint64 sum = shownSum();
    state.hasOrders = sum > 0;
    state.past = m_date < QDate::currentDate();
    state.personSelected = m_personID != -1;
    state.readOnly = session().readOnly;
    setLock(state.lock);
    m_ui->labelSumOrders->setText(QString::number(sum));
    apply(cardButtons(state));
}

void DayMenuWidget::readItems(CardState &state) const
{
    if (!m_sourceModel)
        return;
    const QString segment = QString::number(m_segmentID);
    const QString date = m_date.toString(Qt::ISODate);
    const auto text = [this](int row, int column) { return m_sourceModel->index(row, column).data().toString(); };
    const int rows = m_sourceModel->rowCount();
    for (int row = 0; row < rows; ++row) {
        if (text(row, MenuColumn::SegmentId) != segment || text(row, MenuColumn::Date) != date)
            continue;
        state.hasItems = true;
        state.lock = foldedLock(state.lock, text(row, MenuColumn::Locked).toInt());
    }
}

qint64 DayMenuWidget::shownSum() const
{
    qint64 sum = 0;
    const int rows = m_proxy->rowCount();
    for (int row = 0; row < rows; ++row)
        sum += qMax<qint64>(0, m_proxy->index(row, TotalColumn).data().toLongLong());
    return sum;
}

void DayMenuWidget::apply(const CardButtons &buttons)
{
    setReport(buttons.finalReport);
    m_ui->toolButEdit->setEnabled(buttons.editEnabled);
    m_ui->toolButtonLock->setEnabled(buttons.lockEnabled);
    m_ui->toolButCopy->setEnabled(buttons.copyEnabled);
    m_ui->toolButtonOrder->setEnabled(buttons.orderEnabled);
    for (QToolButton *button : {m_ui->toolButEdit, m_ui->toolButtonLock, m_ui->toolButtonMenuReport, m_ui->toolButCopy})
        button->setVisible(buttons.menuActionsShown);
    for (QToolButton *button : {m_ui->toolButtonOrder, m_ui->toolButtonPersonReport})
        button->setHidden(buttons.menuActionsShown);
    m_ui->tableView->setColumnHidden(TotalColumn, !buttons.totalShown);
    m_ui->tableView->setColumnHidden(LimitColumn, !buttons.limitShown);
    m_ui->sumWidget->setVisible(buttons.totalShown);
}

void DayMenuWidget::on_toolButtonLock_clicked()
{
    if (m_lock == 2)
        return;
    setLock(m_lock == 0 ? 1 : 0);
    OrderableRepository(m_db, nullptr).updateLock(m_date, m_segmentID, m_branchID, m_lock != 0);
    emit resetmodel();
}

void DayMenuWidget::on_toolButEdit_clicked()
{
    if (execDialog<DialogMenu>(m_date, m_segmentID, m_branchID, m_segmentName, m_db, m_orderLimitEnabled, this) != 0)
        emit resetmodel();
}

void DayMenuWidget::on_toolButtonOrder_clicked()
{
    const int result = execDialog<OrderDialog>(m_db, m_segmentID, m_segmentName, m_date, unsigned(m_personID),
                                               m_adminID, m_branchID, this);
    if (result == QDialog::Accepted)
        emit resetmodel();
}

void DayMenuWidget::on_toolButCopy_clicked()
{
    execDialog<DialogCopyMenuOfDay>(m_branchID, m_date, m_db, this);
}

void DayMenuWidget::on_tableView_doubleClicked(QModelIndex index)
{
    if (m_personID != -1 || !index.isValid() || !m_sourceModel)
        return;
    const int row = m_proxy->mapToSource(index).row();
    if (m_sourceModel->index(row, MenuColumn::FoodId).data().toUInt() == 0)
        return;
    const unsigned orderableID = m_sourceModel->index(row, MenuColumn::OrderableId).data().toUInt();
    qDebug() << "Creating DialogFoodOrders of orderableID:" << orderableID;
    execDialog<DialogFoodOrders>(m_db, orderableID, this);
}

void DayMenuWidget::setDSInfo(DataSetInfo &dsInfo)
{
    dsInfo.recordCount = m_proxy->rowCount();
}

void DayMenuWidget::setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage)
{
    Q_UNUSED(reportPage)
    if (paramName == QLatin1String("header"))
        paramValue = reportHeader();
    else
        CardReport::setValue(*m_proxy, recNo, paramName, paramValue);
}

QString DayMenuWidget::reportHeader()
{
    if (m_personID == -1)
        return CardReport::menuHeader(m_date, m_segmentName, m_report);
    return CardReport::personHeader(m_date, m_segmentName, personName());
}

QString DayMenuWidget::personName()
{
    if (!m_personName)
        m_personName = m_peopleModel->personName(m_personID);
    return *m_personName;
}

void DayMenuWidget::on_toolButtonPersonReport_clicked()
{
    // A failure's box may outlive the card.
    const QPointer<DayMenuWidget> self(this);
    const QString name = m_personID == -1 ? QString() : m_peopleModel->personName(m_personID);
    if (!self)
        return;
    m_personName = name;
    previewReport(this, QStringLiteral(":/personreport.xml"), &DayMenuWidget::setValue, &DayMenuWidget::setDSInfo);
}

void DayMenuWidget::on_toolButtonMenuReport_clicked()
{
    // The dispatch of the cell's orders to the suppliers comes here.
}

bool DayMenuWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->tableView && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        fitToFont();
    return QWidget::eventFilter(watched, event);
}

void DayMenuWidget::fitToFont()
{
    QHeaderView *rows = m_ui->tableView->verticalHeader();
    const int rowHeight = m_ui->tableView->fontMetrics().height() + rowPadding;
    if (rows->defaultSectionSize() == rowHeight)
        return;
    setMinimumWidth(leastWidth * m_ui->tableView->fontMetrics().averageCharWidth());
    rows->setDefaultSectionSize(rowHeight);
    setHeight();
    emit heightchanged();
}
