// Stored blocks, read by every class that has a structure. The first byte picks the class, its bit
// 7 whether any identifier is taken; the rest is the stream.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "params/number_blocks.h"
#include "params/param_block.h"
#include "params/pattern_block.h"
#include "params/position_block.h"
#include "params/time_sig_blocks.h"
#include "tests/sequence/streams.h"

namespace {

std::string WrittenBytes(const CZurBlock& block) {
    std::strstream stream;
    block.Write(&stream);
    return Written(stream);
}

// Requests 0 to 4 have forms of their own, and 50 passes the ownership of what a block holds.
bool IsNumber(std::uint32_t id) {
    return id > 4 && id != 50;
}

// Gets and sets back each number of a port.
void AskAll(CZurParamPort& port) {
    t_paramIdList ids;
    port.EnumParams(ids);
    for (const std::uint32_t id : ids) {
        st_paramValue record;
        if (IsNumber(id) && port.GetParam(id, &record, kSizeParamValue)) {
            port.SetParam(id, &record, kSizeParamValue);
        }
    }
}

void AskAll(CZurComposite& composite) {
    t_paramIdList ids;
    composite.EnumGetParams(ids);
    for (const std::uint32_t id : ids) {
        st_paramValue record;
        if (IsNumber(id) && composite.Get(id, &record, kSizeParamValue)) {
            composite.Set(id, &record, kSizeParamValue);
        }
    }
    st_paramValue first{-1, 0};
    composite.Do(9, &first, kSizeParamValue);
}

// Reading completes a pattern that lacks parts; what was read once stays as it is.
template <typename Reread>
void RequireSteady(const std::string& written, const Reread& reread) {
    const std::string complete = reread(written);
    Require(reread(complete) == complete, "what is written reads back equal");
}

template <typename Leaf, typename... Arguments>
std::string ReadLeaf(std::strstream& stream, bool anyId, Arguments... arguments) {
    Leaf block(arguments...);
    block.Read(&stream, anyId);
    const std::string written = WrittenBytes(block);
    const auto copy = block.Clone();
    Require(copy->IsEqual(block) && block.IsEqual(*copy), "a clone is equal");
    Require(WrittenBytes(*copy) == written, "a clone writes the same");
    const auto reread = [&](const std::string& bytes) {
        std::strstream again;
        Put(again, bytes);
        Leaf second(arguments...);
        second.Read(&again, true);
        return WrittenBytes(second);
    };
    RequireSteady(written, reread);
    if constexpr (std::is_base_of_v<CZurParamPort, Leaf>) {
        AskAll(block);
    }
    WrittenBytes(block);
    return written;
}

template <typename Composite, typename... Arguments>
std::string ReadComposite(std::strstream& stream, bool anyId, Arguments... arguments) {
    Composite composite(arguments...);
    st_paramStream record{static_cast<std::uint8_t>(anyId), 0, 0, &stream};
    Require(composite.Set(2, &record, kSizeParamStream), "a composite reads");
    const std::string written = WrittenBytes(composite);
    const Composite copy(composite);
    Require(copy.IsEqual(composite), "a copy is equal");
    const auto reread = [&](const std::string& bytes) {
        std::strstream again;
        Put(again, bytes);
        Composite second(arguments...);
        st_paramStream source{1, 0, 0, &again};
        second.Set(2, &source, kSizeParamStream);
        return WrittenBytes(second);
    };
    RequireSteady(written, reread);
    std::strstream message;
    composite.WriteDeviceMessage(&message);
    message.freeze(false);
    AskAll(composite);
    WrittenBytes(composite);
    return written;
}

using Reader = std::function<std::string(std::strstream&, bool)>;

const std::vector<Reader>& Readers() {
    const t_MBT start;
    static const std::vector<Reader> readers = {
        [](auto& in, bool any) { return ReadLeaf<CQelCPB_3DPattern>(in, any); },
        [](auto& in, bool any) { return ReadLeaf<CQelCPB_3DPosition>(in, any); },
        [=](auto& in, bool any) {
            return ReadLeaf<CQelCPB_TimeSig>(in, any, 5700U, start, std::uint16_t{4},
                                             std::uint16_t{4});
        },
        [](auto& in, bool any) { return ReadLeaf<CQelCPB_TimeSigList>(in, any, 2906U); },
        [](auto& in, bool any) { return ReadComposite<CQelComposite_3DPattern>(in, any); },
        [](auto& in, bool any) { return ReadComposite<CQelComposite_3DPosition>(in, any); },
        [=](auto& in, bool any) {
            return ReadComposite<CQelComposite_TimeSig>(in, any, 5700U, start, std::uint16_t{4},
                                                        std::uint16_t{4});
        },
        [](auto& in, bool any) { return ReadComposite<CQelComposite_TimeSigList>(in, any); },
        [](auto& in, bool any) { return ReadLeaf<CZurParamBlock>(in, any, 1U, 4U); },
        [](auto& in, bool any) { return ReadLeaf<CZurIntParamBlock>(in, any, 1U, 4U); },
    };
    return readers;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const Reader& reader = Readers()[(data[0] & 0x7FU) % Readers().size()];
    const bool anyId = data[0] >= 0x80;
    std::vector<std::string> outcomes;
    InEveryShape(std::string(data + 1, data + size), [&](std::strstream& stream) {
        outcomes.push_back(reader(stream, anyId));
        Require(outcomes.back() == outcomes.front(), "every shape of a stream reads the same");
    });
    return 0;
}
