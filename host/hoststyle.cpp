#include "hoststyle.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QWidget>

#include <algorithm>
#include <array>

namespace {

const std::array<const char *, 6> panelProperties{"whitePanel", "silverPanel", "titlePanel",
                                                  "hidestripe", "title",       "editState"};

// At 12 px the family below is drawn as wide as it is measured, which spares combo boxes a cut.
const int pointSize = 9;

/// The first family at hand; the system's own general font otherwise.
QFont uiFont()
{
    const QStringList wanted{QStringLiteral("Roboto"), QStringLiteral("Open Sans"), QStringLiteral("Noto Sans"),
                             QStringLiteral("DejaVu Sans")};
    const QStringList present = QFontDatabase().families(QFontDatabase::Latin);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const auto family =
        std::find_if(wanted.cbegin(), wanted.cend(), [&](const QString &name) { return present.contains(name); });
    if (family != wanted.cend())
        font = QFont(*family);
    font.setPointSize(pointSize);
    return font;
}

/// The colours that the style sheet does not reach.
QPalette uiPalette()
{
    const QColor ink(0x25, 0x2c, 0x35);
    const QColor faded(0x8d, 0x97, 0xa1);
    QPalette palette(QColor(0xee, 0xf2, 0xf6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf8, 0xfa));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, faded);
    }
    palette.setColor(QPalette::Highlight, QColor(0xcc, 0xec, 0xfa));
    palette.setColor(QPalette::HighlightedText, ink);
    palette.setColor(QPalette::PlaceholderText, faded);
    palette.setColor(QPalette::Link, QColor(0x00, 0x6f, 0x9c));
    palette.setColor(QPalette::ToolTipBase, QColor(0x30, 0x34, 0x3a));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    return palette;
}

QString readSheet(const QString &fileName, QString &problem)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QCoreApplication::translate("HostStyle", "Súbor štýlov %1 sa nedá načítať: %2")
                      .arg(fileName, file.errorString());
        return {};
    }
    return QString::fromUtf8(file.readAll());
}

} // namespace

HostStyle::HostStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void HostStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    const auto carries = [widget](const char *name) { return widget->property(name).isValid(); };
    if (std::any_of(panelProperties.cbegin(), panelProperties.cend(), carries))
        widget->setAttribute(Qt::WA_StyledBackground);
    // A view that was filled before it is shown has laid out its rows without the style sheet's paddings.
    if (auto *view = qobject_cast<QAbstractItemView *>(widget))
        QMetaObject::invokeMethod(view, &QAbstractItemView::doItemsLayout, Qt::QueuedConnection);
}

QString applyLook(const QString &styleSheetFile)
{
    QString problem;
    QString sheet = styleSheetFile.isEmpty() ? QString() : readSheet(styleSheetFile, problem);
    if (styleSheetFile.isEmpty() || !problem.isEmpty()) {
        QString ownProblem;
        sheet = readSheet(QStringLiteral(":/host/style.qss"), ownProblem);
        Q_ASSERT(ownProblem.isEmpty());
    }
    QApplication::setStyle(new HostStyle);
    QApplication::setPalette(uiPalette());
    QApplication::setFont(uiFont());
    qApp->setStyleSheet(sheet);
    return problem;
}
