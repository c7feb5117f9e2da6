#include "tests/views/table.h"
#include "views/repeat_press.h"

namespace {

TEST(RepeatPress, LooksAtTheReleaseBeforeEachWaitOnly) {
    ExpectTable("presses.txt", [](std::istream& row) {
        bool accelerate = false;
        RepeatPress press;
        std::string waits;
        row >> accelerate;
        for (char event = 0; row >> event;) {
            if (event == 'r') {
                press.Release();
                continue;
            }
            const auto wait =
                event == 'p' ? press.Press(accelerate, 60) : press.AfterStep(event == 's');
            waits += (wait ? std::to_string(*wait) : "-") + " ";
        }
        return waits;
    });
}

}  // namespace
