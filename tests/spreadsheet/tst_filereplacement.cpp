#include "spreadsheet/filereplacement.h"
#include "support/limitedfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using Spreadsheet::FileReplacement;

namespace {

const char oldContent[] = "what stood there before";
const char newContent[] = "the new content";

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

bool make(const QString &fileName, const QByteArray &content = oldContent)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Writes a file through a replacement; the reason if it fails.
QString replace(const QString &fileName, const QByteArray &content = newContent)
{
    QString error;
    FileReplacement replacement(fileName);
    if (!replacement.begin(&error))
        return error;
    if (replacement.device().write(content) != content.size())
        return QStringLiteral("not written");
    return replacement.commit(&error) ? QString() : error;
}

/// Another program that holds a lock on a file, of either kind, as long as this lives.
class LockHolder {
public:
    enum Kind { Record, Whole };

    LockHolder(const QString &fileName, Kind kind)
    {
        int ready[2];
        if (pipe(ready) != 0)
            qFatal("no pipe");
        m_child = fork();
        if (m_child == 0)
            hold(QFile::encodeName(fileName), kind, ready[1]);
        char held = 0;
        m_holds = read(ready[0], &held, 1) == 1 && held == 'y';
        close(ready[0]);
        close(ready[1]);
    }
    ~LockHolder()
    {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
    Q_DISABLE_COPY(LockHolder)

    bool holds() const { return m_holds; }

private:
    [[noreturn]] static void hold(const QByteArray &fileName, Kind kind, int ready)
    {
        const int file = open(fileName.constData(), O_RDWR);
        struct flock whole = {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        const int result = kind == Record ? fcntl(file, F_SETLK, &whole) : flock(file, LOCK_EX | LOCK_NB);
        if (write(ready, result == 0 ? "y" : "n", 1) == 1)
            pause();
        _exit(1);
    }

    pid_t m_child = 0;
    bool m_holds = false;
};

/// The umask, as long as it lives.
class Umask {
public:
    explicit Umask(mode_t mask)
        : m_before(umask(mask))
    {
    }
    ~Umask() { umask(m_before); }
    Q_DISABLE_COPY(Umask)

private:
    const mode_t m_before;
};

int permissions(const QString &fileName)
{
    struct stat status = {};
    return stat(QFile::encodeName(fileName).constData(), &status) == 0 ? int(status.st_mode & 0777) : -1;
}

} // namespace

class TestFileReplacement : public QObject {
    Q_OBJECT

private slots:
    void init();
    void newFile();
    void oldFileIsReplacedWhole();
    void oldFileStandsUntilCommit();
    void writerByName();
    void givenUp();
    void commitWithoutBegin();
    void commitTwice();
    void names_data();
    void names();
    void relativeName();
    void refusedNames_data();
    void refusedNames();
    void newFileHasUsualPermissions_data();
    void newFileHasUsualPermissions();
    void permissionsOfTheOldFile_data();
    void permissionsOfTheOldFile();
    void privateUntilItIsComplete();
    void symbolicLink();
    void linkToNothingYet();
    void linkThroughLinkedFolder();
    void linkToNoFolder();
    void circleOfLinks();
    void readOnlyFile();
    void unwritableFolder();
    void lockedFile_data();
    void lockedFile();
    void lockedWhileWritten();
    void lockIsGivenBack();
    void fullDisk_data();
    void fullDisk();
    void targetBecomesAFolder();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFileReplacement::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestFileReplacement::newFile()
{
    QCOMPARE(replace(path(QStringLiteral("book"))), QString());
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(newContent));
    QCOMPARE(files(), QStringList{"book"});
}

void TestFileReplacement::oldFileIsReplacedWhole()
{
    QVERIFY(make(path(QStringLiteral("book")), QByteArray(100000, 'x')));
    QCOMPARE(replace(path(QStringLiteral("book"))), QString());
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(newContent));
    QCOMPARE(files(), QStringList{"book"});
}

void TestFileReplacement::oldFileStandsUntilCommit()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QCOMPARE(files(), QStringList{"book"});
    QVERIFY(replacement.begin(&error));
    QVERIFY(replacement.device().write(newContent) > 0);
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
    QCOMPARE(files().size(), 2);
    QCOMPARE(QFileInfo(replacement.temporaryName()).absolutePath(), m_folder->path());
    QVERIFY(replacement.commit(&error));
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(newContent));
}

void TestFileReplacement::writerByName()
{
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(replacement.begin(&error));
    QVERIFY(make(replacement.temporaryName(), newContent));
    QVERIFY2(replacement.commit(&error), qPrintable(error));
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(newContent));
}

void TestFileReplacement::givenUp()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    {
        QString error;
        FileReplacement replacement(path(QStringLiteral("book")));
        QVERIFY(replacement.begin(&error));
        QVERIFY(replacement.device().write(newContent) > 0);
    }
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
    QCOMPARE(files(), QStringList{"book"});
}

void TestFileReplacement::commitWithoutBegin()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(!replacement.commit(&error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
}

void TestFileReplacement::commitTwice()
{
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(replacement.begin(&error));
    QVERIFY(replacement.commit(&error));
    QVERIFY(!replacement.commit(&error));
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray());
    QCOMPARE(files(), QStringList{"book"});
}

void TestFileReplacement::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("letters") << QStringLiteral("Kontrolný export – ľúbeznosť.xlsx");
    QTest::newRow("emoji and marks") << QStringLiteral("🍲 100% \"x\" 'y' #1?.xls");
    QTest::newRow("as long as can be") << QString(255, QLatin1Char('x'));
    QTest::newRow("line end") << QStringLiteral("two\nlines");
}

void TestFileReplacement::names()
{
    QFETCH(QString, name);
    QCOMPARE(replace(path(name)), QString());
    QCOMPARE(replace(path(name)), QString());
    QCOMPARE(files(), QStringList{name});
    QCOMPARE(contents(path(name)), QByteArray(newContent));
}

void TestFileReplacement::relativeName()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    const QString error = replace(QStringLiteral("book"));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(error, QString());
    QCOMPARE(files(), QStringList{"book"});
}

void TestFileReplacement::refusedNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("none") << QString() << QStringLiteral("no name");
    QTest::newRow("null character") << QStringLiteral("%1/a") + QChar(0) + QLatin1Char('b')
                                    << QStringLiteral("no name");
    QTest::newRow("no folder") << QStringLiteral("%1/no/such/book") << QStringLiteral("no folder");
    QTest::newRow("a folder") << QStringLiteral("%1") << QStringLiteral("is a folder");
    QTest::newRow("a folder with slash") << QStringLiteral("%1/") << QStringLiteral("is a folder");
    QTest::newRow("folder above") << QStringLiteral("%1/..") << QStringLiteral("is a folder");
    QTest::newRow("a file as folder") << QStringLiteral("%1/file/book") << QStringLiteral("Not a directory");
    QTest::newRow("a device") << QStringLiteral("/dev/full") << QStringLiteral("not an ordinary file");
    QTest::newRow("a folder that takes none") << QStringLiteral("/proc/book") << QStringLiteral("takes no files");
    QTest::newRow("too long") << QStringLiteral("%1/") + QString(256, QLatin1Char('x'))
                              << QStringLiteral("File name too long");
}

void TestFileReplacement::refusedNames()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QVERIFY(make(path(QStringLiteral("file"))));
    QString error;
    FileReplacement replacement(name.contains(QLatin1String("%1")) ? name.arg(m_folder->path()) : name);
    QVERIFY(!replacement.begin(&error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QCOMPARE(files(), QStringList{"file"});
    QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
}

void TestFileReplacement::newFileHasUsualPermissions_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<int>("expected");
    QTest::newRow("usual") << 022 << 0644;
    QTest::newRow("group") << 002 << 0664;
    QTest::newRow("private") << 077 << 0600;
}

void TestFileReplacement::newFileHasUsualPermissions()
{
    QFETCH(int, mask);
    QFETCH(int, expected);
    const Umask umask{mode_t(mask)};
    QCOMPARE(replace(path(QStringLiteral("book"))), QString());
    QCOMPARE(permissions(path(QStringLiteral("book"))), expected);
}

void TestFileReplacement::permissionsOfTheOldFile_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0600, 0640, 0666, 0755, 0200})
        QTest::newRow(QByteArray::number(mode, 8).constData()) << mode;
}

void TestFileReplacement::permissionsOfTheOldFile()
{
    QFETCH(int, mode);
    QVERIFY(make(path(QStringLiteral("book"))));
    QCOMPARE(chmod(QFile::encodeName(path(QStringLiteral("book"))).constData(), mode_t(mode)), 0);
    const Umask umask(022);
    QCOMPARE(replace(path(QStringLiteral("book"))), QString());
    QCOMPARE(permissions(path(QStringLiteral("book"))), mode);
}

void TestFileReplacement::privateUntilItIsComplete()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    QCOMPARE(chmod(QFile::encodeName(path(QStringLiteral("book"))).constData(), 0600), 0);
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(replacement.begin(&error));
    QCOMPARE(permissions(replacement.temporaryName()), 0600);
}

void TestFileReplacement::symbolicLink()
{
    QVERIFY(QDir().mkdir(path(QStringLiteral("real"))));
    QVERIFY(make(path(QStringLiteral("real/book"))));
    QVERIFY(QFile::link(QStringLiteral("real/book"), path(QStringLiteral("second"))));
    QVERIFY(QFile::link(path(QStringLiteral("second")), path(QStringLiteral("first"))));
    QCOMPARE(replace(path(QStringLiteral("first"))), QString());
    QVERIFY(QFileInfo(path(QStringLiteral("first"))).isSymLink());
    QVERIFY(QFileInfo(path(QStringLiteral("second"))).isSymLink());
    QVERIFY(!QFileInfo(path(QStringLiteral("real/book"))).isSymLink());
    QCOMPARE(contents(path(QStringLiteral("real/book"))), QByteArray(newContent));
    QCOMPARE(files(), (QStringList{"first", "real", "second"}));
}

void TestFileReplacement::linkToNothingYet()
{
    QVERIFY(QFile::link(QStringLiteral("book"), path(QStringLiteral("link"))));
    QCOMPARE(replace(path(QStringLiteral("link"))), QString());
    QVERIFY(QFileInfo(path(QStringLiteral("link"))).isSymLink());
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(newContent));
}

/// "../book" in a link counts from the folder that the link really lies in.
void TestFileReplacement::linkThroughLinkedFolder()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("a/b"))));
    QVERIFY(QFile::link(QStringLiteral("a/b"), path(QStringLiteral("short"))));
    QVERIFY(QFile::link(QStringLiteral("../book"), path(QStringLiteral("a/b/link"))));
    QCOMPARE(replace(path(QStringLiteral("short/link"))), QString());
    QCOMPARE(contents(path(QStringLiteral("a/book"))), QByteArray(newContent));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("book"))));
}

void TestFileReplacement::linkToNoFolder()
{
    QVERIFY(QFile::link(QStringLiteral("no/such/book"), path(QStringLiteral("link"))));
    QVERIFY(replace(path(QStringLiteral("link"))).contains(QLatin1String("no folder")));
    QVERIFY(QFileInfo(path(QStringLiteral("link"))).isSymLink());
}

void TestFileReplacement::circleOfLinks()
{
    QVERIFY(QFile::link(QStringLiteral("b"), path(QStringLiteral("a"))));
    QVERIFY(QFile::link(QStringLiteral("a"), path(QStringLiteral("b"))));
    const QString error = replace(path(QStringLiteral("a")));
    QVERIFY2(error.contains(QLatin1String("Too many levels of symbolic links")), qPrintable(error));
    QCOMPARE(files(), (QStringList{"a", "b"}));
    QVERIFY(QFileInfo(path(QStringLiteral("a"))).isSymLink());
}

void TestFileReplacement::readOnlyFile()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    QCOMPARE(chmod(QFile::encodeName(path(QStringLiteral("book"))).constData(), 0444), 0);
    const QString error = replace(path(QStringLiteral("book")));
    QVERIFY2(error.contains(QLatin1String("read-only")), qPrintable(error));
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
    QCOMPARE(files(), QStringList{"book"});
}

/// The superuser may write to any folder; it has none of its own here.
void TestFileReplacement::unwritableFolder()
{
    const QByteArray folder = QFile::encodeName(m_folder->path());
    QCOMPARE(chmod(folder.constData(), 0555), 0);
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setresuid(nobody, nobody, nobody) != 0)
            _exit(2);
        _exit(replace(path(QStringLiteral("book"))).contains(QLatin1String("Permission denied")) ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    QCOMPARE(chmod(folder.constData(), 0755), 0);
    QCOMPARE(status, 0);
    QCOMPARE(files(), QStringList());
}

void TestFileReplacement::lockedFile_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("record lock") << int(LockHolder::Record);
    QTest::newRow("whole lock") << int(LockHolder::Whole);
}

void TestFileReplacement::lockedFile()
{
    QFETCH(int, kind);
    QVERIFY(make(path(QStringLiteral("book"))));
    {
        const LockHolder other(path(QStringLiteral("book")), LockHolder::Kind(kind));
        QVERIFY(other.holds());
        const QString error = replace(path(QStringLiteral("book")));
        QVERIFY2(error.contains(QLatin1String("in use by another program")), qPrintable(error));
        QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
        QCOMPARE(files(), QStringList{"book"});
    }
    QCOMPARE(replace(path(QStringLiteral("book"))), QString());
}

void TestFileReplacement::lockedWhileWritten()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(replacement.begin(&error));
    const LockHolder other(path(QStringLiteral("book")), LockHolder::Record);
    QVERIFY(other.holds());
    QVERIFY(!replacement.commit(&error));
    QVERIFY2(error.contains(QLatin1String("in use by another program")), qPrintable(error));
    QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
    QCOMPARE(files(), QStringList{"book"});
}

void TestFileReplacement::lockIsGivenBack()
{
    QVERIFY(make(path(QStringLiteral("book"))));
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(replacement.begin(&error));
    for (const LockHolder::Kind kind : {LockHolder::Record, LockHolder::Whole})
        QVERIFY(LockHolder(path(QStringLiteral("book")), kind).holds());
}

void TestFileReplacement::fullDisk_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("room");
    QTest::newRow("noticed by a flush") << 1000 << 999;
    QTest::newRow("noticed by a write") << 100000 << 20000;
    QTest::newRow("no room at all") << 1 << 0;
}

void TestFileReplacement::fullDisk()
{
    QFETCH(int, size);
    QFETCH(int, room);
    QVERIFY(make(path(QStringLiteral("book"))));
    for (const QString &name : {QStringLiteral("book"), QStringLiteral("new")}) {
        QString error;
        {
            const LimitedFiles full{rlim_t(room)};
            FileReplacement replacement(path(name));
            QVERIFY(replacement.begin(&error));
            // A writer that looks at no result.
            replacement.device().write(QByteArray(size, 'x'));
            QVERIFY(!replacement.commit(&error));
        }
        QVERIFY2(error.contains(QLatin1String("cannot be written completely")), qPrintable(error));
        QCOMPARE(contents(path(QStringLiteral("book"))), QByteArray(oldContent));
        QCOMPARE(files(), QStringList{"book"});
    }
    QCOMPARE(replace(path(QStringLiteral("book"))), QString());
}

void TestFileReplacement::targetBecomesAFolder()
{
    QString error;
    FileReplacement replacement(path(QStringLiteral("book")));
    QVERIFY(replacement.begin(&error));
    QVERIFY(QDir().mkdir(path(QStringLiteral("book"))));
    QVERIFY(!replacement.commit(&error));
    QVERIFY2(error.contains(QLatin1String("is a folder")), qPrintable(error));
    QCOMPARE(files(), QStringList{"book"});
}

QTEST_GUILESS_MAIN(TestFileReplacement)
#include "tst_filereplacement.moc"
