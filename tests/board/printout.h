#pragma once

#include "report/rptengine.h"
#include "support/boxanswerer.h"

#include <QDialog>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QWidget>
#include <QtTest>

/// The texts of the printout whose preview `page` shows, but empty ones, in the order of printing: those of its HTML
/// form, which has the same bands, fields and values.
inline QStringList printedTexts(const QWidget &page)
{
    auto *engine = page.findChild<RptEngine *>();
    if (!engine)
        qFatal("no report is being printed");
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("printout.html")));
    engine->exportToHtml(file.fileName(), false);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the printout has no HTML form");
    static const QRegularExpression text(QStringLiteral(">([^<>]+)</div>"));
    QStringList texts;
    auto found = text.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext())
        texts.append(QTextDocumentFragment::fromHtml(found.next().captured(1)).toPlainText());
    return texts;
}

/// Expects the preview of a printout of `page`, takes its texts and closes it.
inline void expectPreview(BoxAnswerer &boxes, const QWidget &page, QStringList &texts)
{
    boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&page, &texts](QDialog *preview) {
        QCOMPARE(preview->parentWidget(), &page);
        texts = printedTexts(page);
        // Values are asked for again and again, and stay as they were.
        QCOMPARE(printedTexts(page), texts);
        preview->reject();
    });
}
