#include "report/barcode.h"

#include <QDataStream>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPainter>
#include <QVariantMap>

namespace {

constexpr char barcodeTypesProperty[] = "BarcodeTypes";
constexpr char frameTypesProperty[] = "FrameTypes";

QString placeholder()
{
    return QStringLiteral("NO_BARCODE");
}

QList<QPair<int, QString>> pairs(const QMetaEnum &names)
{
    QList<QPair<int, QString>> list;
    for (int index = 0; index < names.keyCount(); ++index)
        list.append({names.value(index), QLatin1String(names.key(index))});
    return list;
}

bool isKept(const QMetaProperty &property)
{
    return property.isStored() && property.isReadable() && property.isWritable();
}

/// Enumerations go as numbers: their own types have no form in a stream.
QVariant streamable(const QMetaProperty &property, const QObject *object)
{
    const QVariant value = property.read(object);
    return property.isEnumType() ? QVariant(value.toInt()) : value;
}

QVariantMap storedProperties(const BarCode &barCode)
{
    const QMetaObject *const meta = barCode.metaObject();
    QVariantMap values;
    for (int index = 0; index < meta->propertyCount(); ++index) {
        const QMetaProperty property = meta->property(index);
        if (isKept(property))
            values.insert(QLatin1String(property.name()), streamable(property, &barCode));
    }
    return values;
}

QVariantMap dynamicProperties(const BarCode &barCode)
{
    QVariantMap values;
    const QList<QByteArray> names = barCode.dynamicPropertyNames();
    for (const QByteArray &name : names)
        values.insert(QString::fromUtf8(name), barCode.property(name.constData()));
    values.insert(QLatin1String(barcodeTypesProperty), barCode.barcodeType());
    values.insert(QLatin1String(frameTypesProperty), barCode.frameType());
    return values;
}

} // namespace

BarCode::BarCode(QWidget *parent)
    : QWidget(parent)
{
}

void BarCode::drawBarcode(QPainter *painter, const QRect &rect) const
{
    painter->drawText(rect, Qt::AlignCenter, placeholder());
}

QString BarCode::typeName(int number)
{
    return QLatin1String(QMetaEnum::fromType<BarcodeTypes>().valueToKey(number));
}

QList<QPair<int, QString>> BarCode::typeList()
{
    return pairs(QMetaEnum::fromType<BarcodeTypes>());
}

QList<QPair<int, QString>> BarCode::frameTypeList()
{
    return pairs(QMetaEnum::fromType<FrameTypes>());
}

void BarCode::setValue(QString value)
{
    m_value = std::move(value);
    update();
}

void BarCode::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawText(0, 0, placeholder());
}

QDataStream &operator<<(QDataStream &stream, const BarCode &barCode)
{
    return stream << storedProperties(barCode) << dynamicProperties(barCode);
}

QDataStream &operator>>(QDataStream &stream, BarCode &barCode)
{
    QVariantMap stored;
    QVariantMap dynamic;
    stream >> stored >> dynamic;
    if (stream.status() != QDataStream::Ok)
        return stream;
    const QMetaObject *const meta = barCode.metaObject();
    for (int index = 0; index < meta->propertyCount(); ++index) {
        const QMetaProperty property = meta->property(index);
        const QVariant value = stored.value(QLatin1String(property.name()));
        if (isKept(property) && value.isValid())
            property.write(&barCode, value);
    }
    for (auto entry = dynamic.cbegin(); entry != dynamic.cend(); ++entry)
        barCode.setProperty(entry.key().toUtf8().constData(), entry.value());
    barCode.setBarcodeType(barCode.property(barcodeTypesProperty).toInt());
    barCode.setFrameType(barCode.property(frameTypesProperty).toInt());
    return stream;
}
