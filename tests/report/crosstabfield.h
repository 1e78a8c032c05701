#pragma once

#include "report/rptcrosstabobject.h"
#include "report/rptfieldobject.h"

#include <memory>

/// A field 300 units wide with `rows` visible rows of 20 units, and its table, in place of the field before.
inline RptCrossTabObject *makeTable(std::unique_ptr<RptFieldObject> *owner, int rows)
{
    auto field = std::make_unique<RptFieldObject>();
    field->rect = QRect(10, 20, 300, 20 * rows);
    field->crossTab = new RptCrossTabObject;
    field->crossTab->parentField = field.get();
    field->crossTab->rect = field->rect;
    *owner = std::move(field);
    return (*owner)->crossTab;
}
