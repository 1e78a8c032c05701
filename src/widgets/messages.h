#pragma once

#include <QMessageBox>

/// Shows a box with the button OK, modal to `parent`, and waits for it. `title` and `text` come translated in the
/// context of the calling class; the text is shown as typed, never as markup, and scrolls within the box when it is
/// long (widgets/longtext.h).
void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text);
