#pragma once

class QMessageBox;

/// Puts the text of a box that is still to be shown into a scrolling area as soon as the text is higher than about
/// twenty lines, so that the buttons of the box stay on the screen and every line can be reached, with the arrow keys
/// too (Tab goes to the text). A shorter text is left alone. `box->text()` stays what it was.
void keepLongTextInside(QMessageBox *box);
