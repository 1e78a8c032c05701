#include "support/paintwatch.h"

#include <QApplication>
#include <QEvent>

PaintWatch::PaintWatch()
{
    QApplication::instance()->installEventFilter(this);
}

bool PaintWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && watched->isWidgetType())
        ++m_paints;
    return false;
}

void PaintWatch::show(QWidget *window)
{
    const int before = m_paints;
    window->show();
    while (m_paints == before)
        QCoreApplication::processEvents();
    settle();
}

void PaintWatch::settle()
{
    int before = -1;
    while (before != m_paints) {
        before = m_paints;
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void runWithoutDisplay()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}
