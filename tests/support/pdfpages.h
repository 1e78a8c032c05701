#pragma once

#include <QImage>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVector>

/// One word of a printed page, in points from the top left corner of the paper.
struct PdfWord {
    int page; ///< from 1
    QString text;
    QRectF box;
};

constexpr double pdfPointsOfMillimetre = 72 / 25.4;

/// The words of a PDF file as an independent reader finds them, page by page; none if the file cannot be read.
QVector<PdfWord> pdfWords(const QString &fileName);
/// Number of pages, 0 if the file cannot be read.
int pdfPageCount(const QString &fileName);
/// A page, from 1, drawn at `dpi`.
QImage pdfPage(const QString &fileName, int page, double dpi);
/// The texts of words from left to right and from top to bottom, joined with blanks. Words on one line may differ in
/// height.
QString pdfText(QVector<PdfWord> words);
