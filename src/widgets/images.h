#pragma once

#include <QIcon>

/// One image of the module's resources as an icon, by its path below ":/images/", for example "sidebar/menu3.png".
/// All icons of one file share its pixels and everything rendered from them: an icon made from the file's name would
/// decode the file for itself, which a board of some twenty cards with half a dozen buttons each feels.
QIcon imageIcon(const char *path);
