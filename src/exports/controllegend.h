#pragma once

#include <QString>
#include <QStringList>

/// The short names of slots and types in the cross table of the control export. A letter is what a reader takes for
/// one: a base with its accents, or an emoji.
namespace ControlLegend {

/// The first `count` letters of a text; all of it when it is shorter.
QString letters(const QString &text, int count);
/// "Ob-Obed" for the slot "Obed".
QString segment(const QString &name);
/// "P-Polievka" for the type "Polievka".
QString type(const QString &name);
/// The slot's legend from its third letter on: "-Obed". The dash stays, on purpose: programs that read the workbook
/// find the sums by this text.
QString segmentInSums(const QString &name);
/// "LEGENDA: Ra-Raňajky, Ob-Obed, P-Polievka": the slots, then the types.
QString text(const QStringList &segments, const QStringList &types);

} // namespace ControlLegend
