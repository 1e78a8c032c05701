#pragma once

class QString;
class QWidget;

/// Asks before something is deleted: a question with the buttons OK and Cancel, Cancel being the default, modal to
/// `parent`. `title` and `text` come translated in the context of the calling class; names in them are shown as typed,
/// never as markup. A text of many lines scrolls within the box (widgets/longtext.h). True for OK only; false too when
/// `parent` went away, and took the box along, while it was open.
bool confirmDeletion(QWidget *parent, const QString &title, const QString &text);
