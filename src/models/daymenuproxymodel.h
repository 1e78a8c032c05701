#pragma once

#include <QDate>
#include <QSortFilterProxyModel>

/// One card of the board: the rows of one date and service slot out of the week's grid that all cards share
/// (`FoodRepository::loadMenuWidgetMenu`, columns `MenuColumn`), each meal type's heading above them.
///
/// - A food row is shown when its date and slot are the card's and, with a person set, its total is above 0.
/// - A heading is shown when a food below it, before the next heading, is shown.
/// - Shown columns: name, total and, with the order limit enabled, limit, as columns 0, 1 and 2.
///
/// The setters only store. Set all of them, then the source model or `invalidate()`: the rows are then filtered once.
/// Cells hold dates as ISO text and slots as decimal numbers; rows without a date or a slot belong to no card.
class DayMenuProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit DayMenuProxyModel(QObject *parent = nullptr);

    /// The card's day.
    void setDate(QDate date);
    /// The card's service slot, a segmentID.
    void setSegment(uint segmentID);
    /// The uid whose orders are shown, or -1 (the value at the start) for the whole menu.
    void setPerson(int uid);
    /// Shows or hides the limit column; false at the start.
    void setOrderLimitEnabled(bool enabled);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex &parent) const override;

private:
    QString text(int row, int column) const;
    bool isOfThisCard(int row) const;
    bool isOfInterest(int row) const;
    bool isHeading(int row) const;
    bool headsShownFood(int heading) const;

    /// Date and slot as the cells spell them: comparing texts spares a date parsed for each row and card.
    QString m_date;
    QString m_segment;
    int m_person = -1;
    bool m_orderLimitEnabled = false;
};
