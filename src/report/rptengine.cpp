#include "report/rptengine.h"

#include "report/rptattributes.h"
#include "report/rptbandobject.h"
#include "report/rptprintstate.h"
#include "report/rptsql.h"
#include "report/rptvalues.h"
#include "report/templatecheck.h"

#include <QDebug>
#include <QFile>
#include <QPainter>
#include <QPrinter>

namespace {

/// Far more than are ever printed. A damaged number must not make the engine ask for millions of data sets.
constexpr int greatestDataSetNo = 1000;

QString withoutBrackets(QString token)
{
    return token.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
}

/// "[customers.name]" is the column "name" of the source "customers".
QString columnName(const QString &token, const RptSql &source)
{
    return withoutBrackets(token).remove(source.objectName() + QLatin1Char('.'));
}

/// What a `DataSource` element says. The record is not active: that is for those set from code.
RptSqlConnection readDataSource(const QDomElement &element)
{
    const auto attribute = [&element](const char *name) { return element.attribute(QLatin1String(name)); };
    RptSqlConnection connection;
    connection.name = attribute("name");
    connection.dbType = attribute("dbType");
    connection.dbName = attribute("dbName");
    connection.dbHost = attribute("dbHost");
    connection.dbUser = attribute("dbUser");
    connection.dbPassword = attribute("dbPassword");
    connection.dbPort = RptAttributes::number(element, "dbPort");
    connection.dbConnectionName = attribute("dbConnectionName");
    connection.sqlQuery = element.text().trimmed();
    connection.dbCoding = attribute("dbCoding");
    connection.charsetCoding = attribute("charsetCoding");
    return connection;
}

} // namespace

RptEngine::RptEngine(QObject *parent)
    : QObject(parent)
    , m_xmlDoc(QStringLiteral("Reports"))
    , m_state(std::make_unique<RptPrintState>())
    , m_text(this, &RptValues::instance(), m_state.get())
{
    qRegisterMetaType<DataSetInfo>("DataSetInfo");
}

RptEngine::~RptEngine()
{
    qDeleteAll(m_pageList);
}

bool RptEngine::loadReportFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    RptValues::instance().clear();
    QDomDocument document;
    // Parsed apart, so that a template that fails leaves the one before whole.
    if (!isTemplateSound(&file) || !file.seek(0) || !document.setContent(&file)) {
        qWarning() << "Report file not found";
        return false;
    }
    m_xmlDoc = document;
    readPages();
    return true;
}

bool RptEngine::loadReportDocument(const QDomDocument &document)
{
    m_xmlDoc = document;
    RptValues::instance().clear();
    readPages();
    return true;
}

void RptEngine::readPages()
{
    qDeleteAll(m_pageList);
    m_pageList.clear();
    m_state->pageReport = 0;
    const QString tag = QStringLiteral("Report");
    const QDomElement root = m_xmlDoc.documentElement();
    for (QDomElement child = root.firstChildElement(tag); !child.isNull(); child = child.nextSiblingElement(tag)) {
        m_pageList.append(new RptPageObject);
        m_pageList.last()->readPageElement(this, child);
    }
}

void RptEngine::rebuildPages()
{
    QList<RptSqlConnection> connections;
    for (const RptPageObject *page : qAsConst(m_pageList))
        connections.append(page->sqlConnection);
    readPages();
    for (int index = 0; index < m_pageList.size(); ++index)
        m_pageList.at(index)->sqlConnection = connections.value(index);
}

void RptEngine::setSqlConnection(int page, bool active, const QString &name, const QString &dbType,
                                 const QString &dbName, const QString &dbHost, const QString &dbUser,
                                 const QString &dbPassword, int dbPort, const QString &dbConnectionName,
                                 const QString &sqlQuery, const QString &dbCoding, const QString &charsetCoding)
{
    if (RptPageObject *definition = m_pageList.value(page))
        definition->sqlConnection = {active,     name,   dbType,           dbName,   dbHost,   dbUser,
                                     dbPassword, dbPort, dbConnectionName, sqlQuery, dbCoding, charsetCoding};
}

RptSqlConnection RptEngine::sqlConnection(int page) const
{
    const RptPageObject *definition = m_pageList.value(page);
    return definition ? definition->sqlConnection : RptSqlConnection();
}

void RptEngine::setSqlActive(int page, bool active)
{
    if (RptPageObject *definition = m_pageList.value(page))
        definition->sqlConnection.active = active;
}

void RptEngine::overrideSqlQuery(const QString &statement)
{
    m_sqlQueryOverride = statement;
}

void RptEngine::setPrinterMode(int mode)
{
    m_state->printerMode = mode;
}

bool RptEngine::setPainter(QPainter *painter)
{
    if (m_state->painter)
        return false;
    m_state->painter = painter;
    return true;
}

bool RptEngine::setPrinter(QPrinter *printer)
{
    if (m_state->printer)
        return false;
    m_state->printer = printer;
    return true;
}

int RptEngine::recordCount(int reportPage, int dataSetNo) const
{
    int count = 0;
    for (const DataSetInfo &dataSet : m_dataSetList) {
        if (dataSet.reportPage == reportPage && dataSet.dataSetNo == dataSetNo)
            count = dataSet.recordCount;
    }
    return count;
}

void RptEngine::setRecordCount(int reportPage, int dataSetNo, int count)
{
    for (DataSetInfo &dataSet : m_dataSetList) {
        if (dataSet.reportPage == reportPage && dataSet.dataSetNo == dataSetNo)
            dataSet.recordCount = count;
    }
}

QString RptEngine::expandText(const RptBandObject *band, const QString &text, bool expressionMode, bool firstPass,
                              const QString &formatString)
{
    return m_text.expandText(band, text, expressionMode, firstPass, formatString);
}

bool RptEngine::fieldIsPrinted(const RptFieldObject &field)
{
    return m_text.fieldIsPrinted(field);
}

QVariant RptEngine::highlightValue(const RptFieldObject &field, RptAspect aspect)
{
    return m_text.highlightValue(field, aspect);
}

void RptEngine::collectDataSets(int pageIndex)
{
    const RptPageObject *page = m_pageList.at(pageIndex);
    const int greatest = page->bandCount(Rpt::MasterData);
    if (greatest > greatestDataSetNo)
        qWarning() << "Too many data sets:" << greatest;
    for (int number = 1; number <= qMin(greatest, greatestDataSetNo); ++number) {
        const RptBandObject *band = page->findBand(Rpt::MasterData, number);
        DataSetInfo dataSet;
        dataSet.dataSetName = band ? band->dataSourceName : QString();
        dataSet.reportPage = pageIndex;
        dataSet.dataSetNo = number;
        emit setDSInfo(dataSet);
        m_dataSetList.append(dataSet);
    }
}

/// Two oddities are kept on purpose, since templates are laid out for them. A data source of the template is looked for
/// by the definition's place among all children of the root, `Script` elements and comments included. And it serves the
/// page definition that was printed before, the first one for the first two.
void RptEngine::openDataSource(int pageIndex)
{
    RptPageObject *page = m_pageList.at(pageIndex);
    if (page->sqlConnection.active && !page->sqlConnection.sqlQuery.isEmpty()) {
        page->sqlSource = openSql(page->sqlConnection);
        return;
    }
    const QDomElement source = m_xmlDoc.documentElement().childNodes().item(pageIndex).toElement().firstChildElement(
        QStringLiteral("DataSource"));
    // The type "XML" is known to the format and has no effect.
    if (source.attribute(QStringLiteral("type")) != QLatin1String("SQL"))
        return;
    const RptSqlConnection connection = readDataSource(source);
    if (!connection.sqlQuery.isEmpty())
        m_pageList.at(m_state->pageReport)->sqlSource = openSql(connection);
}

RptSql *RptEngine::openSql(const RptSqlConnection &connection)
{
    auto *source = new RptSql(connection, this);
    source->setObjectName(connection.name);
    const QString statement = m_sqlQueryOverride.isEmpty() ? connection.sqlQuery : m_sqlQueryOverride;
    source->openQuery(statement, connection.dbCoding, connection.charsetCoding);
    return source;
}

RptSql *RptEngine::sqlSource() const
{
    const RptPageObject *page = m_pageList.value(m_state->pageReport);
    return page ? page->sqlSource : nullptr;
}

RptTokenValue RptEngine::tokenValue(const QString &token)
{
    RptTokenValue result;
    if (RptSql *source = sqlSource()) {
        result.isFromSql = true;
        result.isNamed = token.contains(source->objectName());
        if (result.isNamed)
            result.text = source->fieldValue(columnName(token, *source), m_state->recNo);
        return result;
    }
    QVariant value;
    emit setValue(m_state->recNo, withoutBrackets(token), value, m_state->pageReport);
    result.text = value.toString();
    return result;
}

QImage RptEngine::userImage(const QString &token)
{
    QImage image;
    emit setValueImage(m_state->recNo, withoutBrackets(token), image, m_state->pageReport);
    return image;
}

QImage RptEngine::databaseImage(const QString &token)
{
    RptSql *source = sqlSource();
    return source ? source->fieldImage(columnName(token, *source), m_state->recNo) : QImage();
}
