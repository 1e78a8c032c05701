#pragma once

#include "spreadsheet/workbook.h"

#include <array>

namespace Spreadsheet {

/// The colours of an XLS file. It holds 56 of them, numbered from 8 on; colours that the standard palette has keep the
/// number that they have there, the others take the numbers that are left.
class XlsPalette {
public:
    static constexpr int size = 56;

    /// Gives a number to every colour that the fonts and formats of a book show. False with the reason in `error` when
    /// there are too many.
    bool choose(const WorkbookData &book, QString *error);
    /// The number of a colour that was chosen, and `automatic` for the automatic colour.
    int indexOf(Color color, int automatic) const;
    /// 0xRRGGBB by number, from 8 on.
    const std::array<int, size> &colors() const { return m_colors; }

private:
    void add(Color color);

    QMap<int, int> m_indexes; ///< number by 0xRRGGBB, 0 before there is one
    std::array<int, size> m_colors{};
};

} // namespace Spreadsheet
