#pragma once

#include "board/daymenuwidget.h"
#include "board/menuwidget.h"
#include "board/weeklist.h"
#include "support/modelstrings.h"

#include <QComboBox>
#include <QLabel>
#include <QTableView>
#include <QToolButton>

/// A board with short ways to its widgets and cards.
class BoardPage : public MenuWidget {
public:
    explicit BoardPage(const QSqlDatabase &db, unsigned adminID = 0)
        : MenuWidget(db, adminID, nullptr)
    {
    }

    template<typename T> T *find(const char *name) const { return findChild<T *>(QLatin1String(name)); }
    QToolButton *button(const char *name) const { return find<QToolButton>(name); }
    QComboBox *weeks() const { return find<QComboBox>("comboBox"); }
    QComboBox *people() const { return find<QComboBox>("comboBoxPeople"); }
    QComboBox *branches() const { return find<QComboBox>("comboBoxBranches"); }
    QString monthlyCaption() const { return button("toolButtonMonthly")->text(); }

    /// The cards from left to right, row by row.
    QList<DayMenuWidget *> cards() const { return findChildren<DayMenuWidget *>(); }
    DayMenuWidget *card(int column, int row = 0) const { return cards().at(row * 7 + column); }
    static QString dateOf(const DayMenuWidget *card)
    {
        return card->findChild<QLabel *>(QStringLiteral("labeldate"))->text();
    }
    static QStringList rowsOf(const DayMenuWidget *card)
    {
        return rowTexts(*card->findChild<QTableView *>(QStringLiteral("tableView"))->model());
    }
    QString dates() const
    {
        QStringList texts;
        for (int column = 0; column < 7; ++column)
            texts.append(dateOf(card(column)));
        return texts.join(QLatin1Char('|'));
    }
    /// "1110000" when the cards from Monday to Wednesday are enabled.
    QString enabledDays(int row = 0) const
    {
        QString days;
        for (int column = 0; column < 7; ++column)
            days.append(QLatin1Char(card(column, row)->isEnabled() ? '1' : '0'));
        return days;
    }
    /// "<>" when both arrows are enabled, "-" in the place of one that is not.
    QString arrows() const
    {
        return QLatin1String(button("toolButtonL")->isEnabled() ? "<" : "-")
            + QLatin1String(button("toolButtonR")->isEnabled() ? ">" : "-");
    }
    void showOrders() const { button("butOrdersSwitch")->click(); }
    void showMenu() const { button("butMenuSwitch")->click(); }
};

/// The dates of a board's top row for the week of `day`, in the form of `BoardPage::dates`.
inline QString weekDates(QDate day)
{
    QStringList texts;
    for (int offset = -3; offset <= 3; ++offset)
        texts.append(WeekList::thursdayOf(day).addDays(offset).toString(QStringLiteral("d. M. yyyy")));
    return texts.join(QLatin1Char('|'));
}
