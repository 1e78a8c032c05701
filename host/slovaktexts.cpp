#include "slovaktexts.h"

#include <QLibraryInfo>

bool SlovakTexts::load()
{
    return QTranslator::load(QStringLiteral("qtbase_sk"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
}

QString SlovakTexts::translate(const char *context, const char *sourceText, const char *disambiguation, int n) const
{
    const QString text = QTranslator::translate(context, sourceText, disambiguation, n);
    if (!text.isEmpty() || qstrcmp(context, "QPlatformTheme") != 0)
        return text;
    return QTranslator::translate("QDialogButtonBox", sourceText, disambiguation, n);
}
