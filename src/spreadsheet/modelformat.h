#pragma once

#include "spreadsheet/bookstate.h"

namespace Spreadsheet {

/// A format of a book, by its place among `WorkbookData::formats`.
class ModelFormat final : public Format {
public:
    ModelFormat(BookState &state, int index)
        : m_state(state)
        , m_index(index)
    {
    }

    void setFont(const Font *font) override;
    void setNumFormat(int numFormat) override;
    void setAlignH(AlignH align) override;
    void setAlignV(AlignV align) override;
    void setWrap(bool wrap) override;
    void setBorder(BorderStyle style) override;
    void setBorderColor(Color color) override;
    void setBorderTop(BorderStyle style) override;
    void setBorderBottom(BorderStyle style) override;
    void setBorderTopColor(Color color) override;
    void setBorderBottomColor(Color color) override;
    void setFillPattern(FillPattern pattern) override;
    void setPatternForegroundColor(Color color) override;

    /// Its place, that of the default look for a null `format`, and -1 for one of another book.
    static int indexIn(const BookState &state, const Format *format)
    {
        if (!format)
            return 0;
        const auto *modelFormat = static_cast<const ModelFormat *>(format);
        return &modelFormat->m_state == &state ? modelFormat->m_index : failForeign(state);
    }

private:
    static int failForeign(const BookState &state);
    FormatData &data() { return m_state.data.formats[m_index]; }

    BookState &m_state;
    const int m_index;
};

} // namespace Spreadsheet
