#pragma once

class QWidget;

/// What a dialog does with its record. The host's style sheet keys on the dynamic property `editState`, "add" or
/// "edit".
enum class EditState { Add, Edit };

/// Sets the property `editState` of `dialog`.
void setEditState(QWidget *dialog, EditState state);
