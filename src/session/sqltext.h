#pragma once

#include <QString>

class QVariant;

/// The text of a database value as every grid shows it. An SQL NULL is the empty text for every column type; Qt 5
/// alone would turn the NULL of a numeric column into "0".
QString sqlText(const QVariant &value);
