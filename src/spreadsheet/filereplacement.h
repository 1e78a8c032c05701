#pragma once

#include <QString>
#include <QTemporaryFile>

namespace Spreadsheet {

/// A file that takes the place of another one when it is complete: until `commit`, whatever stood under the name stays
/// as it was, and a replacement that is given up leaves nothing behind.
///
/// A file that another program has locked (an advisory lock of the system, as office programs set) is not replaced.
class FileReplacement {
public:
    /// Touches nothing yet.
    explicit FileReplacement(const QString &fileName);

    /// Makes the empty new file beside the old one and opens it for writing. False with the reason in `error`, in
    /// English: a folder that is missing or takes no files, a name that is a folder's, a file that is read-only or
    /// locked.
    bool begin(QString *error);
    /// The new file, open after `begin`.
    QIODevice &device() { return m_file; }
    /// Its name, for a writer that opens it by name.
    QString temporaryName() const { return m_file.fileName(); }
    /// Puts the new file, all of it on the disk, in place of the old one. False with the reason in `error`; the old one
    /// then stays.
    bool commit(QString *error);

private:
    const QString m_fileName;
    QTemporaryFile m_file; ///< removes itself unless it was renamed
};

} // namespace Spreadsheet
