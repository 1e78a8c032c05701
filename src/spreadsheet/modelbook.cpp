#include "spreadsheet/modelbook.h"

#include "spreadsheet/writers.h"

#include <algorithm>

namespace Spreadsheet {

namespace {

constexpr Color firstIndex = 8;
constexpr Color lastIndex = 63;
constexpr int rgbFlag = 0x1000000;

bool isComponent(int value)
{
    return value >= 0 && value <= 255;
}

/// The square of how far two colours of the form 0xRRGGBB are from each other.
int distance(int a, int b)
{
    int sum = 0;
    for (const int shift : {0, 8, 16}) {
        const int difference = ((a >> shift) & 0xff) - ((b >> shift) & 0xff);
        sum += difference * difference;
    }
    return sum;
}

Color nearestIndex(int rgb)
{
    Color nearest = firstIndex;
    for (Color index = firstIndex; index <= lastIndex; ++index) {
        if (distance(paletteRgb(index), rgb) < distance(paletteRgb(nearest), rgb))
            nearest = index;
    }
    return nearest;
}

} // namespace

const ModelBook::BookKind xlsKind = {
    xlsLimits,
    [](const WorkbookData &book, FileReplacement &file, QString *error) {
        return writeXls(book, file.device(), error);
    },
};

const ModelBook::BookKind xlsxKind = {
    xlsxLimits,
    [](const WorkbookData &book, FileReplacement &file, QString *error) {
        return writeXlsx(book, file.temporaryName(), error);
    },
};

bool ModelBook::setLocale(const QString &locale)
{
    return locale.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0
        || m_state.fail(QStringLiteral("There is no locale \"%1\", only UTF-8").arg(locale));
}

void ModelBook::setDefaultFont(const QString &name, int size)
{
    if (!m_state.isFontName(name) || !m_state.isFontSize(size))
        return;
    m_state.data.fonts.first().name = name;
    m_state.data.fonts.first().size = size;
}

QString ModelBook::defaultFontName() const
{
    return m_state.data.fonts.first().name;
}

int ModelBook::defaultFontSize() const
{
    return m_state.data.fonts.first().size;
}

void ModelBook::setRgbMode(bool rgbMode)
{
    m_rgbMode = rgbMode;
}

bool ModelBook::isNumFormat(const QString &text) const
{
    const int size = text.toUtf8().size();
    return (size > 0 && size <= m_state.limits.numFormatBytes && !hasControlCharacters(text))
        || m_state.fail(QStringLiteral("A number format has 1 to %1 bytes").arg(m_state.limits.numFormatBytes));
}

int ModelBook::addCustomNumFormat(const QString &text)
{
    QVector<QString> &all = m_state.data.numFormats;
    const int known = all.indexOf(text);
    if (known >= 0)
        return firstCustomNumFormat + known;
    if (!isNumFormat(text))
        return -1;
    if (all.size() == m_state.limits.numFormats) {
        m_state.fail(QStringLiteral("A book holds %1 number formats").arg(all.size()));
        return -1;
    }
    all.append(text);
    return firstCustomNumFormat + all.size() - 1;
}

Color ModelBook::colorPack(int red, int green, int blue) const
{
    if (!isComponent(red) || !isComponent(green) || !isComponent(blue)) {
        m_state.fail(QStringLiteral("Red, green and blue are 0 to 255"));
        return colorAutomatic;
    }
    const int rgb = red << 16 | green << 8 | blue;
    return m_rgbMode ? rgbFlag | rgb : nearestIndex(rgb);
}

Font *ModelBook::addFont(const Font *initFont)
{
    QVector<FontData> &all = m_state.data.fonts;
    const int init = ModelFont::indexIn(m_state, initFont);
    if (init < 0)
        return nullptr;
    if (all.size() > m_state.limits.fonts) {
        m_state.fail(QStringLiteral("A book holds %1 fonts").arg(m_state.limits.fonts));
        return nullptr;
    }
    all.append(FontData(all.at(init)));
    return &m_fonts.emplace_back(m_state, all.size() - 1);
}

Format *ModelBook::addFormat(const Format *initFormat)
{
    QVector<FormatData> &all = m_state.data.formats;
    const int init = ModelFormat::indexIn(m_state, initFormat);
    if (init < 0)
        return nullptr;
    if (all.size() > m_state.limits.formats) {
        m_state.fail(QStringLiteral("A book holds %1 formats").arg(m_state.limits.formats));
        return nullptr;
    }
    all.append(FormatData(all.at(init)));
    return &m_formats.emplace_back(m_state, all.size() - 1);
}

bool ModelBook::isNewSheetName(const QString &name) const
{
    if (name.isEmpty() || name.size() > maxNameLength)
        return m_state.fail(QStringLiteral("A sheet's name has 1 to %1 characters").arg(maxNameLength));
    const QString forbidden = QStringLiteral("[]:*?/\\");
    const QLatin1Char apostrophe('\'');
    if (std::any_of(name.begin(), name.end(), [&](QChar c) { return forbidden.contains(c); })
        || hasControlCharacters(name) || name.startsWith(apostrophe) || name.endsWith(apostrophe))
        return m_state.fail(QStringLiteral("\"%1\" has a character that a sheet's name cannot have").arg(name));
    const auto &sheets = m_state.data.sheets;
    const bool taken = std::any_of(sheets.begin(), sheets.end(), [&](const SheetData &sheet) {
        return sheet.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return !taken || m_state.fail(QStringLiteral("There is a sheet \"%1\" already").arg(name));
}

Sheet *ModelBook::addSheet(const QString &name, const Sheet *initSheet)
{
    if (initSheet)
        m_state.fail(QStringLiteral("Sheets cannot be copied"));
    else if (int(m_sheets.size()) == maxSheets)
        m_state.fail(QStringLiteral("A book holds %1 sheets").arg(maxSheets));
    else if (isNewSheetName(name)) {
        SheetData &sheet = m_state.data.sheets.emplace_back();
        sheet.name = name;
        return &m_sheets.emplace_back(m_state, sheet, m_formats);
    }
    return nullptr;
}

bool ModelBook::save(const QString &fileName)
{
    if (m_sheets.empty())
        return m_state.fail(QStringLiteral("A book without a sheet cannot be saved"));
    QString error;
    FileReplacement file(fileName);
    return (file.begin(&error) && m_write(m_state.data, file, &error) && file.commit(&error)) || m_state.fail(error);
}

QString ModelBook::errorMessage() const
{
    return m_state.error;
}

void ModelBook::release()
{
    delete this;
}

BookPointer xlCreateBookA()
{
    return BookPointer(new ModelBook(xlsKind));
}

BookPointer xlCreateXMLBookA()
{
    return BookPointer(new ModelBook(xlsxKind));
}

} // namespace Spreadsheet
