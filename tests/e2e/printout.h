#pragma once

#include "support/pdfpages.h"

#include <QColor>

/// Heights of a template's bands in template units, quarters of a millimetre.
struct PrintoutBands {
    int title;
    int header;
    int footer;
};

/// A printed report as read back from its PDF, in the units of its template: across from the left margin, down from the
/// top margin.
class Printout {
public:
    Printout(const QString &fileName, const PrintoutBands &bands)
        : m_fileName(fileName)
        , m_words(pdfWords(fileName))
        , m_pages(pdfPageCount(fileName))
        , m_bands(bands)
    {
    }

    int pages() const { return m_pages; }
    /// What the title band says.
    QString title() const
    {
        return textWhere([this](const PdfWord &word) { return word.page == 1 && down(word) < m_bands.title; });
    }
    /// The head of the table on a page, from 1.
    QString tableHead(int page) const
    {
        return textWhere([=](const PdfWord &word) {
            return word.page == page && down(word) > headTop(page) && down(word) < headTop(page) + m_bands.header;
        });
    }
    /// What stands in the middle of a page's footer.
    QString pager(int page) const
    {
        return textWhere([=](const PdfWord &word) {
            return word.page == page && down(word) > footerTop() && across(word) > 300 && across(word) < 500;
        });
    }
    /// The rows' texts between two verticals, over all pages, with what stands below the last row.
    QString column(int left, int right) const
    {
        return textWhere(
            [=](const PdfWord &word) { return isInRows(word) && across(word) > left && across(word) < right; });
    }
    /// The same words in the order of the alphabet, where the database leaves the order of the rows open.
    QStringList columnWords(int left, int right) const
    {
        QStringList words = column(left, right).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        words.sort();
        return words;
    }
    /// Words that stand over one another, off the sheet's margins or on the footer's strip; empty when all is well.
    QStringList collisions() const
    {
        QStringList found;
        for (int one = 0; one < m_words.size(); ++one) {
            const PdfWord &word = m_words.at(one);
            const QRectF place = inUnits(word);
            if (place.left() < -1 || place.right() > 801 || place.bottom() > 1129
                || (place.top() < footerTop() && place.bottom() > footerTop() + 1))
                found.append(QStringLiteral("%1: %2 is outside").arg(word.page).arg(word.text));
            for (int other = one + 1; other < m_words.size() && m_words.at(other).page == word.page; ++other) {
                const QRectF both = word.box.intersected(m_words.at(other).box);
                if (both.width() > 1 && both.height() > 1.5)
                    found.append(
                        QStringLiteral("%1: %2 over %3").arg(word.page).arg(word.text, m_words.at(other).text));
            }
        }
        return found;
    }
    /// The places of the title's words.
    QVector<QRectF> titlePlaces() const
    {
        QVector<QRectF> places;
        for (const PdfWord &word : m_words) {
            if (word.page == 1 && down(word) < 35)
                places.append(inUnits(word));
        }
        return places;
    }
    /// The colour of a spot on a page.
    QColor colorAt(int page, double x, double y) const
    {
        constexpr double dotsOfMillimetre = 4;
        const QImage image = pdfPage(m_fileName, page, 25.4 * dotsOfMillimetre);
        return image.pixelColor(qRound((leftMargin + x / 4) * dotsOfMillimetre),
                                qRound((topMargin + y / 4) * dotsOfMillimetre));
    }
    int headTop(int page) const { return page == 1 ? m_bands.title : 0; }
    int footerTop() const { return 1128 - m_bands.footer; }

private:
    // Millimetres, as the templates have them.
    static constexpr double leftMargin = 5;
    static constexpr double topMargin = 10;

    static QRectF inUnits(const PdfWord &word)
    {
        const double unit = pdfPointsOfMillimetre / 4;
        return {word.box.left() / unit - leftMargin * 4, word.box.top() / unit - topMargin * 4, word.box.width() / unit,
                word.box.height() / unit};
    }
    static double across(const PdfWord &word) { return inUnits(word).center().x(); }
    static double down(const PdfWord &word) { return inUnits(word).center().y(); }
    bool isInRows(const PdfWord &word) const
    {
        return down(word) > headTop(word.page) + m_bands.header && down(word) < footerTop();
    }
    template<typename Condition> QString textWhere(const Condition &condition) const
    {
        QVector<PdfWord> words;
        std::copy_if(m_words.cbegin(), m_words.cend(), std::back_inserter(words), condition);
        return pdfText(words);
    }

    const QString m_fileName;
    const QVector<PdfWord> m_words;
    const int m_pages;
    const PrintoutBands m_bands;
};
