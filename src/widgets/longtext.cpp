#include "widgets/longtext.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScrollArea>

namespace {

/// In pixels.
constexpr int textWidth = 520;
constexpr int highestText = 360;

} // namespace

void keepLongTextInside(QMessageBox *box)
{
    auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
    if (!label || !box->layout())
        return;
    box->ensurePolished();
    const QRect space(0, 0, textWidth, QWIDGETSIZE_MAX);
    const QRect text = label->fontMetrics().boundingRect(space, Qt::TextWordWrap | Qt::TextWrapAnywhere, box->text());
    if (text.height() <= highestText)
        return;
    auto *area = new QScrollArea(box);
    delete box->layout()->replaceWidget(label, area);
    label->setWordWrap(true);
    area->setWidget(label);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setAccessibleName(box->windowTitle());
    area->setFixedSize(textWidth, highestText);
}
