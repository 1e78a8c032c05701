#include "hostrun.h"

#include "hostwindow.h"

#include <QAction>
#include <QApplication>
#include <QDebug>
#include <QFileInfo>
#include <QImageWriter>
#include <QPixmap>
#include <QSaveFile>
#include <QTimer>

namespace {

/// Lets layouts, heights and polished styles settle before the shutter.
const int settleMilliseconds = 300;

} // namespace

QString writePicture(QWidget *widget, const QString &fileName)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return QStringLiteral("%1: %2").arg(fileName, file.errorString());
    QImageWriter writer(&file, QFileInfo(fileName).suffix().toLatin1());
    if (!writer.write(widget->grab().toImage())) {
        file.cancelWriting();
        return QStringLiteral("%1: %2").arg(fileName, writer.errorString());
    }
    return file.commit() ? QString() : QStringLiteral("%1: %2").arg(fileName, file.errorString());
}

HostRun::HostRun(HostOptions options, HostWindow &window)
    : m_options(std::move(options))
    , m_window(window)
{
}

void HostRun::start(bool openFirstEntry)
{
    QTimer::singleShot(0, this, [this, openFirstEntry] { openPage(openFirstEntry); });
}

void HostRun::openPage(bool openFirstEntry)
{
    const QString name = m_options.page.isEmpty() && openFirstEntry ? QStringLiteral("menu") : m_options.page;
    QAction *entry = m_window.entryNamed(name);
    if (!name.isEmpty() && !entry)
        return fail(tr("Stránka „%1“ neexistuje.").arg(name));
    if (entry && !entry->isEnabled())
        return fail(tr("Stránka „%1“ je zatvorená.").arg(entry->text()));
    if (entry)
        entry->trigger();
    if (entry && !m_window.page())
        return fail(tr("Položka „%1“ zatiaľ nemá stránku.").arg(entry->text()));

    auto *script = new PageScriptRunner(m_options.script, &m_window, this);
    connect(script, &PageScriptRunner::failed, this, &HostRun::fail);
    connect(script, &PageScriptRunner::finished, this,
            [this] { QTimer::singleShot(settleMilliseconds, this, &HostRun::takePicture); });
    script->start();
}

void HostRun::takePicture()
{
    if (m_options.screenshotFile.isEmpty())
        return;
    QWidget *dialog = QApplication::activeModalWidget();
    const QString problem = writePicture(dialog ? dialog : &m_window, m_options.screenshotFile);
    if (problem.isEmpty())
        emit ended(0);
    else
        fail(problem);
}

void HostRun::fail(const QString &problem)
{
    qCritical().noquote() << "Host:" << problem;
    if (m_options.screenshotFile.isEmpty())
        m_window.warn(problem);
    else
        emit ended(1);
}
