#pragma once

#include "spreadsheet/book.h"

#include <vector>

/// One format in several sizes of letters, for numbers in columns that cannot be wider: programs show "##" instead of a
/// number that does not fit.
///
/// Widths are those of columns, in digits of the default font, which has the size 10: a number of 4 digits needs 4 of
/// them in size 10 and 2 in size 5, and a bold one a sixth more.
class SizedFormats {
public:
    /// The smallest letters, in points: for a number that fits in no size.
    static constexpr int least = 3;

    /// Adds copies of `format` to `book`, with copies of `font` in the sizes from `least` to `greatest` points. `bold`
    /// tells whether the font is.
    SizedFormats(Spreadsheet::Book &book, const Spreadsheet::Format *format, const Spreadsheet::Font *font,
                 int greatest, bool bold);

    /// The format with the largest letters in which `characters` digits fit into `width`.
    const Spreadsheet::Format *fitting(int characters, double width) const;
    /// Its size in points.
    int fittingSize(int characters, double width) const;

private:
    int m_greatest;
    bool m_bold;
    std::vector<const Spreadsheet::Format *> m_formats; ///< by size, from `least`
};

/// How many characters a whole number has.
int characterCount(qint64 value);
