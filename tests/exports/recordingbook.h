#pragma once

#include "spreadsheet/book.h"

#include <QMap>
#include <QPair>
#include <QStringList>
#include <QVector>

#include <cmath>
#include <deque>

/// A book that keeps what is written to it as plain values. It refuses what a real one refuses: texts that are too
/// long, cells beyond its limits, cells merged twice or alone. A format is told as one line of text, see
/// `RecordedFormat`.

inline QString colorText(Spreadsheet::Color color)
{
    if (color == Spreadsheet::colorAutomatic)
        return QStringLiteral("auto");
    return color & 0x1000000 ? QStringLiteral("#%1").arg(color & 0xffffff, 6, 16, QLatin1Char('0'))
                             : QString::number(color);
}

class RecordedFont final : public Spreadsheet::Font {
public:
    void setSize(int value) override { size = value; }
    void setBold(bool value) override { bold = value; }
    void setColor(Spreadsheet::Color value) override { color = value; }
    void setName(const QString &value) override { name = value; }

    /// "Cambria 11 bold 9".
    QString text() const
    {
        return QStringLiteral("%1 %2%3 %4")
            .arg(name, QString::number(size), QLatin1String(bold ? " bold" : ""), colorText(color));
    }

    QString name;
    int size = 0;
    bool bold = false;
    Spreadsheet::Color color = Spreadsheet::colorAutomatic;
};

class RecordedFormat final : public Spreadsheet::Format {
public:
    void setFont(const Spreadsheet::Font *value) override { font = static_cast<const RecordedFont *>(value); }
    void setNumFormat(int value) override { numFormat = value; }
    void setAlignH(Spreadsheet::AlignH value) override { alignH = value; }
    void setAlignV(Spreadsheet::AlignV value) override { alignV = value; }
    void setWrap(bool value) override { wrap = value; }
    void setBorder(Spreadsheet::BorderStyle value) override { left = right = top = bottom = value; }
    void setBorderColor(Spreadsheet::Color value) override { leftColor = rightColor = topColor = bottomColor = value; }
    void setBorderTop(Spreadsheet::BorderStyle value) override { top = value; }
    void setBorderBottom(Spreadsheet::BorderStyle value) override { bottom = value; }
    void setBorderTopColor(Spreadsheet::Color value) override { topColor = value; }
    void setBorderBottomColor(Spreadsheet::Color value) override { bottomColor = value; }
    void setFillPattern(Spreadsheet::FillPattern value) override { fill = value; }
    void setPatternForegroundColor(Spreadsheet::Color value) override { foreground = value; }

    /// "MS Shell Dlg 2 10 auto; centre middle wrap; 1 22": the font; the alignment; then, where there is any, the fill
    /// ("fill #00adef"), the borders (style and colour; top and bottom apart where they differ: "5 9 / 1 9") and a
    /// custom number format.
    QString text() const
    {
        QStringList parts{font->text(), alignment()};
        if (fill == Spreadsheet::FillPattern::Solid)
            parts.append("fill " + colorText(foreground));
        if (!borders().isEmpty())
            parts.append(borders());
        if (numFormat != Spreadsheet::generalNumFormat)
            parts.append(QStringLiteral("number format %1").arg(numFormat));
        return parts.join(QLatin1String("; "));
    }

    const RecordedFont *font = nullptr;
    int numFormat = Spreadsheet::generalNumFormat;
    Spreadsheet::AlignH alignH = Spreadsheet::AlignH::General;
    Spreadsheet::AlignV alignV = Spreadsheet::AlignV::Bottom;
    bool wrap = false;
    Spreadsheet::BorderStyle left = Spreadsheet::BorderStyle::None;
    Spreadsheet::BorderStyle right = left;
    Spreadsheet::BorderStyle top = left;
    Spreadsheet::BorderStyle bottom = left;
    Spreadsheet::Color leftColor = Spreadsheet::colorAutomatic;
    Spreadsheet::Color rightColor = leftColor;
    Spreadsheet::Color topColor = leftColor;
    Spreadsheet::Color bottomColor = leftColor;
    Spreadsheet::FillPattern fill = Spreadsheet::FillPattern::None;
    Spreadsheet::Color foreground = Spreadsheet::colorAutomatic;

private:
    QString alignment() const
    {
        static const char *const across[] = {"general", "left", "centre", "right"};
        static const char *const down[] = {"top", "middle", "bottom"};
        return QLatin1String(across[int(alignH)]) + ' ' + QLatin1String(down[int(alignV)])
            + QLatin1String(wrap ? " wrap" : "");
    }
    QString borders() const
    {
        const auto side = [](Spreadsheet::BorderStyle style, Spreadsheet::Color color) {
            return style == Spreadsheet::BorderStyle::None ? QString()
                                                           : QString::number(int(style)) + ' ' + colorText(color);
        };
        const QString upper = side(top, topColor);
        const QString lower = side(bottom, bottomColor);
        const bool even = upper == lower && upper == side(left, leftColor) && upper == side(right, rightColor);
        return even ? upper : upper + QLatin1String(" / ") + lower;
    }
};

class RecordedSheet final : public Spreadsheet::Sheet {
public:
    struct Cell {
        QString text;
        double number = 0;
        bool isNumber = false;
        const RecordedFormat *format = nullptr;
    };

    bool writeStr(int row, int col, const QString &text, const Spreadsheet::Format *format) override
    {
        return text.size() <= 32767 && write(row, col, {text, 0, false, static_cast<const RecordedFormat *>(format)});
    }
    bool writeNum(int row, int col, double value, const Spreadsheet::Format *format) override
    {
        return std::isfinite(value)
            && write(row, col, {QString(), value, true, static_cast<const RecordedFormat *>(format)});
    }
    double readNum(int row, int col, const Spreadsheet::Format ** /*format*/) const override
    {
        return cells.value({row, col}).number;
    }
    bool setCol(int first, int last, double width, const Spreadsheet::Format * /*format*/, bool hide) override
    {
        if (first < 0 || last >= maxColumns || first > last)
            return false;
        for (int col = first; col <= last; ++col) {
            widths.insert(col, width);
            setColHidden(col, hide);
        }
        return true;
    }
    bool setRow(int row, double height, const Spreadsheet::Format * /*format*/, bool /*hidden*/) override
    {
        heights.insert(row, height);
        return row >= 0 && row < maxRows && height >= 0 && height <= 409;
    }
    bool setColHidden(int col, bool hide) override
    {
        hidden.removeAll(col);
        if (hide)
            hidden.append(col);
        return col < maxColumns;
    }
    bool setMerge(int rowFirst, int rowLast, int colFirst, int colLast) override
    {
        if (rowFirst > rowLast || colFirst > colLast || (rowFirst == rowLast && colFirst == colLast))
            return false;
        for (const QVector<int> &other : qAsConst(m_merges)) {
            if (rowFirst <= other[1] && other[0] <= rowLast && colFirst <= other[3] && other[2] <= colLast)
                return false;
        }
        m_merges.append({rowFirst, rowLast, colFirst, colLast});
        return rowLast < maxRows && colLast < maxColumns;
    }
    void setDisplayGridlines(bool show) override { page.append(QStringLiteral("display gridlines %1").arg(show)); }
    void setPrintGridlines(bool print) override { page.append(QStringLiteral("print gridlines %1").arg(print)); }
    void setMarginLeft(double margin) override { page.append(QStringLiteral("left %1").arg(margin)); }
    void setMarginRight(double margin) override { page.append(QStringLiteral("right %1").arg(margin)); }
    void setMarginTop(double margin) override { page.append(QStringLiteral("top %1").arg(margin)); }
    void setMarginBottom(double margin) override { page.append(QStringLiteral("bottom %1").arg(margin)); }
    void setPrintFit(int across, int down) override { page.append(QStringLiteral("fit %1 %2").arg(across).arg(down)); }
    void setLandscape(bool landscape) override { page.append(QStringLiteral("landscape %1").arg(landscape)); }
    void setPaper(Spreadsheet::Paper paper) override { page.append(QStringLiteral("paper %1").arg(paper)); }
    bool setPrintRepeatRows(int first, int last) override
    {
        page.append(QStringLiteral("repeat %1 %2").arg(first).arg(last));
        return true;
    }
    bool setFooter(const QString &footer) override
    {
        page.append("footer " + footer);
        return true;
    }

    /// The text of a cell, or its number as text; a null text where nothing was written.
    QString at(int row, int col) const
    {
        const Cell cell = cells.value({row, col});
        return cell.isNumber ? QString::number(cell.number, 'g', 12) : cell.text;
    }
    /// All cells of a row from column 0 on, joined with "|"; a gap reads as nothing.
    QString rowText(int row) const
    {
        QStringList texts;
        for (auto cell = cells.lowerBound({row, 0}); cell != cells.end() && cell.key().first == row; ++cell) {
            while (texts.size() < cell.key().second)
                texts.append(QString());
            texts.append(at(row, cell.key().second));
        }
        return texts.join(QLatin1Char('|'));
    }
    bool isNumber(int row, int col) const { return cells.value({row, col}).isNumber; }
    /// The format of a cell, "none" for the default look.
    QString look(int row, int col) const
    {
        const RecordedFormat *format = cells.value({row, col}).format;
        return format ? format->text() : QStringLiteral("none");
    }
    /// The merged cell that begins there, as "rows 0-1, columns 0-4"; empty if none does.
    QString mergeAt(int row, int col) const
    {
        for (const QVector<int> &merge : m_merges) {
            if (merge[0] == row && merge[2] == col)
                return QStringLiteral("rows %1-%2, columns %3-%4")
                    .arg(merge[0])
                    .arg(merge[1])
                    .arg(merge[2])
                    .arg(merge[3]);
        }
        return {};
    }
    int mergeCount() const { return m_merges.size(); }
    /// The last row with a cell, -1 without any.
    int lastRow() const { return cells.isEmpty() ? -1 : cells.lastKey().first; }

    QString name;
    int maxRows = 65536;
    int maxColumns = 16384;
    QMap<QPair<int, int>, Cell> cells; ///< by row and column
    QMap<int, double> widths;
    QMap<int, double> heights;
    QVector<int> hidden; ///< columns
    QStringList page; ///< calls of the page set-up, in order

private:
    bool write(int row, int col, const Cell &cell)
    {
        if (row < 0 || row >= maxRows || col < 0 || col >= maxColumns)
            return false;
        cells.insert({row, col}, cell);
        return true;
    }

    QVector<QVector<int>> m_merges;
};

class RecordingBook final : public Spreadsheet::Book {
public:
    bool setLocale(const QString &locale) override
    {
        calls.append("locale " + locale);
        return takesLocale;
    }
    void setDefaultFont(const QString &name, int size) override { m_defaultFont = {name, size}; }
    QString defaultFontName() const override { return m_defaultFont.first; }
    int defaultFontSize() const override { return m_defaultFont.second; }
    void setRgbMode(bool rgbMode) override { calls.append(QStringLiteral("rgb %1").arg(rgbMode)); }
    int addCustomNumFormat(const QString &text) override
    {
        numFormats.append(text);
        return 163 + numFormats.size();
    }
    Spreadsheet::Color colorPack(int red, int green, int blue) const override
    {
        return 0x1000000 | red << 16 | green << 8 | blue;
    }
    Spreadsheet::Font *addFont(const Spreadsheet::Font *initFont) override
    {
        RecordedFont font;
        font.name = m_defaultFont.first;
        font.size = m_defaultFont.second;
        m_fonts.push_back(initFont ? *static_cast<const RecordedFont *>(initFont) : font);
        return &m_fonts.back();
    }
    Spreadsheet::Format *addFormat(const Spreadsheet::Format *initFormat) override
    {
        RecordedFormat format;
        format.font = static_cast<RecordedFont *>(addFont(nullptr));
        m_formats.push_back(initFormat ? *static_cast<const RecordedFormat *>(initFormat) : format);
        return &m_formats.back();
    }
    Spreadsheet::Sheet *addSheet(const QString &name, const Spreadsheet::Sheet * /*initSheet*/) override
    {
        if (!takesSheets)
            return nullptr;
        ++sheetCount;
        sheet.name = name;
        return &sheet;
    }
    bool save(const QString & /*fileName*/) override { return false; }
    QString errorMessage() const override { return {}; }
    void release() override { }

    bool takesLocale = true;
    bool takesSheets = true;
    int sheetCount = 0;
    RecordedSheet sheet; ///< the one sheet
    QStringList calls;
    QStringList numFormats; ///< the first one is number 164

private:
    QPair<QString, int> m_defaultFont{QStringLiteral("of the program"), 1};
    std::deque<RecordedFont> m_fonts;
    std::deque<RecordedFormat> m_formats;
};
