#pragma once

#include <QString>

/// The build moment as "yyMMddhhmm" from the compiler's stamps: `dateText` in the form of `__DATE__` ("Apr  1 2024", a
/// one-digit day with two blanks before it), `timeText` in that of `__TIME__` ("19:57:40"). Empty when they do not make
/// a valid date and time. "Apr 21 2024" and "19:57:40" give "2404211957".
QString buildMoment(const QString &dateText, const QString &timeText);
