#include "spreadsheet/bookstate.h"

#include <algorithm>

namespace Spreadsheet {

namespace {

constexpr Color firstIndex = 8;
constexpr Color lastIndex = 63;
constexpr Color lastRgb = 0x1ffffff;

} // namespace

BookState::BookState(const BookLimits &bookLimits)
    : limits(bookLimits)
{
    FontData font;
    font.name = QStringLiteral("Arial");
    data.fonts.append(font);
    data.formats.append(FormatData());
}

bool BookState::fail(const QString &reason) const
{
    error = reason;
    return false;
}

bool BookState::failRange(const char *what, int first, int last, int count) const
{
    return fail(QStringLiteral("There are no %1 %2 to %3; the last one is %4")
                    .arg(QLatin1String(what))
                    .arg(first)
                    .arg(last)
                    .arg(count - 1));
}

bool BookState::isColor(Color color) const
{
    const bool isIndex = color >= firstIndex && color <= lastIndex;
    return isIndex || color == colorAutomatic || (isRgb(color) && color >= 0 && color <= lastRgb)
        || fail(QStringLiteral("%1 is no colour").arg(color));
}

bool BookState::isFontName(const QString &name) const
{
    return (!name.isEmpty() && name.size() <= maxNameLength && !hasControlCharacters(name))
        || fail(QStringLiteral("A font's name has 1 to %1 characters").arg(maxNameLength));
}

bool BookState::isFontSize(int size) const
{
    return (size >= 1 && size <= maxFontSize) || fail(QStringLiteral("A font has 1 to %1 points").arg(maxFontSize));
}

bool hasControlCharacters(const QString &text, const QString &allowed)
{
    return std::any_of(text.begin(), text.end(), [&](QChar c) { return c < QLatin1Char(' ') && !allowed.contains(c); });
}

} // namespace Spreadsheet
