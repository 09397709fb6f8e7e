// Which row is selected after the selected row goes.
#pragma once

/// Row to select before the selected row is deleted, in the numbers of before the deletion; -1 for none.
/// The item behind the removed one ends up selected, at the end of the list the one before it.
constexpr int SelectionBeforeRemoval(int removed, int count)
{
    int next = removed + 1;
    if (next >= count - 1)
        next = count - 2;
    return next == removed ? next + 1 : next;
}
