#include "widgets/savebutton.h"

#include <QPushButton>

void offerSave(QPushButton *save, QPushButton *cancel, bool open)
{
    save->setEnabled(open);
    (open ? save : cancel)->setDefault(true);
}
