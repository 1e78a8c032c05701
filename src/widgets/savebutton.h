#pragma once

class QPushButton;

/// Opens or closes the saving of a dialog. Open: `save` is enabled and the dialog's default button. Closed: `save` is
/// disabled and `cancel` is the default, so that Enter never presses a dead button.
void offerSave(QPushButton *save, QPushButton *cancel, bool open);
