#pragma once

#include <QMetaType>
#include <QString>

/// One data set of a report, as the engine offers it to its caller at the start of a print. The caller sets
/// `recordCount` and leaves the rest; the record passes by reference, so the connection must be a direct one.
struct DataSetInfo {
    /// The data source name of the band.
    QString dataSetName;
    /// Index of the page definition, from 0.
    int reportPage = 0;
    /// The band number of the master data band, from 1.
    int dataSetNo = 0;
    /// Number of records, at least 0; set by the caller.
    int recordCount = 0;
};

Q_DECLARE_METATYPE(DataSetInfo)
