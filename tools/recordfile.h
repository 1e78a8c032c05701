#pragma once

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

class QJsonValue;

/// What a report is filled with: values by name, and records by data set. Read from a file in UTF-8:
///
/// JSON: {"values": {"title": "Menu"}, "sets": {"1": [{"name": "Guláš", "price": "4.50"}, ...]}}. A record may be a
/// list too; its values then have the names "0", "1", ... "records" stands for set 1. Numbers and true and false count
/// as text, null as an empty one.
///
/// CSV (the name ends with ".csv"): records of set 1, fields parted by commas; a field in double quotes may hold
/// commas, line ends and doubled quotes. The first line has the names; the columns count by number too. Empty lines are
/// left out.
class RecordFile {
public:
    /// Reads `fileName`. A file that cannot be read or is malformed leaves an error and nothing else.
    explicit RecordFile(const QString &fileName);

    /// What is wrong with the file, in plain words; empty for none.
    QString error() const { return m_error; }
    /// Records of a data set, which counts from 1.
    int count(int set) const { return m_sets.value(set).size(); }
    /// The value of a name for a record, which counts from 0: of the lowest set whose record has the name, since a
    /// report does not say which set it asks for; else of the named values. Null without one.
    QString value(const QString &name, int record) const;

private:
    using Record = QHash<QString, QString>;

    QString readJson(const QByteArray &bytes);
    QString readSet(const QString &key, const QJsonValue &rows);
    QString readCsv(const QString &text);

    QHash<QString, QString> m_values;
    QMap<int, QVector<Record>> m_sets;
    QString m_error;
};
