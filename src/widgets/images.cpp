#include "widgets/images.h"

#include <QPixmap>

QIcon imageIcon(const char *path)
{
    return QIcon(QPixmap(QLatin1String(":/images/") + QLatin1String(path)));
}
