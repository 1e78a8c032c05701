#pragma once

#include <QFile>
#include <QString>

#include <optional>
#include <sys/types.h>

namespace Spreadsheet {

/// A file that remembers a write that failed or fell short: the next one may succeed, and wipes the error away.
class MindfulFile : public QFile {
public:
    bool tookEverything() const { return m_tookEverything; }

protected:
    qint64 writeData(const char *data, qint64 length) override
    {
        const qint64 written = QFile::writeData(data, length);
        m_tookEverything = m_tookEverything && written == length;
        return written;
    }

private:
    bool m_tookEverything = true;
};

/// A file that takes the place of another one when it is complete: until `commit`, whatever stood under the name stays
/// as it was, and a replacement that is given up leaves nothing behind. The new file has the permissions of the old
/// one, or those of any new file. Where the name is that of a symbolic link, what it points to is replaced.
///
/// A file that another program has locked (an advisory lock of the system, as office programs set) is not replaced.
class FileReplacement {
public:
    /// Touches nothing yet.
    explicit FileReplacement(const QString &fileName);
    /// Removes what was begun and not committed.
    ~FileReplacement();
    Q_DISABLE_COPY(FileReplacement)

    /// Makes the empty new file beside the old one and opens it for writing. False with the reason in `error`, in
    /// English: a folder that is missing or takes no files, a name that is a folder's or a device's, a file that is
    /// read-only or locked. To be called once.
    bool begin(QString *error);
    /// The new file, open after `begin`.
    QIODevice &device() { return m_file; }
    /// Its name, for a writer that opens it by name.
    QString temporaryName() const { return m_temporary; }
    /// Puts the new file, all of it on the disk, in place of the old one, unless the device did not take all that was
    /// written to it, or the disk does not; what a writer by name wrote in vain it must find out itself. False with the
    /// reason in `error`; the old one then stays, and the new one is gone.
    bool commit(QString *error);

private:
    bool create(QString *error);
    bool replace(QString *error);

    const QString m_fileName;
    QString m_target; ///< what is replaced: `m_fileName` without symbolic links
    QString m_temporary; ///< empty while there is no new file
    std::optional<mode_t> m_permissions; ///< those of the file that is replaced
    MindfulFile m_file;
};

} // namespace Spreadsheet
