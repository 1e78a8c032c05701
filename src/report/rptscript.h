#pragma once

#include <QString>

/// Evaluates the scripts of formulas and conditions. Each gets the result that a fresh engine of its own would give,
/// for a fraction of the cost: no script sees what another one left behind. A script that fails has its error as
/// result, in the engine's wording; nothing is logged. A script that does not end, hangs. Of the GUI thread only, while
/// there is an application object.
namespace RptScript {

/// The text of a formula's script, which has the report's functions and, as `showInGroup`, whether the aggregates keep
/// to the group.
QString formulaText(const QString &script, bool showInGroup);
/// The text of a condition's script, which has none of the report's functions and properties.
QString conditionText(const QString &script);
/// The same as a whole number, cut towards 0; 0 for an error and for any text that is no number.
double conditionNumber(const QString &script);

} // namespace RptScript
