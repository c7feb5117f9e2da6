#include "monkey/monkey.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDrag>
#include <QMenu>
#include <QTimer>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "dialog/manager.h"
#include "platform/qt/widget_access.h"

// There only in a build with sanitizers.
extern "C" [[gnu::weak]] void __sanitizer_set_death_callback(void (*callback)());  // NOLINT

namespace {

constexpr int kCheckEvery = 100;
constexpr int kEventsAnEditor = 500;  // then it is closed and another one opened
constexpr int kStepsBack = 30;
constexpr int kRescueMilliseconds = 5;
constexpr std::uint32_t kRangeStart = 480;
constexpr std::uint32_t kRangeEnd = 9600;

/// One run: the same for the same seed, mode and number of events. Every 100 events the invariants
/// are looked at, from `watchFrom` on after each.
struct MonkeyRun {
    unsigned seed = 1;
    int mode = kFreeMode;
    int events = 0;
    int watchFrom = 0;
};

struct MonkeyFinding {
    int event = 0;  ///< counts from 1
    std::string claim;
};

unsigned seedNow = 0;
int eventNow = 0;

// The patch dialog, a file dialog, a scroll bar's menu and a drag of text hold the click that began
// them until the user ends them.
void LeaveAllBut(const Editor& editor) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != WidgetOfWindow(editor.dialog.m_hWnd)) {
        modal->close();
    }
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        menu->close();
    }
    QDrag::cancel();
}

// A crash has to say where it was. Printing is more than a signal handler may do, but the process
// is lost anyway.
void PrintWhere() {
    std::fprintf(stderr, "seed %u, the shortest failing run has %d events\n", seedNow, eventNow);
}

std::map<int, struct sigaction> handlersBefore;

// What crashed runs again behind this, into the handler before: a sanitizer's shows the stack.
void SayWhere(int signal) {
    PrintWhere();
    sigaction(signal, &handlersBefore[signal], nullptr);
}

void WatchForCrashes() {
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS}) {
        struct sigaction action {};
        action.sa_handler = SayWhere;
        sigaction(signal, &action, &handlersBefore[signal]);
    }
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(PrintWhere);
    }
}

// Plays a run on real widgets: keys, mouse, loads, boxes and menus answered at random, editors
// that close and open again on what they left.
class Monkey {
public:
    explicit Monkey(const MonkeyRun& run)
        : run_(run), random_(run.seed), answers_(run.seed + 1), pattern_(PatternOf(Song())) {
        seedNow = run.seed;
        eventNow = 0;
    }

    std::optional<MonkeyFinding> Play() {
        while (eventNow < run_.events && !finding_) {
            Editor editor = run_.mode == kRangeMode ? Editor(pattern_, kRangeStart, kRangeEnd)
                                                    : Editor(pattern_);
            PlayOn(editor);
        }
        return finding_;
    }

private:
    void PlayOn(Editor& editor) {
        AnswerAtRandom();
        editor.Run([&] {
            MonkeyHands hands{editor, random_};
            QTimer rescue;
            QObject::connect(&rescue, &QTimer::timeout, [&editor] { LeaveAllBut(editor); });
            rescue.start(kRescueMilliseconds);
            for (int left = kEventsAnEditor; left > 0 && eventNow < run_.events; --left) {
                ++eventNow;
                ActAtRandom(hands);
                if (!editor.IsOpen()) {
                    return;
                }
                if (eventNow % kCheckEvery == 0 || eventNow >= run_.watchFrom) {
                    Check(editor, kStepsBack);
                }
                if (finding_) {
                    return;
                }
            }
            Check(editor, run_.events);
            editor.dialog.Update3DPatternForTool(&pattern_);
        });
    }

    void AnswerAtRandom() {
        Hooks().messageBox = [this](const CString&, UINT style) {
            const bool yes = answers_() % 2 == 0;
            const UINT kind = style & MB_TYPEMASK;
            return kind == MB_YESNO              ? (yes ? IDYES : IDNO)
                   : kind == MB_OKCANCEL && !yes ? IDCANCEL
                                                 : IDOK;
        };
        Hooks().popupMenu = [this](HWND, const std::vector<MenuItem>& items) {
            const std::size_t choice = answers_() % (items.size() + 1);
            return choice == items.size() ? 0 : items[choice].command;
        };
        Hooks().clipboardText = [this]() -> std::optional<CString> {
            return std::array<CString, 4>{"12", "-3", "", "99999999999"}[answers_() % 4];
        };
    }

    void Check(Editor& editor, int depth) {
        editor.driver->MouseRelease({1, 1});
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        editor.driver->Settle();
        if (const auto claim = BrokenInvariant(editor, depth); claim && !finding_) {
            finding_ = MonkeyFinding{eventNow, *claim};
        }
    }

    MonkeyRun run_;
    std::mt19937 random_;
    std::mt19937 answers_;
    CQelCPB_3DPattern pattern_;
    std::optional<MonkeyFinding> finding_;
};

unsigned FromEnvironment(const char* name, unsigned otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

class MonkeyTest : public testing::TestWithParam<int> {
protected:
    static void SetUpTestSuite() { WatchForCrashes(); }
};

}  // namespace

// ./dev monkey runs more events, and other ones, by these two variables.
TEST_P(MonkeyTest, KeepsTheInvariants) {
    qputenv("QT_LOGGING_RULES", "default.warning=false");  // what the offscreen platform lacks
    MonkeyRun run{FromEnvironment("ORBIX_MONKEY_SEED", 1), GetParam(),
                  static_cast<int>(FromEnvironment("ORBIX_MONKEY_EVENTS", 400)), 1 << 30};
    const std::optional<MonkeyFinding> found = Monkey(run).Play();
    if (!found) {
        return;
    }
    run.events = found->event;
    run.watchFrom = found->event - kCheckEvery;
    const MonkeyFinding shortest = Monkey(run).Play().value_or(*found);
    FAIL() << "seed " << run.seed << ": after " << shortest.event
           << " events this does not hold: " << shortest.claim;
}

INSTANTIATE_TEST_SUITE_P(Modes, MonkeyTest, testing::Values(kFreeMode, kRangeMode),
                         [](const auto& info) {
                             return info.param == kFreeMode ? "Free" : "Range";
                         });
