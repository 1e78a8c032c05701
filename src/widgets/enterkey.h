#pragma once

class QKeyEvent;
class QWidget;

/// Enter in a dialog whose buttons none is the default: it presses the button that has the focus, and in any other
/// widget it does nothing, so that Enter in a filter or a table never saves or closes. Gives whether the key was Enter.
bool pressFocusedButton(const QWidget &dialog, const QKeyEvent &event);
