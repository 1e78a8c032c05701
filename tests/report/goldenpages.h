#pragma once

#include <QImage>
#include <QString>
#include <QVector>

class QDomDocument;

/// Pages as a printer gives them, and their comparison.
namespace GoldenPages {

/// How the letters are drawn: as usual, or with their outlines fitted to the pixels, as another version of the font
/// library might draw them.
enum class Letters { Usual, Fitted };

/// Prints a template to PDF, with the records of the golden pages, and draws its pages at 96 dots per inch. No pages if
/// the PDF cannot be read.
QVector<QImage> print(const QDomDocument &report, Letters letters = Letters::Usual);

/// How far two pages are apart, in steps of the 255 of a colour channel. Both are scaled down to a half first: that
/// evens out how the edges of letters are smoothed, but not where they are.
struct Difference {
    double mean = 0; ///< of the whole page
    double worst = 0; ///< mean of the block of 8 x 8 halved pixels that differs most
    QPoint at; ///< its place in the page as drawn

    /// Whether a person would call it another page. Letters fitted to the pixels stay below 6 in the worst block; a
    /// thin line moved by a millimetre is well above.
    bool isVisible() const { return mean > 1 || worst > 8; }
    QString text() const;
};

/// Pages of different sizes differ as much as can be.
Difference compare(const QImage &one, const QImage &other);

} // namespace GoldenPages
