#pragma once

#include <QColor>
#include <QList>
#include <QPixmap>
#include <QString>

class QDebug;
class QDomElement;
class RptBandObject;
class RptEngine;
class RptFieldObject;
class RptSql;

/// Where the records of a page definition come from, if not from the caller.
struct RptSqlConnection {
    bool active = false; ///< whether this record is used instead of the template's own data source
    QString name; ///< of the source; tokens carry it: "[customers.name]"
    QString dbType; ///< name of the Qt driver
    QString dbName;
    QString dbHost;
    QString dbUser;
    QString dbPassword;
    int dbPort = 0; ///< 0 for the driver's default
    QString dbConnectionName; ///< empty for the application's default connection, which is then replaced
    QString sqlQuery;
    QString dbCoding; ///< character set for MySQL's "set names"
    QString charsetCoding; ///< becomes the process's locale codec
};

/// One page definition of a template: paper, frame, watermark and its bands, which it owns. Lengths are template units,
/// a quarter of a millimetre; `pageWidth` 840 and `pageHeight` 1188 are an A4 sheet.
class RptPageObject {
public:
    RptPageObject() = default;
    ~RptPageObject();
    RptPageObject &operator=(const RptPageObject &) = delete;

    /// Takes everything from a `Report` element; what it lacks becomes 0 or empty (the watermark's opacity 0.5), not
    /// what a new object has. `engine` is kept as `report` of the page, of its bands and of their fields.
    void readPageElement(RptEngine *engine, const QDomElement &element);
    /// The greatest `bandNo` of the bands of a type, 0 without any.
    int bandCount(int type) const;
    /// The first band of that type and number, or null.
    RptBandObject *findBand(int type, int bandNo) const;
    /// The first field of that name, in the order of bands and fields, or null.
    RptFieldObject *findFieldByName(const QString &fieldName) const;
    /// Takes a band, and sets its links to this page and to its engine.
    void addBand(RptBandObject *band);
    /// A new page, the caller's, with the same values and clones of the bands. What `RptBandObject::clone` leaves out
    /// is missing there too.
    RptPageObject *clone() const;

    int pageNo = 0; ///< kept; pages print in the order of the file
    int orientation = 0; ///< 0 portrait, 1 landscape
    int pageHeight = 1188;
    int pageWidth = 840;
    int marginsLeft = 40;
    int marginsRight = 40;
    int marginsTop = 40;
    int marginsBottom = 40;
    bool border = false; ///< a frame around the page
    int borderWidth = 1; ///< factor of the pen's width
    QColor borderColor = Qt::black;
    QString borderStyle = QStringLiteral("solid");
    bool watermark = false;
    double watermarkOpacity = 1.0;
    QPixmap watermarkPixmap;
    QList<RptBandObject *> bandList;
    int recordCount = 0;
    RptSql *sqlSource = nullptr; ///< null without an SQL source; a child of the engine
    RptSqlConnection sqlConnection;
    RptEngine *report = nullptr;

private:
    RptPageObject(const RptPageObject &) = default; ///< the bands too: for `clone`, which replaces them
};

/// "Report #1 [ReportTitle [first, second], MasterData []]": the page's number and its bands, for diagnosis.
QDebug operator<<(QDebug stream, const RptPageObject &page);
