#include "suppliers/mailaddress.h"

#include <QInputDialog>
#include <QRegExp>

bool isMailAddress(const QString &text)
{
    // Made for each call, since a match changes the object; Qt keeps the compiled pattern.
    const QRegExp pattern(QStringLiteral("\\b[A-Z0-9._%+-]+@[A-Z0-9.-]+\\.[A-Z]{2,4}\\b"), Qt::CaseInsensitive,
                          QRegExp::RegExp);
    return pattern.exactMatch(text);
}

QString askMailAddress(QWidget *parent, const QString &title, const QString &label, const QString &text)
{
    bool accepted = false;
    const QString mail = QInputDialog::getText(parent, title, label, QLineEdit::Normal, text, &accepted);
    return accepted && isMailAddress(mail) ? mail : QString();
}
