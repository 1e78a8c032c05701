#pragma once

#include <QtMath>

namespace Spreadsheet {

/// Points as the twips of an XLS file, 20 to the point.
inline int twips(double points)
{
    return qRound(points * 20);
}

/// The height in twips of a row of one line in a font of so many points: 12.75 points for the usual 10.
inline int lineTwips(int fontSize)
{
    constexpr int highestRow = 8180;
    return qMin(qRound(fontSize * 25.5), highestRow);
}

/// The width of a column in 1/256 of a digit as the files hold it: a digit is 7 pixels wide, whole pixels count, and 5
/// more pixels keep the text from the lines. Below one digit they grow with the width. 10 digits are 75 pixels or
/// 10 5/7 digits.
inline int fileColumnWidth(double digits)
{
    constexpr int pixelsPerDigit = 7;
    constexpr int padding = 5;
    const int pixels =
        digits < 1 ? qRound(digits * (pixelsPerDigit + padding)) : qRound(digits * pixelsPerDigit) + padding;
    return pixels * 256 / pixelsPerDigit;
}

/// How far the page's foot is from the edge of the paper, in inches: 0.3 as is usual, but less where its line of 10
/// points would reach into the cells above the bottom margin. Programs leave out a foot that has no room.
inline double footerMargin(double marginBottom)
{
    constexpr double usual = 0.3;
    constexpr double line = 0.17;
    constexpr double least = 0.02;
    return qBound(least, marginBottom - line, usual);
}

} // namespace Spreadsheet
