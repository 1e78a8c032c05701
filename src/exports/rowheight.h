#pragma once

class QString;

/// The number of lines, 1 at least, that a text takes in a column of `width` digits of the default font, in which it is
/// wrapped between its words. An estimate by the letters' usual widths: whoever opens the workbook has fonts of his
/// own.
int lineCount(const QString &text, double width);

/// The height in points of a row with so many lines in the default font, up to the 409 that a row may have. Programs
/// leave the rows of an XLS file as high as the file says, so that a row must be told when its text wraps.
double rowHeight(int lines);
