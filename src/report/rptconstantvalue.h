#pragma once

#include <QString>

#include <optional>

/// The values of scripts that consist of constants, with the conversions of ECMA-262, 3rd edition, section 9. A
/// conversion that is not certain to come out as in an engine has no result.
namespace RptConstant {

struct Value {
    enum Kind { Boolean, Number, Text };

    Kind kind = Number;
    double number = 0; ///< of a boolean 0 or 1; 0 of a text
    QString text; ///< of a text
};

Value boolean(bool value);
Value number(double value);
Value text(const QString &value);

/// The value as number: a text without anything but blanks is 0, one that starts with a letter is not a number. Other
/// forms than decimals of at most 15 digits have no result.
std::optional<double> numberOf(const Value &value);
/// The value as text; numbers in the shortest form that names them. None for numbers that take more than 15 digits, or
/// an exponent.
std::optional<QString> textOf(const Value &value);
/// The value as condition: false for an empty text, 0 and not-a-number.
bool isTrue(const Value &value);

/// Whether a character is blank space within a script.
bool isBlank(QChar c);
/// Whether it is one of 0 to 9.
bool isDigit(QChar c);
/// Reads "12", "12.", "12.5" or ".5" of at most 15 digits, and moves on behind it.
std::optional<double> readDecimal(const QChar *&at, const QChar *end);

} // namespace RptConstant
