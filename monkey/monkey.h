#pragma once

#include <optional>
#include <random>
#include <string>

#include "tests/dialog/editor.h"

class C3DManager;

/// What an action has at hand.
struct MonkeyHands {
    Editor& editor;
    std::mt19937& random;

    int Any(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    std::string AnyText(int count) { return std::to_string(Any(count)); }
    template <typename Items>
    const auto& AnyOf(const Items& items) {
        return items[random() % std::size(items)];
    }
};

/// Does one random action. New commands of the editor join the list in actions.cpp.
void ActAtRandom(MonkeyHands& hands);

/// The claim that does not hold, nothing when all do: table ordered, map and events in step, list,
/// graph and fields show the table, undoing and redoing lead to the same tables again and again.
/// `depth` is how many steps back it goes.
std::optional<std::string> BrokenInvariant(Editor& editor, int depth);

/// The dialog's own manager, to hold the views against the store.
C3DManager& ManagerOf(COrbixMainDlg& dialog);
