#include "report/templatecheck.h"

#include <QXmlStreamReader>

bool isTemplateSound(QIODevice *device)
{
    constexpr int greatestDepth = 100;
    QXmlStreamReader reader(device);
    // Prefixes mean nothing to a template, so they need no declaration.
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && ++depth > greatestDepth)
            return false;
        if (reader.isEndElement())
            --depth;
        if (reader.isDTD() && !reader.entityDeclarations().isEmpty())
            return false;
    }
    return !reader.hasError();
}
