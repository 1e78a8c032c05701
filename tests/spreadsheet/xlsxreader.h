#pragma once

#include "programs.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// An XLSX file as an independent reader sees it; readxlsx.py tells the form.
class XlsxFile {
public:
    explicit XlsxFile(const QString &fileName)
        : m_file(QJsonDocument::fromJson(outputOf(QStringLiteral("/usr/bin/python3"),
                                                  {QStringLiteral(READXLSX), fileName}, "python3-openpyxl"))
                     .object())
    {
        if (m_file.isEmpty())
            qFatal("openpyxl finds nothing in %s", qPrintable(fileName));
        const QJsonArray all = sheets();
        for (int index = 0; index < all.size(); ++index) {
            const QJsonArray cells = all.at(index).toObject().value(QLatin1String("cells")).toArray();
            for (const QJsonValue &cell : cells)
                m_cells.insert({index, {cell.toArray().at(0).toInt(), cell.toArray().at(1).toInt()}}, cell.toArray());
        }
    }

    QJsonArray sheets() const { return m_file.value(QLatin1String("sheets")).toArray(); }
    QJsonObject sheet(int index = 0) const { return sheets().at(index).toObject(); }
    QJsonObject page(int index = 0) const { return sheet(index).value(QLatin1String("page")).toObject(); }
    QJsonArray merges(int index = 0) const { return sheet(index).value(QLatin1String("merges")).toArray(); }
    /// Column, width in the file (without the edges' pixels taken off), whether it is hidden, and its look.
    QJsonArray column(int col, int index = 0) const { return line("columns", col, index); }
    /// Row, height or null, whether it is hidden, and its look.
    QJsonArray row(int row, int index = 0) const { return line("rows", row, index); }
    int cellCount() const { return m_cells.size(); }
    bool has(int row, int col, int index = 0) const { return m_cells.contains({index, {row, col}}); }
    /// Null for a blank.
    QJsonValue value(int row, int col, int index = 0) const { return cell(row, col, index).at(2); }
    QString text(int row, int col, int index = 0) const { return value(row, col, index).toString(); }
    QJsonObject look(int row, int col, int index = 0) const { return lookAt(cell(row, col, index).at(3)); }
    QJsonObject lookAt(const QJsonValue &index) const
    {
        return m_file.value(QLatin1String("looks")).toArray().at(index.toInt()).toObject();
    }
    /// Formats of cells in the file, the first one included.
    int formatCount() const { return m_file.value(QLatin1String("formatCount")).toInt(); }

private:
    QJsonArray cell(int row, int col, int index) const { return m_cells.value({index, {row, col}}); }
    QJsonArray line(const char *kind, int number, int index) const
    {
        const QJsonArray lines = sheet(index).value(QLatin1String(kind)).toArray();
        for (const QJsonValue &found : lines) {
            if (found.toArray().at(0).toInt() == number)
                return found.toArray();
        }
        return {};
    }

    const QJsonObject m_file;
    QHash<QPair<int, QPair<int, int>>, QJsonArray> m_cells;
};
