#include "spreadsheet/filereplacement.h"

#include <QUuid>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Spreadsheet {

namespace {

namespace fs = std::filesystem;

fs::path pathOf(const QString &name)
{
    return QFile::encodeName(name).toStdString();
}

/// `what`, and the system's words for an error number, in English whatever the locale.
bool fail(QString *error, const QString &what, int number)
{
    const char *reason = strerrordesc_np(number);
    *error = reason ? what + QLatin1String(": ") + QLatin1String(reason) : what;
    return false;
}

bool fail(QString *error, const QString &what)
{
    *error = what;
    return false;
}

/// The name with the links of its folders resolved, which ".." in a link's text needs.
fs::path inRealFolder(const fs::path &path, std::error_code &code)
{
    return fs::canonical(fs::absolute(path, code).parent_path(), code) / path.filename();
}

/// The file that opening `name` for writing would write, there or not: a link may point to a file that is still to be
/// made.
bool resolve(const QString &name, QString *target, QString *error)
{
    constexpr int mostLinks = 40; // the system's own limit
    std::error_code code;
    fs::path path = inRealFolder(pathOf(name), code);
    for (int links = 0; !code && fs::is_symlink(fs::symlink_status(path, code)); ++links) {
        if (links == mostLinks)
            return fail(error, name, ELOOP);
        path = inRealFolder(path.parent_path() / fs::read_symlink(path, code), code);
    }
    // A name that is not there yet is no error.
    if (code && code != std::errc::no_such_file_or_directory)
        return fail(error, name, code.value());
    if (!fs::is_directory(path.parent_path(), code))
        return fail(error, QStringLiteral("there is no folder for \"%1\"").arg(name));
    *target = QFile::decodeName(path.c_str());
    return true;
}

class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Q_DISABLE_COPY(Descriptor)

    int number() const { return m_number; }

private:
    const int m_number;
};

bool isHeld(int result)
{
    return result != 0 && (errno == EACCES || errno == EAGAIN);
}

/// Whether a lock of either kind is held by somebody. A file system without locks has none. The locks end with the
/// descriptor.
bool isLocked(int descriptor)
{
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    return isHeld(fcntl(descriptor, F_SETLK, &whole)) || isHeld(flock(descriptor, LOCK_EX | LOCK_NB));
}

/// Whether a file may be put in the place of `name`, where nothing need be. What carries no permission to write is
/// read-only to the superuser as well.
bool isReplaceable(const QString &name, QString *error)
{
    const QByteArray path = QFile::encodeName(name);
    struct stat status = {};
    if (stat(path.constData(), &status) != 0)
        return errno == ENOENT || fail(error, name, errno);
    if (S_ISDIR(status.st_mode))
        return fail(error, QStringLiteral("\"%1\" is a folder").arg(name));
    if (!S_ISREG(status.st_mode))
        return fail(error, QStringLiteral("\"%1\" is not an ordinary file").arg(name));
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return fail(error, QStringLiteral("\"%1\" is read-only").arg(name));
    const Descriptor file(open(path.constData(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number() < 0)
        return fail(error, QStringLiteral("\"%1\" cannot be written").arg(name), errno);
    if (isLocked(file.number()))
        return fail(error, QStringLiteral("\"%1\" is in use by another program").arg(name));
    return true;
}

constexpr mode_t everybodyReadsAndWrites = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// The permissions of a file, or nothing where there is none.
std::optional<mode_t> permissionsOf(const QString &name)
{
    struct stat status = {};
    if (stat(QFile::encodeName(name).constData(), &status) != 0)
        return std::nullopt;
    return status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
}

} // namespace

FileReplacement::FileReplacement(const QString &fileName)
    : m_fileName(fileName)
{
}

FileReplacement::~FileReplacement()
{
    if (!m_temporary.isEmpty())
        unlink(QFile::encodeName(m_temporary).constData());
}

bool FileReplacement::begin(QString *error)
{
    if (m_fileName.isEmpty() || m_fileName.contains(QChar(0)))
        return fail(error, QStringLiteral("this is no name of a file: \"%1\"").arg(m_fileName));
    return resolve(m_fileName, &m_target, error) && isReplaceable(m_target, error) && create(error);
}

/// Its name does not grow with that of the target, which may be as long as a name can be. In the place of another file
/// it is nobody else's until it is complete.
bool FileReplacement::create(QString *error)
{
    const QString name = m_target.left(m_target.lastIndexOf(QLatin1Char('/')) + 1) + QLatin1String(".workbook-")
        + QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_permissions = permissionsOf(m_target);
    const mode_t mode = m_permissions ? S_IRUSR | S_IWUSR : everybodyReadsAndWrites; // the system takes off the umask
    const int descriptor = open(QFile::encodeName(name).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0)
        return fail(error, QStringLiteral("the folder of \"%1\" takes no files").arg(m_fileName), errno);
    m_temporary = name;
    if (!m_file.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        return fail(error, m_file.errorString());
    return true;
}

bool FileReplacement::commit(QString *error)
{
    if (!m_file.isOpen())
        return fail(error, QStringLiteral("\"%1\" is not open").arg(m_fileName));
    const bool replaced = replace(error);
    if (!replaced)
        unlink(QFile::encodeName(m_temporary).constData());
    m_temporary.clear();
    m_file.close();
    return replaced;
}

bool FileReplacement::replace(QString *error)
{
    errno = 0;
    if (!m_file.tookEverything() || !m_file.flush() || fsync(m_file.handle()) != 0)
        return fail(error, QStringLiteral("\"%1\" cannot be written completely").arg(m_fileName), errno);
    if (m_permissions && fchmod(m_file.handle(), *m_permissions) != 0)
        return fail(error, QStringLiteral("\"%1\" does not get its permissions").arg(m_fileName), errno);
    // It may have been opened or protected while the new one was written.
    if (!isReplaceable(m_target, error))
        return false;
    if (std::rename(QFile::encodeName(m_temporary).constData(), QFile::encodeName(m_target).constData()) != 0)
        return fail(error, QStringLiteral("\"%1\" cannot be replaced").arg(m_fileName), errno);
    return true;
}

} // namespace Spreadsheet
