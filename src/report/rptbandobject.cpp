#include "report/rptbandobject.h"

#include "report/rptfieldobject.h"
#include "report/rptmembers.h"

#include <QDebug>
#include <QDomElement>

using RptAttributes::Attribute;

namespace {

using Band = RptBandObject;

constexpr Attribute<Band, QString> texts[] = {
    {"name", &Band::name, ""},
    {"groupingField", &Band::groupingField, ""},
    {"dataSourceName", &Band::dataSourceName, ""},
};

constexpr Attribute<Band, int> numbers[] = {
    {"height", &Band::height, "0"}, {"height", &Band::realHeight, "0"}, {"width", &Band::width, "0"},
    {"left", &Band::left, "0"},     {"right", &Band::right, "0"},       {"bandNo", &Band::bandNo, "1"},
};

constexpr Attribute<Band, bool> flags[] = {
    {"showInGroup", &Band::showInGroup, "0"},
    {"startNewPage", &Band::startNewPage, "0"},
};

} // namespace

RptBandObject::~RptBandObject()
{
    qDeleteAll(fieldList);
}

void RptBandObject::readBandElement(RptEngine *engine, const QDomElement &element)
{
    report = engine;
    RptAttributes::readAll(element, this, texts);
    RptAttributes::readAll(element, this, numbers);
    RptAttributes::readAll(element, this, flags);
    type = RptAttributes::bandType(RptAttributes::text(element, "type"));

    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        auto *field = new RptFieldObject;
        addField(field);
        field->readFieldElement(engine, child);
    }
}

RptFieldObject *RptBandObject::findFieldByName(const QString &fieldName) const
{
    for (RptFieldObject *field : fieldList) {
        if (field->name == fieldName)
            return field;
    }
    return nullptr;
}

void RptBandObject::addField(RptFieldObject *field)
{
    field->parentBand = this;
    field->report = report;
    fieldList.append(field);
}

RptBandObject *RptBandObject::clone() const
{
    auto *copy = new RptBandObject;
    copy->name = QStringLiteral("ReportTitle");
    copy->realHeight = realHeight;
    copy->type = type;
    copy->report = report;
    for (const RptFieldObject *field : fieldList)
        copy->addField(field->clone());
    return copy;
}

QDebug operator<<(QDebug stream, const RptBandObject &band)
{
    const QDebugStateSaver saver(stream);
    stream.nospace().noquote() << band.name << " [";
    const char *separator = "";
    for (const RptFieldObject *field : band.fieldList) {
        stream << separator << *field;
        separator = ", ";
    }
    stream << ']';
    return stream;
}
