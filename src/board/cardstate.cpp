#include "board/cardstate.h"

CardButtons cardButtons(const CardState &state)
{
    const bool open = state.lock == 0;
    const bool closedForGood = state.lock == 2;
    CardButtons buttons;
    buttons.editEnabled = open && !state.past && !state.readOnly;
    buttons.lockEnabled = state.hasItems && !state.past && !closedForGood && !state.readOnly;
    buttons.copyEnabled = state.hasItems;
    buttons.orderEnabled = state.hasItems && state.lock > 0 && !state.readOnly;
    buttons.menuActionsShown = !state.personSelected;
    buttons.totalShown = !open || state.personSelected || state.past || state.hasOrders;
    buttons.limitShown = !state.personSelected;
    buttons.finalReport = state.past || state.lock > 0 || (open && state.hasOrders);
    return buttons;
}

int foldedLock(int lock, int itemLock)
{
    if (lock == 2)
        return lock;
    return itemLock == 1 || itemLock == 2 ? itemLock : lock;
}
