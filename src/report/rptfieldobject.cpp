#include "report/rptfieldobject.h"

#include "report/boundedint.h"
#include "report/rptcrosstabobject.h"
#include "report/rptmembers.h"

#include <QDebug>
#include <QDomElement>

using namespace RptAttributes;

namespace {

using Field = RptFieldObject;

constexpr Attribute<Field, QString> texts[] = {
    {"highlighting", &Field::highlighting, ""},
    {"printing", &Field::printing, "1"},
    {"name", &Field::name, ""},
    {"value", &Field::value, ""},
    {"borderStyle", &Field::borderStyle, "solid"},
    {"imgFormat", &Field::imgFormat, "PNG"},
    {"format", &Field::formatString, ""},
};

constexpr Attribute<Field, QColor> colors[] = {
    {"borderTop", &Field::borderTop, ""},     {"borderBottom", &Field::borderBottom, ""},
    {"borderLeft", &Field::borderLeft, ""},   {"borderRight", &Field::borderRight, ""},
    {"borderColor", &Field::borderColor, ""},
};

constexpr Attribute<Field, int> numbers[] = {
    {"rotate", &Field::rotate, "0"},
    {"barcodeType", &Field::barcodeType, "13"},
    {"barcodeFrameType", &Field::barcodeFrameType, "0"},
    {"barcodeHeight", &Field::barcodeHeight, "50"},
    {"ignoreAspectRatio", &Field::ignoreAspectRatio, "1"},
    {"lineStartX", &Field::lineStartX, "0"},
    {"lineEndX", &Field::lineEndX, "0"},
    {"lineStartY", &Field::lineStartY, "0"},
    {"lineEndY", &Field::lineEndY, "0"},
};

constexpr Attribute<Field, bool> flags[] = {
    {"autoHeight", &Field::autoHeight, "0"},
    {"textWrap", &Field::textWrap, "1"},
    {"arrowStart", &Field::arrowStart, "0"},
    {"arrowEnd", &Field::arrowEnd, "0"},
};

/// The edges are inclusive: 10 units from 5 end at 14.
QRect readRect(const QDomElement &element)
{
    const int left = number(element, "left");
    const int top = number(element, "top");
    const qint64 width = number(element, "width");
    const qint64 height = number(element, "height");
    return QRect(QPoint(left, top), QPoint(boundedInt(left + width - 1), boundedInt(top + height - 1)));
}

/// "1px" is 1.
int readBorderWidth(const QDomElement &element)
{
    return text(element, "borderWidth", "1").remove(QStringLiteral("px")).toInt();
}

QFont readFont(const QDomElement &element)
{
    QFont font;
    font.setFamily(text(element, "fontFamily"));
    if (const int size = number(element, "fontSize"); size > 0) // another one would only earn a warning of Qt's
        font.setPointSize(size);
    font.setWeight(flag(element, "fontBold") ? QFont::Bold : QFont::Normal);
    font.setItalic(flag(element, "fontItalic"));
    font.setUnderline(flag(element, "fontUnderline"));
    font.setStrikeOut(flag(element, "fontStrikeout"));
    return font;
}

} // namespace

RptFieldObject::RptFieldObject()
{
    qRegisterMetaType<GraphDataList>("GraphDataList");
}

RptFieldObject::~RptFieldObject()
{
    delete crossTab;
}

void RptFieldObject::readFieldElement(RptEngine *engine, const QDomElement &element)
{
    report = engine;
    readAll(element, this, texts);
    readAll(element, this, colors);
    readAll(element, this, numbers);
    readAll(element, this, flags);
    rect = readRect(element);
    borderWidth = readBorderWidth(element);
    aligment = alignment(text(element, "aligmentH"), text(element, "aligmentV"));
    font = readFont(element);
    setDefaultBackgroundColor(color(text(element, "backgroundColor")));
    setDefaultFontColor(color(text(element, "fontColor")));
    fieldType = RptAttributes::fieldType(element);
    // A missing picture is the decoded word "text", as the format has it: three bytes that are no image.
    picture = QByteArray::fromBase64(text(element, "picture", "text").toLatin1());
    if (fieldType == Rpt::diagram)
        readChart(element);
    if (fieldType == Rpt::crossTab)
        readCrossTab(element);
}

void RptFieldObject::readCrossTab(const QDomElement &element)
{
    delete crossTab;
    crossTab = new RptCrossTabObject;
    crossTab->parentField = this;
    crossTab->rect = rect;
    crossTab->readCrossTabElement(element);
}

RptFieldObject *RptFieldObject::clone() const
{
    auto *copy = new RptFieldObject(*this);
    copy->parentCrossTab = nullptr;
    copy->chart = nullptr;
    copy->crossTab = nullptr;
    return copy;
}

void RptFieldObject::setDefaultFontColor(const QColor &color)
{
    fontColor = color;
    defaultFontColor = color;
}

void RptFieldObject::setDefaultBackgroundColor(const QColor &color)
{
    backgroundColor = color;
    defaultBackgroundColor = color;
}

QDebug operator<<(QDebug stream, const RptFieldObject &field)
{
    const QDebugStateSaver saver(stream);
    stream.nospace().noquote() << field.name;
    return stream;
}
