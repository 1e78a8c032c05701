#pragma once

#include <QString>

#include <optional>

/// Scripts of constants alone, which most conditions are once their tokens have values: "4 % 2 == 0?1:0". They are
/// evaluated without an engine, exactly as one would: numbers, texts in quotes, true and false, ! and signs,
/// + - * / %, comparisons, && ||, ?: and parentheses, with the conversions of ECMA-262, 3rd edition, sections 9 and 11.
/// What is not certain to come out alike has no result here, and is an engine's: escapes in texts, names, exponents,
/// numbers of more than 15 digits, anything nested deeply, and every error.
namespace RptConstantScript {

/// The script's value as text, as an engine prints it.
std::optional<QString> text(const QString &script);
/// The script's value as a whole number, cut towards 0; 0 for not-a-number.
std::optional<double> wholeNumber(const QString &script);

} // namespace RptConstantScript
