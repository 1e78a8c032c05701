#pragma once

#include <functional>

class QKeyEvent;
class QWidget;

/// Calls `action` whenever Enter, of either kind, is pressed while `widget` has the focus: the keyboard's way to a
/// double click. The key goes no further, so it presses no default button.
void onEnter(QWidget *widget, const std::function<void()> &action);

/// Enter in a dialog whose buttons none is the default: it presses the button that has the focus, and in any other
/// widget it does nothing, so that Enter in a filter or a table never saves or closes. Gives whether the key was Enter.
bool pressFocusedButton(const QWidget &dialog, const QKeyEvent &event);
