#pragma once

#include <QDate>
#include <QVector>

class DayMenuWidget;
class QAbstractItemModel;
class QGridLayout;
class QWidget;

/// The cards of the board in their grid: a row for each service slot, a column for each weekday, Monday first. Hidden
/// cards stay in it and follow every change. The cards belong to the widget that they stand on.
class CardGrid {
public:
    static constexpr int columns = 7;

    /// Lays the grid out on `center`, which must have no layout yet.
    explicit CardGrid(QWidget *center);
    ~CardGrid();
    Q_DISABLE_COPY(CardGrid)

    /// Gives row `row` all the height that is left over, so that the rows keep to the top.
    void stretchRow(int row);
    /// Adds the next card: cards come row by row, each from Monday to Sunday.
    void append(DayMenuWidget *card);
    /// Number of complete rows.
    int rows() const;
    /// The card of a row and column, both within the grid.
    DayMenuWidget *card(int row, int column) const;

    /// Shows the week of `thursday` of a branch out of `model`: recomputes every card, then their heights, once.
    void showWeek(QDate thursday, unsigned branchID, QAbstractItemModel *model);
    /// Takes effect with the next `showWeek`.
    void setPerson(int personID);
    /// An enabled card shows its day; a disabled one says that the person is not employed on it.
    void setDayEnabled(int column, bool enabled);
    /// Enables all cards.
    void enableAll();
    /// Hides the columns of weekdays that the setting `via_activeDays` does not show.
    void hideInactiveDays(int activeDays);
    /// Gives all cards of a row the largest preferred height among them. Does nothing while `showWeek` runs, which does
    /// it at its end: 21 cards would each ask for it.
    void equaliseHeights();
    /// Lays the grid out anew.
    void invalidate();

private:
    void equaliseRow(int row);

    QWidget *const m_center;
    QGridLayout *const m_layout;
    QVector<DayMenuWidget *> m_cards;
    bool m_showingWeek = false;
};
