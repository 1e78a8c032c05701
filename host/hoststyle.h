#pragma once

#include <QProxyStyle>

/// The Fusion style for an application-wide style sheet. Plain widgets and their subclasses paint no background of a
/// style sheet by themselves; this makes those that carry one of the forms' panel properties (whitePanel, silverPanel,
/// titlePanel, hidestripe, title, editState) do so. It also lays out anew the views that were filled before they had
/// their look.
class HostStyle : public QProxyStyle {
    Q_OBJECT

public:
    HostStyle();

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
};

/// Gives the application its look: style, palette, a font that has the Slovak letters, and the style sheet, which is
/// the host's own or that of `styleSheetFile`. Gives the reason, in Slovak, when that file cannot be read; the host's
/// own sheet is used then.
QString applyLook(const QString &styleSheetFile);
