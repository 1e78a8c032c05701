#pragma once

#include "board/daymenuwidget.h"
#include "support/modelstrings.h"

#include <QIcon>
#include <QLabel>
#include <QTableView>
#include <QToolButton>

/// The Monday of the test cards; an even day.
inline QDate monday()
{
    return {2020, 3, 16};
}

/// A card of service slot 7 without a database.
class Card : public DayMenuWidget {
public:
    explicit Card(QDate date = monday(), int person = -1)
        : DayMenuWidget(date, QStringLiteral("Obed"), 7, person, 1, 0, QSqlDatabase(), nullptr, nullptr)
    {
    }
};

template<typename Widget> Widget *find(const DayMenuWidget &card, const char *name)
{
    return card.findChild<Widget *>(QLatin1String(name));
}

/// The shown rows.
inline QStringList rows(const DayMenuWidget &card)
{
    return rowTexts(*find<QTableView>(card, "tableView")->model());
}

/// Whether the icon shows the image of a resource file, which must exist.
inline bool sameImage(const QIcon &icon, const char *file)
{
    const QImage image = icon.pixmap(20, 20).toImage();
    return !image.isNull() && image == QIcon(QLatin1String(file)).pixmap(20, 20).toImage();
}
