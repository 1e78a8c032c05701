#pragma once

#include "report/rptengine.h"

#include <QDomDocument>
#include <QHash>
#include <QString>

/// Templates written in a few words, and an engine that answers for its caller.

/// A field of a band: text in a box.
inline QString label(const QString &value, int left = 0, int top = 0, int width = 200, int height = 20,
                     const QString &more = QString())
{
    QString text = value;
    text.replace(QLatin1Char('&'), QLatin1String("&amp;")).replace(QLatin1Char('<'), QLatin1String("&lt;"));
    text.replace(QLatin1Char('"'), QLatin1String("&quot;"));
    return QStringLiteral(
               "<TContainerField type=\"label\" value=\"%1\" left=\"%2\" top=\"%3\" width=\"%4\" height=\"%5\" "
               "fontSize=\"9\" fontFamily=\"DejaVu Sans\" fontColor=\"rgba(0,0,0,255)\" "
               "backgroundColor=\"rgba(255,255,255,255)\" borderTop=\"rgba(255,255,255,255)\" "
               "borderBottom=\"rgba(255,255,255,255)\" borderLeft=\"rgba(255,255,255,255)\" "
               "borderRight=\"rgba(255,255,255,255)\" textWrap=\"0\" ")
               .arg(text)
               .arg(left)
               .arg(top)
               .arg(width)
               .arg(height)
        + more + QStringLiteral("/>");
}

inline QString band(const QString &type, int height, const QString &fields, const QString &more = QString())
{
    return QStringLiteral("<ReportBand type=\"%1\" height=\"%2\" ").arg(type).arg(height) + more + QLatin1Char('>')
        + fields + QStringLiteral("</ReportBand>");
}

/// A page definition of A4 with margins of 40 units.
inline QString page(const QString &bands, const QString &more = QString())
{
    return QStringLiteral("<Report pageWidth=\"840\" pageHeight=\"1188\" marginsLeft=\"40\" marginsRight=\"40\" "
                          "marginsTop=\"40\" marginsBottom=\"40\" ")
        + more + QLatin1Char('>') + bands + QStringLiteral("</Report>");
}

/// An engine with a template and a caller: data sets have the counts of `counts` by number, a token's value is
/// `values` of its name, with "%1" as the record's number.
class ReportRun : public QObject {
public:
    explicit ReportRun(const QString &pages)
    {
        QDomDocument document;
        QString error;
        if (!document.setContent(QStringLiteral("<Reports lib=\"RptEngine\">") + pages + QStringLiteral("</Reports>"),
                                 &error))
            qFatal("the template of the test is not XML: %s", qPrintable(error));
        engine.loadReportDocument(document);
        connect(&engine, &RptEngine::setDSInfo, this,
                [this](DataSetInfo &info) { info.recordCount = counts.value(info.dataSetNo); });
        connect(&engine, &RptEngine::setValue, this,
                [this](int record, const QString &name, QVariant &value, int /*page*/) {
                    if (values.contains(name))
                        value = values.value(name).contains(QLatin1String("%1")) ? values.value(name).arg(record)
                                                                                 : values.value(name);
                    if (lists.contains(name))
                        value = lists.value(name).value(record);
                });
    }

    RptEngine engine;
    QHash<int, int> counts;
    QHash<QString, QString> values;
    QHash<QString, QStringList> lists; ///< by record
};
