#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "params/param_port.h"
#include "params/pattern_block.h"
#include "params/position_block.h"
#include "params/raw_block.h"
#include "tests/support/bytes.h"

/// A stream that holds these bytes and stands at the first.
struct Source {
    explicit Source(std::string_view bytes) {
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    /// What has not been read, as hexadecimal pairs.
    std::string Rest() {
        std::string bytes(static_cast<std::size_t>(stream.pcount() - stream.tellg()), '\0');
        stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return Hex(bytes);
    }
    std::strstream stream;
};

/// All that a block writes, as hexadecimal pairs.
inline std::string WrittenHex(const CZurBlock& block) {
    Source target("");
    block.Write(&target.stream);
    return target.Rest();
}

/// The number behind a parameter, -1 when the port refuses.
inline std::int64_t Number(const CZurParamPort& port, std::uint32_t id,
                           std::int32_t selector = -1) {
    st_paramValue record{selector, 0};
    return port.GetParam(id, &record, kSizeParamValue) ? std::int64_t{record.value} : -1;
}

inline bool SetNumber(CZurParamPort& port, std::uint32_t id, std::uint32_t number,
                      std::int32_t selector = -1) {
    st_paramValue record{selector, number};
    return port.SetParam(id, &record, kSizeParamValue);
}

/// The composite that a block holds.
inline CZurComposite* Held(const CZurParamPort& port) {
    st_paramValue record;
    return port.GetParam(50, &record, kSizeParamValue) ? record.reference : nullptr;
}

/// The identifiers of a composite's children, in order.
inline std::vector<std::uint32_t> ChildIds(const CZurComposite& composite) {
    std::vector<std::uint32_t> ids;
    ids.reserve(static_cast<std::size_t>(composite.Count()));
    for (std::int32_t i = 0; i < composite.Count(); ++i) {
        ids.push_back(composite.FindChild(kAnyBlock, i)->GetID());
    }
    return ids;
}

/// Gives the pattern a position event with this tick, as its number `index` or at the end.
inline bool PutPosition(CQelCPB_3DPattern& pattern, std::uint32_t tick, std::int32_t index = -1) {
    auto* event = new CQelCPB_3DPosition;
    SetNumber(*event, 2800, tick);
    st_paramChild record{0, index, event};
    return pattern.SetParam(2900, &record, kSizeParamChild);
}

/// The pattern as its parameters give it: the children's identifiers, name, two numbers, time
/// signatures, and for each position event the seven fields; "-" for a refused request.
inline std::string TextOf(const CQelCPB_3DPattern& pattern) {
    std::ostringstream text;
    for (const std::uint32_t id : ChildIds(*Held(pattern))) {
        text << id << ' ';
    }
    st_paramName name("-");
    pattern.GetParam(2902, &name, kSizeParamName);
    text << "| " << name.name << " | " << Number(pattern, 2903) << ' ' << Number(pattern, 2913);
    std::vector<t_tSigRec> records;
    st_paramTimeSigRecords reference{&records};
    text << (pattern.GetParam(2914, &reference, kSizeReference) ? " |" : " | -");
    for (const t_tSigRec& sig : records) {
        text << ' ' << sig.measure << ':' << sig.beat << ':' << sig.tick << ' ' << sig.numerator
             << '/' << sig.denominator;
    }
    for (std::int32_t event = 0; event < Number(pattern, 2901); ++event) {
        text << " |";
        for (std::uint32_t id = 2904; id <= 2910; ++id) {
            text << ' ' << Number(pattern, id, event);
        }
    }
    return text.str();
}

inline bool SetTimeSigs(CQelCPB_3DPattern& pattern, std::vector<t_tSigRec> records) {
    st_paramTimeSigRecords reference{&records};
    return pattern.SetParam(2914, &reference, kSizeReference);
}
