#pragma once

#include <QString>

#include <memory>

class QIODevice;

namespace Spreadsheet {

/// The OLE2 file around the stream of a workbook, made by libgsf: bytes go on to the device as they come.
class OleContainer {
public:
    /// Begins the file at the start of `device`, which is open, random-access, empty, and outlives the container.
    explicit OleContainer(QIODevice &device);
    ~OleContainer();
    Q_DISABLE_COPY(OleContainer)

    /// Appends bytes to the stream, or writes over those from the last `seek` on.
    void write(const uchar *bytes, qint64 size);
    /// Goes to a place of the stream that was written already, or to its end.
    void seek(qint64 place);
    /// Completes the file. False with the reason in `error`, in English, when anything failed since the beginning.
    bool close(QString *error);

private:
    struct Outputs;

    std::unique_ptr<Outputs> m_outputs;
};

} // namespace Spreadsheet
