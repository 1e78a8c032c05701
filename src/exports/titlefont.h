#pragma once

class QFont;
class QString;

/// The point size, a whole number from 6 up, at which `text` stays on one line of a label `width` template units
/// (quarters of a millimetre) wide, with some air beside it: that of `font`, or a smaller one for a longer text. A line
/// that the least size cannot hold either gets that one. Widths are those of the letters on paper, not rounded to any
/// screen.
int fittingPointSize(const QFont &font, const QString &text, int width);
