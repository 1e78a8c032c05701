#include "exports/controlsheet.h"

#include "exports/controlbook.h"
#include "exports/controllegend.h"
#include "exports/controlmonth.h"
#include "exports/controlsums.h"
#include "exports/reportmonth.h"
#include "exports/sheetparts.h"
#include "exports/sheetsetup.h"
#include "exports/sheetwriter.h"
#include "session/session.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>

namespace {

enum Column { PidColumn, NameColumn };

constexpr int legendRow = 6;
constexpr int legendLastColumn = 30;
/// Days, under them slots, under them types.
constexpr int headerRow = 9;
constexpr int lastHeaderRow = 11;
constexpr int firstPersonRow = 12;
constexpr double nameWidth = 45;

QString text(const char *source)
{
    return QCoreApplication::translate("MenuWidget", source);
}

/// One export while it is written, from top to bottom.
class ControlTable {
public:
    ControlTable(Spreadsheet::Book &book, Spreadsheet::Sheet &sheet, const ControlMonth &month)
        : m_formats(book)
        , m_writer(sheet)
        , m_month(month)
        , m_columns(month.columns())
        , m_places(month)
        , m_sums(m_columns)
    {
    }

    bool write(const QDateTime &now);

private:
    void setWidths();
    void writeTop();
    void writeLegend();
    void writeHeader();
    void writeDayHeader(int day);
    void writeSegmentHeader(int column, const QString &name);
    void writeBody();
    int rowOf(const ControlMonth::Order &order);
    int addPerson(const ControlMonth::Order &order);
    void writeSums(int segment);
    void writeSumsOfDay(int row, int day, int segment);
    void hideEmptyWeekends();
    void writeBottom(const QDateTime &now);

    const ControlBook m_formats;
    SheetWriter m_writer;
    const ControlMonth &m_month;
    const ControlColumns m_columns;
    const ControlPlaces m_places;
    ControlSums m_sums;
    int m_row = firstPersonRow; ///< the next free one
    std::vector<qint64> m_personSums; ///< by row, from the first person's
    QString m_pid; ///< of the rows in `m_rowsOfPid`
    QHash<QString, int> m_rowsOfPid; ///< by name
};

bool ControlTable::write(const QDateTime &now)
{
    setWidths();
    writeTop();
    writeHeader();
    writeBody();
    for (int segment = 0; segment < m_columns.segments(); ++segment)
        writeSums(segment);
    hideEmptyWeekends();
    writeBottom(now);
    return m_writer.isComplete();
}

void ControlTable::setWidths()
{
    m_writer.setWidth(PidColumn, PidColumn, 10);
    m_writer.setWidth(NameColumn, NameColumn, nameWidth);
    m_writer.setWidth(2, 2, 24);
    m_writer.setWidth(3, 7, 18);
    m_writer.setWidth(ControlColumns::firstOfDays, m_columns.total() - 1, ControlBook::dayColumnWidth);
    m_writer.setWidth(m_columns.total(), m_columns.total(), 6);
}

void ControlTable::writeTop()
{
    const SheetLook &look = m_formats.look;
    SheetParts::writeTitle(m_writer, look, text("Kontrolný export stravy - ") + ReportMonth::text(m_month.day),
                           m_columns.total());
    SheetParts::writeBranch(m_writer, look, m_month.branch);
    writeLegend();
    SheetParts::writeGap(m_writer, look, 7, m_columns.total());
}

void ControlTable::writeLegend()
{
    QStringList segments;
    for (const ControlMonth::Segment &segment : m_month.segments)
        segments.append(segment.name);
    QStringList types;
    for (const ControlMonth::Type &type : m_month.types)
        types.append(type.name);
    const QString legend = ControlLegend::text(segments, types);
    m_writer.text(legendRow, 0, legend, m_formats.legend);
    m_writer.merge(legendRow, legendRow, 0, legendLastColumn);
}

// Header --------------------------------------------------------------------------------------------------------------

void ControlTable::writeHeader()
{
    m_writer.setHeight(headerRow, 18);
    const Spreadsheet::Format *format = m_formats.look.header;
    m_writer.text(headerRow, PidColumn, text("ID"), format);
    m_writer.merge(headerRow, lastHeaderRow, PidColumn, PidColumn);
    m_writer.text(headerRow, NameColumn, text("Zamestnanec"), format);
    m_writer.merge(headerRow, lastHeaderRow, NameColumn, NameColumn);
    for (int day = 1; m_columns.perDay() > 0 && day <= m_columns.days(); ++day)
        writeDayHeader(day);
    m_writer.text(headerRow, m_columns.total(), text("Počet"), format);
    m_writer.merge(headerRow, lastHeaderRow, m_columns.total(), m_columns.total());
}

void ControlTable::writeDayHeader(int day)
{
    const int column = m_columns.day(day);
    m_writer.text(headerRow, column, QString::number(day) + QLatin1Char('.'),
                  m_columns.perDay() > 1 ? m_formats.look.header : m_formats.narrowHeader);
    m_writer.merge(headerRow, headerRow, column, column + m_columns.perDay() - 1);
    for (int segment = 0; segment < m_columns.segments(); ++segment)
        writeSegmentHeader(m_columns.segment(day, segment), m_month.segments.at(segment).name);
}

void ControlTable::writeSegmentHeader(int column, const QString &name)
{
    m_writer.text(headerRow + 1, column, ControlLegend::letters(name, 2), m_formats.narrowHeader);
    m_writer.merge(headerRow + 1, headerRow + 1, column, column + m_columns.types() - 1);
    for (const ControlMonth::Type &type : m_month.types)
        m_writer.text(lastHeaderRow, column++, ControlLegend::letters(type.name, 1), m_formats.narrowHeader);
}

// Body ----------------------------------------------------------------------------------------------------------------

void ControlTable::writeBody()
{
    for (const ControlMonth::Order &order : m_month.orders) {
        const int column = m_places.columnOf(order);
        if (column < 0)
            continue;
        const int row = rowOf(order);
        const double quantity = m_writer.numberAt(row, column) + order.quantity;
        m_writer.number(row, column, quantity, m_formats.number(qint64(quantity)));
        m_personSums[std::size_t(row - firstPersonRow)] += order.quantity;
        m_sums.add(column, order.quantity);
    }
    for (int row = firstPersonRow; row < m_row; ++row) {
        const qint64 sum = m_personSums[std::size_t(row - firstPersonRow)];
        m_writer.number(row, m_columns.total(), double(sum), m_formats.look.total);
    }
}

int ControlTable::rowOf(const ControlMonth::Order &order)
{
    if (order.pid != m_pid)
        m_rowsOfPid.clear();
    m_pid = order.pid;
    const auto row = m_rowsOfPid.constFind(order.personName);
    return row != m_rowsOfPid.constEnd() ? *row : addPerson(order);
}

int ControlTable::addPerson(const ControlMonth::Order &order)
{
    m_writer.text(m_row, PidColumn, order.pid, m_formats.look.cell);
    m_writer.text(m_row, NameColumn, order.personName, m_formats.look.cellLeft);
    m_writer.fill(m_row, ControlColumns::firstOfDays, m_columns.total() - 1, QString(), m_formats.look.cell);
    m_personSums.push_back(0);
    m_rowsOfPid.insert(order.personName, m_row);
    return m_row++;
}

// Sums ----------------------------------------------------------------------------------------------------------------

void ControlTable::writeSums(int segment)
{
    const QString name = ControlLegend::segmentInSums(m_month.segments.at(segment).name);
    m_writer.text(m_row, PidColumn, text("    Súčet za deň a segment - %1 :").arg(name), m_formats.look.totalLeft);
    m_writer.merge(m_row, m_row + 1, PidColumn, NameColumn);
    for (const int row : {m_row, m_row + 1})
        m_writer.fill(row, ControlColumns::firstOfDays, m_columns.total() - 1, QString(), m_formats.look.total);
    for (int day = 1; m_columns.perDay() > 0 && day <= m_columns.days(); ++day)
        writeSumsOfDay(m_row, day, segment);
    m_writer.number(m_row, m_columns.total(), double(m_sums.ofSegment(segment)), m_formats.look.total);
    m_writer.merge(m_row, m_row + 1, m_columns.total(), m_columns.total());
    m_row += 2;
}

/// Each type in its column, and under them the slot.
void ControlTable::writeSumsOfDay(int row, int day, int segment)
{
    for (int type = 0; type < m_columns.types(); ++type) {
        const qint64 sum = m_sums.ofType(day, segment, type);
        m_writer.number(row, m_columns.type(day, segment, type), double(sum), m_formats.sum(sum, 1));
    }
    const qint64 sum = m_sums.ofSegment(day, segment);
    const int column = m_columns.segment(day, segment);
    m_writer.number(row + 1, column, double(sum), m_formats.sum(sum, m_columns.types()));
    m_writer.merge(row + 1, row + 1, column, column + m_columns.types() - 1);
}

// Rest ----------------------------------------------------------------------------------------------------------------

void ControlTable::hideEmptyWeekends()
{
    for (int day = 1; day <= m_columns.days(); ++day) {
        const QDate date(m_month.day.year(), m_month.day.month(), day);
        if (m_sums.hasOrders(day) || date.dayOfWeek() <= Qt::Friday)
            continue;
        for (int column = m_columns.day(day); column < m_columns.day(day + 1); ++column) {
            if (session().debugLevel > 1)
                qDebug() << "hiding i-th col" << column;
            m_writer.hideColumn(column);
        }
    }
}

void ControlTable::writeBottom(const QDateTime &now)
{
    m_writer.setHeight(m_row, 4);
    SheetParts::writeSpacer(m_writer, m_formats.look, m_row, m_columns.total());
    m_writer.setHeight(m_row + 1, 25);
    // Without days the table ends too early for the time.
    SheetParts::writeFooter(m_writer, m_formats.look, m_row + 1, ControlColumns::firstOfDays,
                            qMax(m_columns.total(), ControlColumns::firstOfDays + 2), now);
    m_writer.setPageFooter(QStringLiteral("&P / &N"));
}

} // namespace

QString controlTitle()
{
    return text("ZEP - Kontrolný export stravy");
}

bool writeControlSheet(Spreadsheet::Book &book, const ControlMonth &month, const QDateTime &now)
{
    Spreadsheet::Sheet *sheet = beginSheet(book, controlTitle());
    return sheet && ControlTable(book, *sheet, month).write(now);
}
