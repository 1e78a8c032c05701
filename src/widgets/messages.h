#pragma once

#include <QMessageBox>

/// Shows a box, modal to `parent`, and gives the button that was pressed, or `NoButton` when `parent` went away, and
/// took the box along, while it was open: a caller that is a part of `parent` must not touch itself any more then.
/// `title` and `text` come translated in the context of the calling class; the text is shown as typed, never as markup,
/// and scrolls within the box when it is long (widgets/longtext.h).
QMessageBox::StandardButton askMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title,
                                       const QString &text, QMessageBox::StandardButtons buttons,
                                       QMessageBox::StandardButton defaultButton);

/// The same with the button OK alone.
void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text);
