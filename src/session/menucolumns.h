#pragma once

/// Column numbers of the grids that pass from the store through the proxies to the pages. They are a contract between
/// rooms that do not know each other, so they live below all of them. Every cell is text.

/// Grid of a day (`FoodRepository::loadDayMenu`) and of a week (`FoodRepository::loadMenuWidgetMenu`): 14 columns.
namespace MenuColumn {
enum : int {
    FoodId, ///< food; "0" on a heading row, "-1" on a menu item that the editor bars from removal
    TypeId, ///< position of the meal type, not its key: it binds a heading to its meals
    Name,
    OrderableId, ///< menu item; empty for a food that is not on the menu
    SegmentId, ///< service slot
    Date, ///< yyyy-MM-dd
    Position, ///< order within the slot; "0" on a heading row, empty for a food that is not on the menu
    Locked, ///< 0 open, 1 locked, 2 closed for good
    Price,
    Total, ///< ordered portions
    SupplierId,
    BranchId,
    Shortcut, ///< mark of the supplier
    Limit, ///< portions; empty for no limit
    Count
};
}

/// Grid of one person's order form (`FoodRepository::loadPersonDayMenu`): 12 columns. The last row is the grand total.
namespace PersonMenuColumn {
enum : int {
    FoodId, ///< food; "0" on a heading row, empty on the total row
    TypeId, ///< position of the meal type
    Name,
    OrderableId,
    SegmentId,
    Date,
    Position, ///< "0" on headings, the total row and items of informative types; empty off the menu
    Locked,
    Price,
    Total, ///< portions of this person
    Money, ///< portions times price
    Informative, ///< "1" for a meal type that is shown and cannot be ordered
    Count
};
}

/// Grid of the week's printout (`FoodRepository::loadWeekMenu`): 5 columns.
namespace WeekMenuColumn {
enum : int { Heading, TypeName, FoodName, Empty, Price, Count };
}
