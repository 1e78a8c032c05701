#pragma once

#include "programs.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>
#include <QVariant>
#include <QVector>

/// The rows of a CSV file in UTF-8.
inline QVector<QStringList> csvRows(const QString &fileName)
{
    const QByteArray json = outputOf(
        QStringLiteral("/usr/bin/python3"),
        {QStringLiteral("-c"),
         QStringLiteral("import csv, json, sys\n"
                        "csv.field_size_limit(1000000)\n"
                        "print(json.dumps(list(csv.reader(open(sys.argv[1], encoding='utf-8', newline='')))))"),
         fileName},
        "python3");
    QVector<QStringList> rows;
    const QJsonArray found = QJsonDocument::fromJson(json).array();
    for (const QJsonValue &row : found)
        rows.append(row.toVariant().toStringList());
    return rows;
}

/// A cell of `csvRows`. Gnumeric writes a true minus sign.
inline QString cell(const QVector<QStringList> &rows, int row, int col)
{
    const QChar minus(0x2212);
    return rows.value(row).value(col, QStringLiteral("no cell")).replace(minus, QLatin1Char('-'));
}

/// The cells of a workbook's first sheet as `program`, "soffice" or "ssconvert", shows them; made once in a folder of
/// its own.
inline QVector<QStringList> convertedToCsv(const QString &program, const QString &fileName, const QString &folder)
{
    const QString csv = folder + QLatin1Char('/') + QFileInfo(fileName).completeBaseName() + QLatin1String(".csv");
    if (!QFileInfo::exists(csv)) {
        QDir().mkpath(folder);
        if (program == QLatin1String("soffice"))
            outputOf(program,
                     {QStringLiteral("-env:UserInstallation=file://") + folder + QLatin1String("/profile"),
                      QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                      QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76"), QStringLiteral("--outdir"), folder,
                      fileName},
                     "libreoffice-calc-nogui");
        else
            outputOf(program,
                     {QStringLiteral("-T"), QStringLiteral("Gnumeric_stf:stf_assistant"), QStringLiteral("-O"),
                      QStringLiteral("separator=, format=preserve"), fileName, csv},
                     "gnumeric");
    }
    return csvRows(csv);
}
