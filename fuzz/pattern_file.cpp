// A pattern file: what the check lets through reads, writes and loads into the table; what it
// refuses is named with a place inside the bytes.

#include <string>

#include "event/event_store.h"
#include "fuzz/require.h"
#include "params/pattern_form.h"
#include "platform/hooks.h"

namespace {

// A pattern is read with any tick and written with no later one. With divisions beyond the usual
// ticks wrap at 32 bits.
constexpr std::uint32_t kLastStoredTick = 999999999;
constexpr std::uint32_t kMostDivision = 960;

bool MustBeSteady(const C3DEventData& store) {
    const int count = store.CountEvents(-1);
    return store.Division() <= kMostDivision && count > 0 &&
           store.EventAt(count - 1).tick <= kLastStoredTick;
}

void RequireSteadyTable(CQelCPB_3DPattern& pattern, int mode) {
    C3DEventData store(mode, 480, 4800);
    C3DReport report;
    store.LoadFromPattern(&pattern, report);
    Require(!store.CanUndo() && !store.CanRedo(), "a load leaves an empty history");
    CQelCPB_3DPattern stored(pattern);
    store.StoreToPattern(&stored, "fuzz");
    C3DEventData again(mode, 480, 4800);
    again.LoadFromPattern(&stored, report);
    Require(!MustBeSteady(store) || again.CsvText() == store.CsvText(),
            "a stored table loads as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Hooks().messageBox = [](const CString&, UINT) { return IDOK; };
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    PatternFault fault;
    const auto pattern = ReadPatternBytes(bytes, fault);
    if (pattern == nullptr) {
        Require(fault.offset <= size && !fault.Text().empty(), "a fault has a place");
        return 0;
    }
    const std::string written = WritePatternBytes(*pattern);
    const auto again = ReadPatternBytes(written, fault);
    Require(again != nullptr, "what is written is a pattern");
    Require(WritePatternBytes(*again) == written, "what is written reads back equal");
    Require(again->IsEqual(*pattern), "a pattern read back equals itself");
    RequireSteadyTable(*pattern, kFreeMode);
    RequireSteadyTable(*pattern, kRangeMode);
    return 0;
}
