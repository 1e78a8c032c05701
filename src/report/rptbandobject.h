#pragma once

#include <QList>
#include <QString>

class QDebug;
class QDomElement;
class RptEngine;
class RptFieldObject;
class RptPageObject;

/// One band of a page definition, with its fields, which it owns. Lengths are template units.
class RptBandObject {
public:
    RptBandObject() = default;
    ~RptBandObject();
    Q_DISABLE_COPY(RptBandObject)

    /// Takes everything from a `ReportBand` element; what it lacks becomes 0 or empty, and 1 as `bandNo`. Every child
    /// element is a field, whatever its tag. `engine` is kept as `report` of the band and of its fields.
    void readBandElement(RptEngine *engine, const QDomElement &element);
    /// The first field of that name, or null.
    RptFieldObject *findFieldByName(const QString &fieldName) const;
    /// Takes a field, and sets its links to this band and to its engine.
    void addField(RptFieldObject *field);
    /// A new band, the caller's, called "ReportTitle" whatever this one's name, with this one's declared height, type
    /// and engine, and clones of the fields. Nothing else is copied; that is so on purpose.
    RptBandObject *clone() const;

    QString name;
    QString groupingField; ///< of a group header: the expression whose value makes the groups
    bool showInGroup = false; ///< header, footer and aggregates keep to the group
    bool startNewPage = false; ///< of a group header: each group after the first starts a page
    bool restartLineNumbers = false; ///< no attribute sets it
    int height = 0; ///< in force for the current record; grows with `autoHeight`
    int realHeight = 0; ///< as declared
    int width = 0;
    int left = 0;
    int right = 0;
    int type = 0; ///< `Rpt::BandType`, 0 for an unknown name
    int bandNo = 1; ///< number of the data set; 1 to 5 are printed
    QString dataSourceName;
    QList<RptFieldObject *> fieldList;
    RptPageObject *parentReportPage = nullptr;
    RptEngine *report = nullptr;
};

/// "ReportTitle [first, second]": the band's name and its fields, for diagnosis.
QDebug operator<<(QDebug stream, const RptBandObject &band);
