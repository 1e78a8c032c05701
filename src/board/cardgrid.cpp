#include "board/cardgrid.h"

#include "board/daymenuwidget.h"
#include "store/activedays.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QScopedValueRollback>

namespace {

constexpr int space = 4;
constexpr int thursdayColumn = 3;

/// Keeps a widget from painting while it lives, so that a change of many children is drawn once.
class PaintingPaused {
public:
    explicit PaintingPaused(QWidget *widget)
        : m_widget(widget)
        , m_wasEnabled(widget->updatesEnabled())
    {
        m_widget->setUpdatesEnabled(false);
    }
    ~PaintingPaused() { m_widget->setUpdatesEnabled(m_wasEnabled); }
    Q_DISABLE_COPY(PaintingPaused)

private:
    QWidget *m_widget;
    bool m_wasEnabled;
};

} // namespace

CardGrid::CardGrid(QWidget *center)
    : m_center(center)
    , m_layout(new QGridLayout(center))
{
    m_layout->setSpacing(space);
    m_layout->setContentsMargins(space, space, space, space);
}

CardGrid::~CardGrid() = default;

void CardGrid::stretchRow(int row)
{
    m_layout->setRowStretch(row, 1);
}

void CardGrid::append(DayMenuWidget *card)
{
    m_layout->addWidget(card, m_cards.size() / columns, m_cards.size() % columns, Qt::AlignTop);
    m_cards.append(card);
}

int CardGrid::rows() const
{
    return m_cards.size() / columns;
}

DayMenuWidget *CardGrid::card(int row, int column) const
{
    return m_cards.at(row * columns + column);
}

void CardGrid::showWeek(QDate thursday, unsigned branchID, QAbstractItemModel *model)
{
    const PaintingPaused paused(m_center);
    {
        const QScopedValueRollback<bool> showing(m_showingWeek, true);
        for (int place = 0; place < m_cards.size(); ++place) {
            DayMenuWidget *card = m_cards.at(place);
            card->setDate(thursday.addDays(place % columns - thursdayColumn));
            card->setBranch(branchID);
            card->setMenuModel(model);
        }
    }
    equaliseHeights();
}

void CardGrid::setPerson(int personID)
{
    for (DayMenuWidget *card : qAsConst(m_cards))
        card->setPerson(personID);
}

void CardGrid::setDayEnabled(int column, bool enabled)
{
    const QString label =
        enabled ? QStringLiteral("~default~") : QCoreApplication::translate("MenuWidget", "mimo pracovný pomer");
    for (int row = 0; row < rows(); ++row) {
        card(row, column)->setEnabled(enabled);
        card(row, column)->setLabel(label);
    }
}

void CardGrid::enableAll()
{
    for (int column = 0; column < columns; ++column)
        setDayEnabled(column, true);
}

void CardGrid::hideInactiveDays(int activeDays)
{
    for (int place = 0; place < m_cards.size(); ++place)
        m_cards.at(place)->setHidden(!ActiveDays::isShownOnBoard(activeDays, place % columns + 1));
}

void CardGrid::equaliseHeights()
{
    if (m_showingWeek)
        return;
    for (int row = 0; row < rows(); ++row)
        equaliseRow(row);
}

void CardGrid::equaliseRow(int row)
{
    int height = 0;
    for (int column = 0; column < columns; ++column)
        height = qMax(height, card(row, column)->preferredHeight());
    for (int column = 0; column < columns; ++column)
        card(row, column)->setFixedHeight(height);
}

void CardGrid::invalidate()
{
    m_layout->invalidate();
}
