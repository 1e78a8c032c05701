#pragma once

#include <QMessageBox>

/// Shows a box of the order dialog with the button OK and waits for it. The box belongs to `parent` and keeps the size
/// of 500 × 200 pixels whatever its text. `format` tells whether `text` is markup, in which names must come escaped.
void showOrderBox(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
                  Qt::TextFormat format);
