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

/// Leaves exactly what `ExchangeSortLiterally` leaves, in far fewer comparisons where most items
/// are in order. `after` must be a strict weak ordering.
///
/// In order: when no item comes after its right neighbour, then by transitivity none comes after
/// any item behind it, and the double loop never exchanges.
///
/// Else the items stand in blocks, of each of which the place of a least item is known. The inner
/// loop changes nothing in a block whose least item is not before item i: then, by transitivity,
/// no item of it is, and item i goes through unchanged. So such blocks are passed over in one
/// comparison, and all others are gone through as the double loop does.
template <typename Item, typename After>
class ExchangeSorter {
public:
    ExchangeSorter(std::vector<Item>& items, const After& after) : items_(items), after_(after) {}

    void Sort() {
        if (std::adjacent_find(items_.begin(), items_.end(), after_) == items_.end()) {
            return;
        }
        for (std::size_t begin = 0; begin < items_.size(); begin += kBlock) {
            leasts_.push_back(LeastOf(begin));
        }
        for (std::size_t i = 0; i + 1 < items_.size(); ++i) {
            const std::size_t own = i / kBlock;
            Exchange(i, i + 1, EndOf(own * kBlock));
            for (std::size_t block = own + 1; block < leasts_.size(); ++block) {
                if (after_(items_[i], items_[leasts_[block]])) {
                    Exchange(i, block * kBlock, EndOf(block * kBlock));
                    leasts_[block] = LeastOf(block * kBlock);
                }
            }
        }
    }

private:
    static constexpr std::size_t kBlock = 32;

    std::size_t EndOf(std::size_t begin) const { return std::min(begin + kBlock, items_.size()); }

    std::size_t LeastOf(std::size_t begin) const {
        std::size_t least = begin;
        for (std::size_t place = begin + 1; place < EndOf(begin); ++place) {
            if (after_(items_[least], items_[place])) {
                least = place;
            }
        }
        return least;
    }

    void Exchange(std::size_t i, std::size_t begin, std::size_t end) {
        for (std::size_t j = begin; j < end; ++j) {
            if (after_(items_[i], items_[j])) {
                std::swap(items_[i], items_[j]);
            }
        }
    }

    std::vector<Item>& items_;
    const After& after_;
    std::vector<std::size_t> leasts_;
};

template <typename Item, typename After>
void ExchangeSort(std::vector<Item>& items, const After& after) {
    ExchangeSorter<Item, After>(items, after).Sort();
}
