#pragma once

/// What a day card knows when it decides which of its controls stand and which can be used.
struct CardState {
    /// 0 being composed, 1 locked and open for orders, 2 closed for good.
    int lock = 0;
    /// The cell has a menu item.
    bool hasItems = false;
    /// A shown item has orders.
    bool hasOrders = false;
    /// The card's day lies before today.
    bool past = false;
    /// The card shows one person's orders, else the menu with everybody's.
    bool personSelected = false;
    /// The session may not change anything.
    bool readOnly = false;
};

/// The outcome for the card's window.
struct CardButtons {
    bool editEnabled = false;
    bool lockEnabled = false;
    bool copyEnabled = false;
    bool orderEnabled = false;
    /// Edit, lock, supplier's report and copy are shown; they are hidden with a person selected, when order and
    /// overview are shown instead.
    bool menuActionsShown = false;
    /// Column 1 of the table and the sum below it.
    bool totalShown = false;
    /// Column 2 of the table, which exists only while order limits are enabled.
    bool limitShown = false;
    /// The report button shows the image of a final report, else that of a partial one.
    bool finalReport = false;
};

/// The decision, without a window. A menu can be edited while it is open and ordered from after it was locked; a past
/// day can be neither edited nor locked, yet stays open to orders when it is locked.
CardButtons cardButtons(const CardState &state);

/// The lock of a cell after one more of its items is read: 1 and 2 replace what stood before, except that 2 stays;
/// any other value of the item changes nothing.
int foldedLock(int lock, int itemLock);
