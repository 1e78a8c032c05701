#pragma once

#include <QPointer>

#include <utility>

/// Makes a modal dialog of type `Dialog` from `arguments`, the last of which is its parent, runs it and disposes of it.
/// Gives the dialog's result, or 0 when the parent went away, and took the dialog along, while it was open: a caller
/// that is a part of that parent must not touch itself any more after a 0.
template<typename Dialog, typename... Arguments> int execDialog(Arguments &&...arguments)
{
    const QPointer<Dialog> dialog(new Dialog(std::forward<Arguments>(arguments)...));
    const int result = dialog->exec();
    if (!dialog)
        return 0;
    delete dialog;
    return result;
}
