#pragma once

class QScriptEngine;

/// Makes the functions of formulas known to an engine, with the property `showInGroup`: Sum, Replace, ToUpper, ToLower,
/// NumberToWords, Frac, Floor, Ceil and Round. Numbers are read from the text of an argument, 0 from any other text.
/// The aggregates look into the values of the print at the moment of the call.
void addReportFunctions(QScriptEngine *engine, bool showInGroup);
/// Changes whether the aggregates of an engine keep to the group.
void setShowInGroup(QScriptEngine *engine, bool showInGroup);
