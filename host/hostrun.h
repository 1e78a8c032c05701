#pragma once

#include "hostoptions.h"

#include <QObject>

class HostWindow;
class QWidget;

/// Writes what a widget shows, in device pixels, in the format of the file's suffix. Nothing stands under the file's
/// name unless the whole picture does. Gives an error's text in English, or none.
QString writePicture(QWidget *widget, const QString &fileName);

/// What a run does once its window stands: opens the page, runs the script, takes the picture.
class HostRun : public QObject {
    Q_OBJECT

public:
    /// The window must outlive the run.
    HostRun(HostOptions options, HostWindow &window);

    /// Begins from the event loop. A run with a user opens the first entry when no page was asked for and
    /// `openFirstEntry` is set.
    void start(bool openFirstEntry);

signals:
    /// A run with a picture is over, with the program's exit code: 0 with the picture written, else 1 and the reason on
    /// the standard error. A run with a user goes on and tells its problems in the window.
    void ended(int exitCode);

private:
    void openPage(bool openFirstEntry);
    void takePicture();
    void fail(const QString &problem);

    HostOptions m_options;
    HostWindow &m_window;
};
