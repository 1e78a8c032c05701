#pragma once

#include <QString>

#include <functional>

/// Whether a script can leave nothing behind in its engine, nor find there what depends on the engine's past: it may
/// run in an engine that others use after it. The answer comes from the script's signs alone, and is no where there is
/// doubt. Harmless is what consists of numbers, texts, calls and operators without assignment, of properties that are
/// known to be read only, and of names: those of a few pure functions, and those that the engine does not know at all,
/// which fail alike everywhere. `isKnown` tells whether the engine has a global of a name, inherited ones included.
bool isHarmlessScript(const QString &script, const std::function<bool(const QString &name)> &isKnown);
