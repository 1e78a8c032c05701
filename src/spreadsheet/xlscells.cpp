#include "spreadsheet/xlscells.h"

#include "spreadsheet/xlsstyles.h"

#include <cmath>

namespace Spreadsheet {

namespace {

constexpr quint32 rkHundredth = 1;
constexpr quint32 rkInteger = 2;

quint64 bitsOf(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// A whole number of 30 bits in the upper bits of `rk`. A negative zero is none: it would lose its sign.
inline bool wholeNumber(double value, quint32 *rk)
{
    constexpr double limit = 1 << 29;
    if (!(value >= -limit && value < limit))
        return false;
    const auto whole = qint32(value);
    *rk = quint32(whole) << 2;
    return bitsOf(whole) == bitsOf(value);
}

/// The hundredth of a whole number (4.35 is 435), when a reader that divides gets just this number again, or a number
/// whose upper 30 bits are all there is (0.5).
bool brokenNumber(double value, quint32 *rk)
{
    const double hundredfold = std::nearbyint(value * 100);
    if (hundredfold / 100 == value && wholeNumber(hundredfold, rk)) {
        *rk |= rkInteger | rkHundredth;
        return true;
    }
    constexpr quint64 lowerBits = 0x3ffffffff;
    *rk = quint32(bitsOf(value) >> 32);
    return (bitsOf(value) & lowerBits) == 0;
}

/// Whether the 32 bits of an RK record hold a number exactly, and those bits.
inline bool rkOf(double value, quint32 *rk)
{
    if (!wholeNumber(value, rk))
        return brokenNumber(value, rk);
    *rk |= rkInteger;
    return true;
}

/// Writes a row from left to right, run by run.
class RowWriter {
public:
    RowWriter(RecordStream &stream, int row, const CellGrid::Row &cells)
        : m_stream(stream)
        , m_row(row)
        , m_at(cells.data())
        , m_end(cells.data() + cells.size())
    {
    }

    /// Returns the number of texts.
    int write()
    {
        quint32 rk = 0;
        while (m_at != m_end) {
            if (m_at->text >= 0)
                writeText();
            else if (m_at->text == Cell::isBlank)
                writeBlanks();
            else if (rkOf(m_at->number, &rk))
                writeRks(rk);
            else
                writeNumber();
        }
        return m_texts;
    }

private:
    RecordStream &begin(Biff::Record type, const Cell &cell) { return m_stream.begin(type).u16(m_row).u16(cell.col); }

    /// Whether a cell stands right beside the one before it.
    bool goesOn(const Cell *cell) const { return cell != m_end && cell->col == (cell - 1)->col + 1; }

    /// LABELSST
    void writeText()
    {
        begin(Biff::LABELSST, *m_at).u16(xfOf(m_at->format)).u32(quint32(m_at->text)).end();
        ++m_at;
        ++m_texts;
    }

    /// NUMBER
    void writeNumber()
    {
        begin(Biff::NUMBER, *m_at).u16(xfOf(m_at->format)).f64(m_at->number).end();
        ++m_at;
    }

    /// BLANK, MULBLANK
    void writeBlanks()
    {
        const Cell *last = m_at;
        while (goesOn(last + 1) && last[1].text == Cell::isBlank)
            ++last;
        const bool many = last != m_at;
        begin(many ? Biff::MULBLANK : Biff::BLANK, *m_at);
        for (; m_at <= last; ++m_at)
            m_stream.u16(xfOf(m_at->format));
        if (many)
            m_stream.u16(last->col);
        m_stream.end();
    }

    /// RK, MULRK
    void writeRks(quint32 rk)
    {
        const Cell *const first = m_at;
        begin(Biff::RK, *first).u16(xfOf(first->format)).u32(rk);
        for (++m_at; goesOn(m_at) && m_at->text == Cell::isNumber && rkOf(m_at->number, &rk); ++m_at)
            m_stream.u16(xfOf(m_at->format)).u32(rk);
        if (m_at - first > 1)
            m_stream.retype(Biff::MULRK).u16((m_at - 1)->col);
        m_stream.end();
    }

    RecordStream &m_stream;
    const int m_row;
    const Cell *m_at;
    const Cell *const m_end;
    int m_texts = 0;
};

} // namespace

int writeCells(RecordStream &stream, int row, const CellGrid::Row &cells)
{
    return RowWriter(stream, row, cells).write();
}

} // namespace Spreadsheet
