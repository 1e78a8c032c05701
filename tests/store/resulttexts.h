#pragma once

#include "store/alergenrepository.h"
#include "store/foodrepository.h"
#include "store/orderablerepository.h"
#include "store/segmentrepository.h"
#include "store/supplierrepository.h"
#include "store/typerepository.h"

#include <QStandardItemModel>
#include <QVariantMap>

#include <memory>

/// Results of repository operations as short texts to compare. A model or record that comes by pointer is deleted.
inline QString textOf(bool value)
{
    return QString(value ? "true" : "false");
}

inline QString textOf(int value)
{
    return QString::number(value);
}

inline QString textOf(uint value)
{
    return QString::number(value);
}

inline QString textOf(const QDate &date)
{
    return date.isNull() ? QString("no date") : date.toString(Qt::ISODate);
}

inline QString textOf(const QVariantMap &map)
{
    return QString("%1 entries").arg(map.size());
}

inline QString textOf(QStandardItemModel *model)
{
    const std::unique_ptr<QStandardItemModel> owner(model);
    return model ? QString("%1 rows").arg(model->rowCount()) : QString("null");
}

inline QString textOf(const FoodRecord &food)
{
    return QString("%1 '%2' %3").arg(food.foodID).arg(food.name).arg(food.price);
}

inline QString textOf(const TypeRecord &type)
{
    return QString("%1 '%2' %3").arg(type.typeID).arg(type.name).arg(type.position);
}

inline QString textOf(const AlergenRecord &alergen)
{
    return QString("%1 '%2'").arg(alergen.alergenID).arg(alergen.title);
}

inline QString textOf(const SegmentRecord &segment)
{
    return QString("%1 '%2' %3").arg(segment.segmentID).arg(segment.name).arg(segment.start.isValid());
}

inline QString textOf(const OrderableRecord &item)
{
    return QString("%1 %2 ").arg(item.orderableID).arg(item.limit) + textOf(item.date);
}

inline QString textOf(const SupplierRecord &supplier)
{
    return QString("%1 '%2' %3").arg(supplier.supplierID).arg(supplier.name).arg(supplier.deadline.isValid());
}

inline QString textOf(SupplierTime *time)
{
    const std::unique_ptr<SupplierTime> owner(time);
    return time ? QString("%1 %2 %3").arg(time->proMailDelayID).arg(time->daysto).arg(time->sendtime.isValid())
                : QString("null");
}
