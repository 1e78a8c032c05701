#pragma once

#include "programs.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <tuple>

/// An XLS file as an independent reader sees it (readxls.py tells the form), read as strictly as it can: a word in the
/// reader's log fails the test.
class XlsFile {
public:
    explicit XlsFile(const QString &fileName)
        : m_file(QJsonDocument::fromJson(
                     outputOf(QStringLiteral("/usr/bin/python3"), {QStringLiteral(READXLS), fileName}, "python3-xlrd"))
                     .object())
    {
        const QString log = m_file.value(QLatin1String("log")).toString();
        if (m_file.isEmpty() || !log.isEmpty())
            qFatal("the reader does not like %s: %s", qPrintable(fileName), qPrintable(log));
        for (int index = 0; index < sheets().size(); ++index) {
            const QJsonArray cells = sheet(index).value(QLatin1String("cells")).toArray();
            for (const QJsonValue &cell : cells)
                m_cells.insert({index, cell.toArray().at(0).toInt(), cell.toArray().at(1).toInt()}, cell.toArray());
        }
    }

    QJsonArray sheets() const { return m_file.value(QLatin1String("sheets")).toArray(); }
    QJsonObject sheet(int index = 0) const { return sheets().at(index).toObject(); }
    QJsonArray names() const { return m_file.value(QLatin1String("names")).toArray(); }
    QJsonArray formats() const { return m_file.value(QLatin1String("formats")).toArray(); }
    int fontCount() const { return m_file.value(QLatin1String("fontCount")).toInt(); }
    QJsonObject page(int index = 0) const { return sheet(index).value(QLatin1String("page")).toObject(); }

    /// Row, column, type, value and format; empty where there is none.
    QJsonArray cell(int row, int col, int sheetIndex = 0) const { return m_cells.value({sheetIndex, row, col}); }
    int cellCount() const { return m_cells.size(); }
    QString type(int row, int col) const { return cell(row, col).at(2).toString(); }
    QString text(int row, int col) const { return cell(row, col).at(3).toString(); }
    double number(int row, int col) const { return text(row, col).toDouble(); }
    /// The format of a cell.
    QJsonObject look(int row, int col) const { return formats().at(cell(row, col).at(4).toInt()).toObject(); }

private:
    const QJsonObject m_file;
    QMap<std::tuple<int, int, int>, QJsonArray> m_cells; ///< by sheet, row and column
};
