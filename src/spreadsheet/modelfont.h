#pragma once

#include "spreadsheet/bookstate.h"

namespace Spreadsheet {

/// A font of a book, by its place among `WorkbookData::fonts`.
class ModelFont final : public Font {
public:
    ModelFont(BookState &state, int index)
        : m_state(state)
        , m_index(index)
    {
    }

    void setSize(int size) override;
    void setBold(bool bold) override;
    void setColor(Color color) override;
    void setName(const QString &name) override;

    /// Its place, that of the default font for a null `font`, and -1 for one of another book.
    static int indexIn(const BookState &state, const Font *font);

private:
    FontData &data() { return m_state.data.fonts[m_index]; }

    BookState &m_state;
    const int m_index;
};

} // namespace Spreadsheet
