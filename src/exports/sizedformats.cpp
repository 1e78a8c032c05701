#include "exports/sizedformats.h"

using namespace Spreadsheet;

namespace {

constexpr double defaultSize = 10;
constexpr double boldWidth = 7.0 / 6;

const Format *withSize(Book &book, const Format *format, const Font *font, int size)
{
    Font *sized = book.addFont(font);
    sized->setSize(size);
    Format *copy = book.addFormat(format);
    copy->setFont(sized);
    return copy;
}

} // namespace

SizedFormats::SizedFormats(Book &book, const Format *format, const Font *font, int greatest, bool bold)
    : m_greatest(greatest)
    , m_bold(bold)
{
    for (int size = least; size <= greatest; ++size)
        m_formats.push_back(withSize(book, format, font, size));
}

const Format *SizedFormats::fitting(int characters, double width) const
{
    return m_formats[std::size_t(fittingSize(characters, width) - least)];
}

int SizedFormats::fittingSize(int characters, double width) const
{
    const double needed = characters * (m_bold ? boldWidth : 1);
    return int(qBound(double(least), defaultSize * width / needed, double(m_greatest)));
}

int characterCount(qint64 value)
{
    int characters = value < 0 ? 2 : 1;
    for (qint64 rest = value / 10; rest != 0; rest /= 10)
        ++characters;
    return characters;
}
