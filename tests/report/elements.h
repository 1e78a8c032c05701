#pragma once

#include <QDomDocument>
#include <QPair>
#include <QString>
#include <QVector>

#include <initializer_list>

using AttributeList = std::initializer_list<QPair<const char *, QString>>;

/// A new element of a document, outside its tree, with attributes as they would stand in a template.
inline QDomElement makeElement(QDomDocument *document, const char *tag, AttributeList attributes = {})
{
    QDomElement element = document->createElement(QLatin1String(tag));
    for (const auto &attribute : attributes)
        element.setAttribute(QLatin1String(attribute.first), attribute.second);
    return element;
}

inline QDomElement addChild(QDomDocument *document, QDomElement parent, const char *tag, AttributeList attributes = {})
{
    const QDomElement child = makeElement(document, tag, attributes);
    parent.appendChild(child);
    return child;
}

/// Texts of whole-number attributes, and what they read as.
inline QVector<QPair<QString, int>> numberTexts()
{
    return {
        {"0", 0},
        {"7", 7},
        {"-3", -3},
        {"+4", 4},
        {" 12 ", 12},
        {"007", 7},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"2147483648", 0},
        {"-2147483649", 0},
        {QString(10000, '9'), 0},
        {"1.5", 0},
        {"1e3", 0},
        {"0x10", 0},
        {"1,000", 0},
        {"", 0},
        {"-", 0},
        {"true", 0},
        {"12px", 0},
        {"12; drop", 0},
        {"<b>1</b>", 0},
        {"%1", 0},
        {QString::fromUtf8("١٢"), 0},
        {QString::fromUtf8("🍕"), 0},
    };
}

/// Texts that must arrive as they are.
inline QVector<QString> hostileTexts()
{
    return {
        "",
        " ",
        "it's \"quoted\" \\ back",
        "%1 %s",
        "<b>markup</b> & more",
        QString::fromUtf8("čaj 🍵"),
        QString::fromUtf8("\u202Eright to left"),
        "[name] <Page>",
        "first\nsecond\tthird",
        QString(10000, 'x'),
    };
}
