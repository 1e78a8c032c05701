#include "spreadsheet/olecontainer.h"

#include <QIODevice>

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-impl.h>
#include <gsf/gsf-output.h>
#include <gsf/gsf-utils.h>

#include <mutex>

namespace Spreadsheet {

namespace {

/// An output of libgsf whose bytes go to a QIODevice.
struct DeviceOutput {
    GsfOutput base;
    QIODevice *device;
    bool failed;
};

gboolean closeDevice(GsfOutput * /*output*/)
{
    return true;
}

gboolean seekDevice(GsfOutput *output, gsf_off_t offset, GSeekType whence)
{
    const gsf_off_t from[] = {output->cur_offset, 0, output->cur_size}; // by G_SEEK_CUR, G_SEEK_SET, G_SEEK_END
    auto *self = reinterpret_cast<DeviceOutput *>(output);
    if (!self->device->seek(from[whence] + offset))
        self->failed = true;
    return !self->failed;
}

gboolean writeDevice(GsfOutput *output, size_t size, const guint8 *bytes)
{
    auto *self = reinterpret_cast<DeviceOutput *>(output);
    const auto wanted = qint64(size);
    // After a first failure nothing more reaches the device: a later, smaller piece might find room.
    if (self->failed || self->device->write(reinterpret_cast<const char *>(bytes), wanted) != wanted)
        self->failed = true;
    return !self->failed;
}

void initClass(gpointer classPointer, gpointer /*data*/)
{
    auto *outputClass = static_cast<GsfOutputClass *>(classPointer);
    outputClass->Close = closeDevice;
    outputClass->Seek = seekDevice;
    outputClass->Write = writeDevice;
}

GType deviceOutputType()
{
    static const GType type =
        g_type_register_static_simple(gsf_output_get_type(), "SpreadsheetDeviceOutput", sizeof(GsfOutputClass),
                                      initClass, sizeof(DeviceOutput), nullptr, GTypeFlags(0));
    return type;
}

DeviceOutput *newDeviceOutput(QIODevice &device)
{
    static std::once_flag initialised;
    std::call_once(initialised, gsf_init);
    auto *output = static_cast<DeviceOutput *>(g_object_new(deviceOutputType(), nullptr));
    output->device = &device;
    output->failed = false;
    return output;
}

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template<typename Object> using ObjectPointer = std::unique_ptr<Object, Unref>;

} // namespace

struct OleContainer::Outputs {
    explicit Outputs(QIODevice &device)
        : sink(newDeviceOutput(device))
        , file(gsf_outfile_msole_new(&sink->base))
        , stream(gsf_outfile_new_child(file.get(), "Workbook", false))
    {
    }

    ObjectPointer<DeviceOutput> sink;
    ObjectPointer<GsfOutfile> file;
    ObjectPointer<GsfOutput> stream;
    bool failed = false;
};

OleContainer::OleContainer(QIODevice &device)
    : m_outputs(std::make_unique<Outputs>(device))
{
}

OleContainer::~OleContainer() = default;

void OleContainer::write(const uchar *bytes, qint64 size)
{
    if (!m_outputs->failed && !gsf_output_write(m_outputs->stream.get(), size_t(size), bytes))
        m_outputs->failed = true;
}

void OleContainer::seek(qint64 place)
{
    if (!m_outputs->failed && !gsf_output_seek(m_outputs->stream.get(), place, G_SEEK_SET))
        m_outputs->failed = true;
}

bool OleContainer::close(QString *error)
{
    const bool streamClosed = gsf_output_close(m_outputs->stream.get());
    const bool fileClosed = gsf_output_close(reinterpret_cast<GsfOutput *>(m_outputs->file.get()));
    const DeviceOutput &sink = *m_outputs->sink;
    if (streamClosed && fileClosed && !m_outputs->failed && !sink.failed)
        return true;
    *error = sink.failed ? sink.device->errorString() : QStringLiteral("The container of the file cannot be made");
    return false;
}

} // namespace Spreadsheet
