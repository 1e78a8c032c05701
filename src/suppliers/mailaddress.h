#pragma once

#include <QString>

class QWidget;

/// Whether `text` as a whole looks like a mail address: a local part of letters, digits and "._%+-", "@", a domain of
/// letters, digits, dots and hyphens, and a last part of two to four letters; letters without marks, in either case. It
/// must begin with a letter, a digit or "_". Blanks around it, names beside it and last parts of more than four letters
/// (".museum") fail. Linear in the length of the text.
bool isMailAddress(const QString &text);

/// Asks for a mail address in a dialog modal to `parent`, which starts with `text`; the texts come translated. Gives
/// the address, or an empty text when there is none: the user cancelled, what was typed does not look like an address
/// (it is dropped without a word), or `parent` went away, and took the dialog along, while it was open. A caller that
/// is a part of `parent` must not touch itself any more after an empty text.
QString askMailAddress(QWidget *parent, const QString &title, const QString &label, const QString &text = QString());
