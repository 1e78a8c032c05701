#pragma once

#include <QTranslator>

/// Qt's own texts in Slovak (buttons of boxes, print preview, context menus). The catalogue that Debian ships is older
/// than Qt 5.15 and files the standard buttons under another name than Qt asks for; this looks there too.
class SlovakTexts : public QTranslator {
    Q_OBJECT

public:
    /// False when this machine has no such catalogue (package qttranslations5-l10n); everything stays English then.
    bool load();

    QString translate(const char *context, const char *sourceText, const char *disambiguation, int n) const override;
};
