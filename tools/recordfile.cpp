#include "recordfile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

namespace {

constexpr int firstSet = 1;

QString textOf(const QJsonValue &value)
{
    return value.toVariant().toString();
}

/// One line cut at its commas; a field may stand in double quotes, in which two of them stand for one.
QStringList fieldsOf(const QString &line)
{
    QStringList fields{QString()};
    bool quoted = false;
    for (int position = 0; position < line.size(); ++position) {
        const QChar character = line.at(position);
        const bool doubled = quoted && line.mid(position, 2) == QLatin1String("\"\"");
        if (doubled)
            fields.last().append(line.at(position++));
        else if (character == QLatin1Char('"'))
            quoted = !quoted;
        else if (character == QLatin1Char(',') && !quoted)
            fields.append(QString());
        else
            fields.last().append(character);
    }
    return fields;
}

} // namespace

RecordFile::RecordFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = file.errorString();
        return;
    }
    const QByteArray bytes = file.readAll();
    if (fileName.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        readCsv(QString::fromUtf8(bytes));
    else
        readJson(bytes);
}

void RecordFile::readJson(const QByteArray &bytes)
{
    QJsonParseError problem{};
    const QJsonObject root = QJsonDocument::fromJson(bytes, &problem).object();
    if (problem.error != QJsonParseError::NoError) {
        m_error = problem.errorString();
        return;
    }
    const QJsonObject values = root.value(QLatin1String("values")).toObject();
    for (auto value = values.begin(); value != values.end(); ++value)
        m_values.insert(value.key(), textOf(value.value()));
    QJsonObject sets = root.value(QLatin1String("sets")).toObject();
    if (root.contains(QLatin1String("records")))
        sets.insert(QString::number(firstSet), root.value(QLatin1String("records")));
    for (auto set = sets.begin(); set != sets.end(); ++set) {
        QVector<Record> &records = m_sets[set.key().toInt()];
        const QJsonArray rows = set.value().toArray();
        for (const QJsonValue &row : rows) {
            Record record;
            const QJsonObject named = row.toObject();
            for (auto field = named.begin(); field != named.end(); ++field)
                record.insert(field.key(), textOf(field.value()));
            const QJsonArray numbered = row.toArray();
            for (int number = 0; number < numbered.size(); ++number)
                record.insert(QString::number(number), textOf(numbered.at(number)));
            records.append(record);
        }
    }
}

void RecordFile::readCsv(const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList names = fieldsOf(lines.value(0).trimmed());
    for (const QString &line : lines.mid(1)) {
        const QStringList fields = fieldsOf(line.endsWith(QLatin1Char('\r')) ? line.chopped(1) : line);
        Record record;
        for (int number = 0; number < fields.size(); ++number) {
            record.insert(QString::number(number), fields.at(number));
            if (number < names.size())
                record.insert(names.at(number), fields.at(number));
        }
        m_sets[firstSet].append(record);
    }
}

QString RecordFile::value(const QString &name, int record) const
{
    for (auto set = m_sets.cbegin(); set != m_sets.cend(); ++set) {
        if (record < set->size() && set->at(record).contains(name))
            return set->at(record).value(name);
    }
    return m_values.value(name);
}
