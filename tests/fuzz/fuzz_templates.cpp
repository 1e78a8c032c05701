// Any bytes as a template: loaded or refused, and what loads is printed, without a crash or a hang.
#include "fuzz/fuzzapplication.h"
#include "report/recordingprinter.h"
#include "report/rptengine.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>

namespace {

constexpr int records = 3;
constexpr int longest = 20000;

QString fileName()
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("template.xml"));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    makeFuzzApplication();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    // The templates of the fuzzer touch neither databases nor endless scripts.
    if (size > longest || mayRunAway(QString::fromUtf8(bytes)) || bytes.contains("DataSource"))
        return 0;
    QFile file(fileName());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return 0;
    file.close();
    RptEngine engine;
    if (!engine.loadReportFile(fileName()))
        return 0;
    QObject::connect(&engine, &RptEngine::setDSInfo, [](DataSetInfo &info) { info.recordCount = records; });
    QObject::connect(&engine, &RptEngine::setValue, [](int record, const QString &name, QVariant &value, int /*page*/) {
        value = name + QString::number(record);
    });
    RecordingPrinter printer(96);
    engine.printPreview(&printer);
    return 0;
}
