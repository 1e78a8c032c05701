#include "recordfile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextCodec>
#include <QVariant>

namespace {

QString textOf(const QJsonValue &value)
{
    return value.toVariant().toString();
}

/// The lines of a CSV text, each cut at its commas. No lines if a quote does not end.
QVector<QStringList> csvLines(const QString &text)
{
    QVector<QStringList> lines{{QString()}};
    bool quoted = false;
    for (int position = 0; position < text.size(); ++position) {
        const QChar character = text.at(position);
        if (quoted && text.midRef(position, 2) == QLatin1String("\"\""))
            lines.last().last().append(text.at(position++));
        else if (character == QLatin1Char('"'))
            quoted = !quoted;
        else if (character == QLatin1Char(',') && !quoted)
            lines.last().append(QString());
        else if (character == QLatin1Char('\n') && !quoted)
            lines.append({QString()});
        else
            lines.last().last().append(character);
    }
    return quoted ? QVector<QStringList>() : lines;
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
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (file.error() != QFileDevice::NoError)
        m_error = file.errorString();
    else if (state.invalidChars > 0 || state.remainingChars > 0)
        m_error = QStringLiteral("the text is not UTF-8");
    else
        m_error =
            fileName.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) ? readCsv(text) : readJson(text.toUtf8());
    if (!m_error.isEmpty()) {
        m_values.clear();
        m_sets.clear();
    }
}

QString RecordFile::readJson(const QByteArray &bytes)
{
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &problem);
    if (problem.error != QJsonParseError::NoError)
        return QStringLiteral("%1 at byte %2").arg(problem.errorString()).arg(problem.offset);
    if (!document.isObject())
        return QStringLiteral("an object is wanted");
    const QJsonObject root = document.object();
    const QJsonObject values = root.value(QLatin1String("values")).toObject();
    for (auto value = values.begin(); value != values.end(); ++value)
        m_values.insert(value.key(), textOf(value.value()));
    QJsonObject sets = root.value(QLatin1String("sets")).toObject();
    if (root.contains(QLatin1String("records")))
        sets.insert(QStringLiteral("1"), root.value(QLatin1String("records")));
    for (auto set = sets.begin(); set != sets.end(); ++set) {
        const QString error = readSet(set.key(), set.value());
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString RecordFile::readSet(const QString &key, const QJsonValue &rows)
{
    const int set = key.toInt();
    if (set < 1)
        return QStringLiteral("\"%1\" is no number of a data set").arg(key);
    if (!rows.isArray())
        return QStringLiteral("data set %1 is no list").arg(set);
    const QJsonArray list = rows.toArray();
    for (const QJsonValue &row : list) {
        if (!row.isObject() && !row.isArray())
            return QStringLiteral("a record of data set %1 is neither object nor list").arg(set);
        Record record;
        const QJsonObject named = row.toObject();
        for (auto field = named.begin(); field != named.end(); ++field)
            record.insert(field.key(), textOf(field.value()));
        const QJsonArray numbered = row.toArray();
        for (int number = 0; number < numbered.size(); ++number)
            record.insert(QString::number(number), textOf(numbered.at(number)));
        m_sets[set].append(record);
    }
    return {};
}

QString RecordFile::readCsv(const QString &text)
{
    QString plain = text;
    const QVector<QStringList> lines = csvLines(plain.replace(QLatin1String("\r\n"), QLatin1String("\n")));
    if (lines.isEmpty())
        return QStringLiteral("a quote does not end");
    const QStringList &names = lines.first();
    if (names.join(QString()).trimmed().isEmpty())
        return QStringLiteral("the first line has no names");
    const QVector<QStringList> allFieldses = lines.mid(1);
    for (const QStringList &fields : allFieldses) {
        if (fields == QStringList{QString()})
            continue;
        Record record;
        for (int number = 0; number < fields.size(); ++number) {
            record.insert(QString::number(number), fields.at(number));
            if (number < names.size())
                record.insert(names.at(number).trimmed(), fields.at(number));
        }
        m_sets[1].append(record);
    }
    return {};
}

QString RecordFile::value(const QString &name, int record) const
{
    for (const QVector<Record> &records : m_sets) {
        if (record >= 0 && record < records.size() && records.at(record).contains(name))
            return records.at(record).value(name);
    }
    return m_values.value(name);
}
