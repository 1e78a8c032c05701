#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a report is filled with: values by name, and records by data set. Read from a file:
///
/// JSON: {"values": {"title": "Menu"}, "sets": {"1": [{"name": "Guláš", "price": "4,50"}, ...]}}. A record may be a
/// list too; its values then have the names "0", "1", ... "records" stands for set 1. CSV: records of set 1; the first
/// line has the names, which count by number too.
class RecordFile {
public:
    /// Reads `fileName`, by its ending. A file that cannot be read or is malformed leaves an error.
    explicit RecordFile(const QString &fileName);

    QString error() const { return m_error; }
    int count(int set) const { return m_sets.value(set).size(); }
    /// The value of a name for a record: of the first set that has the name, else of the named values. Null without
    /// one.
    QString value(const QString &name, int record) const;

private:
    using Record = QHash<QString, QString>;

    void readJson(const QByteArray &bytes);
    void readCsv(const QString &text);

    QHash<QString, QString> m_values;
    QHash<int, QVector<Record>> m_sets;
    QString m_error;
};
