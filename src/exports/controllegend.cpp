#include "exports/controllegend.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

namespace ControlLegend {

QString letters(const QString &text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int end = 0;
    for (int letter = 0; letter < count; ++letter) {
        const int next = finder.toNextBoundary();
        if (next < 0)
            return text;
        end = next;
    }
    return text.left(end);
}

QString segment(const QString &name)
{
    return letters(name, 2) + QLatin1Char('-') + name;
}

QString type(const QString &name)
{
    return letters(name, 1) + QLatin1Char('-') + name;
}

QString segmentInSums(const QString &name)
{
    const QString legend = segment(name);
    return legend.mid(letters(legend, 2).size());
}

QString text(const QStringList &segments, const QStringList &types)
{
    QStringList entries;
    for (const QString &name : segments)
        entries.append(segment(name));
    for (const QString &name : types)
        entries.append(type(name));
    return QCoreApplication::translate("MenuWidget", "LEGENDA: %1").arg(entries.join(QLatin1String(", ")));
}

} // namespace ControlLegend
