#pragma once

class QListView;
class QStandardItemModel;

/// Gives `view` a new model, showing `column`, and disposes of the one that it had, together with that one's selection
/// model. `view` becomes the owner of `content`. Nothing is current or selected afterwards; the selection model is a
/// new one, to be connected anew. A row that becomes current is selected from then on, also when the keyboard only
/// brought the focus: what the buttons work on, the current row, is always marked. Does nothing when `view` has
/// `content` already. The old model goes when control is back in the event loop, so this may be called from the view's
/// signals.
void showContent(QListView *view, QStandardItemModel *content, int column = 1);
