#include "spreadsheet/xlsxtext.h"

namespace Spreadsheet {

namespace {

bool isLoneSurrogate(const QString &text, int index)
{
    const QChar unit = text.at(index);
    if (unit.isHighSurrogate())
        return index + 1 == text.size() || !text.at(index + 1).isLowSurrogate();
    return unit.isLowSurrogate() && (index == 0 || !text.at(index - 1).isHighSurrogate());
}

bool isOutsideXml(const QString &text, int index)
{
    const ushort unit = text.at(index).unicode();
    return unit == 0 || unit >= 0xfffe || (QChar::isSurrogate(unit) && isLoneSurrogate(text, index));
}

bool isHexDigit(QChar character)
{
    const ushort unit = character.unicode();
    return (unit >= '0' && unit <= '9') || (unit >= 'a' && unit <= 'f') || (unit >= 'A' && unit <= 'F');
}

/// Whether "_xHHHH_" stands there.
bool isCharacterNumber(const QString &text, int index)
{
    constexpr int length = 7;
    if (index + length > text.size() || text.at(index + 1) != QLatin1Char('x')
        || text.at(index + length - 1) != QLatin1Char('_'))
        return false;
    return isHexDigit(text.at(index + 2)) && isHexDigit(text.at(index + 3)) && isHexDigit(text.at(index + 4))
        && isHexDigit(text.at(index + 5));
}

QString withinXml(QString text)
{
    for (int index = 0; index < text.size(); ++index) {
        if (isOutsideXml(text, index))
            text[index] = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace

QByteArray xlsxCellText(const QString &text)
{
    const QLatin1String underscore("_x005F_");
    QString result = withinXml(text);
    for (int index = result.indexOf(QLatin1Char('_')); index >= 0;
         index = result.indexOf(QLatin1Char('_'), index + 1)) {
        if (!isCharacterNumber(result, index))
            continue;
        result.replace(index, 1, underscore);
        index += underscore.size() - 1;
    }
    return result.toUtf8();
}

QByteArray xlsxName(const QString &text)
{
    QString result = withinXml(text);
    for (QChar &character : result) {
        if (character < QLatin1Char(' ') && character != QLatin1Char('\n'))
            character = QChar::ReplacementCharacter;
    }
    return result.toUtf8();
}

} // namespace Spreadsheet
