#pragma once

#include <optional>
#include <random>
#include <string>

#include "tests/dialog/editor.h"

class C3DManager;

/// One run of random events: the same for the same seed, mode and number of events.
struct MonkeyRun {
    unsigned seed = 1;
    int mode = kFreeMode;
    int events = 0;
    /// The invariants are looked at after each event from this one on, before it after every 100.
    int watchFrom = 0;
};

/// Where a run came to grief.
struct MonkeyFinding {
    int event = 0;  ///< counts from 1
    std::string claim;
};

/// Plays a run on real widgets: keys, mouse, loads, boxes and menus answered at random, editors
/// that close and open again on what they left. Nothing when all went well. A crash ends the
/// process after words that name the seed and the event.
std::optional<MonkeyFinding> Play(const MonkeyRun& run);

/// What an action has at hand.
struct MonkeyHands {
    Editor& editor;
    std::mt19937& random;

    unsigned Any(unsigned count) { return static_cast<unsigned>(random() % count); }
    template <typename Items>
    const auto& AnyOf(const Items& items) {
        return items[Any(static_cast<unsigned>(std::size(items)))];
    }
};

/// Does one random action. New commands of the editor join the list in monkey_actions.cpp.
void ActAtRandom(MonkeyHands& hands);
/// A random pattern by way of a random CSV text.
CQelCPB_3DPattern AnyPattern(std::mt19937& random);

/// The claim that does not hold, nothing when all do: table ordered, map and events in step, list,
/// graph and fields show the table, undoing and redoing lead to the same tables again and again.
/// `depth` is how many steps back it goes.
std::optional<std::string> BrokenInvariant(Editor& editor, int depth);

/// The dialog's own manager, to hold the views against the store.
C3DManager& ManagerOf(COrbixMainDlg& dialog);
