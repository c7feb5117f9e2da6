#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// The plain exchange sort: for each i, for each j behind i, exchange the two when
/// `after(item i, item j)`. It is not stable, and the order that it leaves between equal items is
/// part of the table's contract, so nothing else may stand in for it unless it leaves the same.
template <typename Item, typename After>
void ExchangeSortLiterally(std::vector<Item>& items, const After& after) {
    for (std::size_t i = 0; i + 1 < items.size(); ++i) {
        for (std::size_t j = i + 1; j < items.size(); ++j) {
            if (after(items[i], items[j])) {
                std::swap(items[i], items[j]);
            }
        }
    }
}

/// Leaves exactly what `ExchangeSortLiterally` leaves, in one pass where the items are in order
/// already, or are so but for the last one. `after` must be a strict weak ordering.
///
/// In order: when no item comes after its right neighbour, then by transitivity none comes after
/// any item behind it, and the double loop never exchanges.
///
/// In order but for the last: when the double loop arrives at i, the places i to the last but one
/// still hold what they held at the start, because up to then only places before i and the last
/// place were written. They are in order, so within them nothing exchanges, and the comparison
/// with the last place is the only one that can. Hence one comparison for each i, with whatever
/// the last place holds by then.
template <typename Item, typename After>
void ExchangeSort(std::vector<Item>& items, const After& after) {
    const auto firstFall = std::adjacent_find(items.begin(), items.end(), after);
    if (firstFall == items.end()) {
        return;
    }
    if (items.end() - firstFall != 2) {
        ExchangeSortLiterally(items, after);
        return;
    }
    for (Item& item : items) {
        if (after(item, items.back())) {
            std::swap(item, items.back());
        }
    }
}
