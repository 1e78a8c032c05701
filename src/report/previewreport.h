#pragma once

#include "report/rptengine.h"

#include <QPointer>

/// Prints a template by way of the preview, with an engine made for this one print, and comes back when the preview is
/// closed. `caller`, a widget, becomes the parent of engine and preview; its slots `setValue` and `setDSInfo` are
/// connected to the signals of the same names and give the values and the number of records, and so is `setField`,
/// which may change fields, if there is one. A template that cannot be loaded opens no preview
/// (`RptEngine::loadReportFile` tells what is logged).
///
/// `caller` may go away while the preview stands, and takes it along: a slot that calls this must not touch its object
/// any more when this gives false.
template<typename Caller>
bool previewReport(Caller *caller, const QString &templateFile,
                   void (Caller::*setValue)(const int, const QString, QVariant &, const int),
                   void (Caller::*setDSInfo)(DataSetInfo &), void (Caller::*setField)(RptFieldObject &) = nullptr)
{
    const QPointer<RptEngine> engine(new RptEngine(caller));
    QObject::connect(engine, &RptEngine::setValue, caller, setValue, Qt::DirectConnection);
    QObject::connect(engine, &RptEngine::setDSInfo, caller, setDSInfo, Qt::DirectConnection);
    if (setField)
        QObject::connect(engine, &RptEngine::setField, caller, setField, Qt::DirectConnection);
    if (engine->loadReportFile(templateFile))
        engine->startPrint(false, false, QString());
    if (!engine)
        return false;
    delete engine;
    return true;
}
