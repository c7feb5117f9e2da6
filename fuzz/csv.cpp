// A CSV text in free and in range mode, with each answer to the question for the division.

#include <stdexcept>
#include <string>
#include <tuple>

#include "cli/csv_fault.h"
#include "event/event_store.h"
#include "fuzz/require.h"
#include "platform/hooks.h"
#include "tests/event/event_builders.h"

namespace {

void Load(const std::string& text, int mode) {
    C3DEventData store(mode, 960, 9600);
    Add(store, TimeSig(0, 7, 8));
    Add(store, Position(1, 1000));
    const auto before = StateOf(store);
    C3DReport report;
    const int code = store.LoadCsvText(text, report);
    if (code != 0) {
        Require(StateOf(store) == before, "a refused text changes nothing");
        Require((code == kErrorNoData) == !FindCsvFault(text), "a refused text has a place");
        return;
    }
    Require(!FindCsvFault(text), "a text that is taken has no fault");
    Require(!store.CanUndo() && !store.CanRedo(), "a load leaves an empty history");
    const std::string written = store.CsvText();
    C3DEventData again = store;
    if (store.CountEvents(-1) == 0) {
        return;
    }
    C3DReport remarks;
    Require(again.LoadCsvText(written, remarks) == 0, "what is written loads");
    // A beat far behind its measure's end is written as a measure of its own, which may be too
    // late.
    Require(!remarks.IsEmpty() || again.CsvText() == written, "what is written loads as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const int answer : {IDYES, IDNO}) {
        Hooks().messageBox = [answer](const CString&, UINT) { return answer; };
        Load(text, kFreeMode);
        Load(text, kRangeMode);
    }
    return 0;
}
