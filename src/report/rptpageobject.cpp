#include "report/rptpageobject.h"

#include "report/rptbandobject.h"
#include "report/rptmembers.h"

#include <QDebug>
#include <QDomElement>

using RptAttributes::Attribute;

namespace {

using Page = RptPageObject;

constexpr Attribute<Page, int> numbers[] = {
    {"pageNo", &Page::pageNo, "0"},           {"orientation", &Page::orientation, "0"},
    {"pageWidth", &Page::pageWidth, "0"},     {"pageHeight", &Page::pageHeight, "0"},
    {"marginsLeft", &Page::marginsLeft, "0"}, {"marginsRight", &Page::marginsRight, "0"},
    {"marginsTop", &Page::marginsTop, "0"},   {"marginsBottom", &Page::marginsBottom, "0"},
    {"borderWidth", &Page::borderWidth, "0"},
};

constexpr Attribute<Page, bool> flags[] = {
    {"border", &Page::border, "0"},
    {"watermark", &Page::watermark, "0"},
};

QPixmap pixmapOf(const QString &base64)
{
    QPixmap pixmap;
    pixmap.loadFromData(QByteArray::fromBase64(base64.toLatin1()), "PNG");
    return pixmap;
}

} // namespace

RptPageObject::~RptPageObject()
{
    qDeleteAll(bandList);
}

void RptPageObject::readPageElement(RptEngine *engine, const QDomElement &element)
{
    report = engine;
    RptAttributes::readAll(element, this, numbers);
    RptAttributes::readAll(element, this, flags);
    borderColor = RptAttributes::color(RptAttributes::text(element, "borderColor"));
    borderStyle = RptAttributes::text(element, "borderStyle");
    watermarkOpacity = RptAttributes::real(element, "watermarkOpacity", "0.5");
    watermarkPixmap = pixmapOf(RptAttributes::text(element, "watermarkPixmap"));

    const QLatin1String tag("ReportBand");
    for (QDomElement child = element.firstChildElement(tag); !child.isNull(); child = child.nextSiblingElement(tag)) {
        auto *band = new RptBandObject;
        addBand(band);
        band->readBandElement(engine, child);
    }
}

int RptPageObject::bandCount(int type) const
{
    int greatest = 0;
    for (const RptBandObject *band : bandList) {
        if (band->type == type)
            greatest = qMax(greatest, band->bandNo);
    }
    return greatest;
}

RptBandObject *RptPageObject::findBand(int type, int bandNo) const
{
    for (RptBandObject *band : bandList) {
        if (band->type == type && band->bandNo == bandNo)
            return band;
    }
    return nullptr;
}

RptFieldObject *RptPageObject::findFieldByName(const QString &fieldName) const
{
    for (const RptBandObject *band : bandList) {
        if (RptFieldObject *field = band->findFieldByName(fieldName))
            return field;
    }
    return nullptr;
}

void RptPageObject::addBand(RptBandObject *band)
{
    band->parentReportPage = this;
    band->report = report;
    bandList.append(band);
}

RptPageObject *RptPageObject::clone() const
{
    auto *copy = new RptPageObject(*this);
    copy->bandList.clear();
    for (const RptBandObject *band : bandList)
        copy->addBand(band->clone());
    return copy;
}

QDebug operator<<(QDebug stream, const RptPageObject &page)
{
    const QDebugStateSaver saver(stream);
    stream.nospace() << "Report #" << page.pageNo << " [";
    const char *separator = "";
    for (const RptBandObject *band : page.bandList) {
        stream << separator << *band;
        separator = ", ";
    }
    stream << ']';
    return stream;
}
