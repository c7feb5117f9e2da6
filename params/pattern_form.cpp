#include "params/pattern_form.h"

#include <array>
#include <cstdio>
#include <limits>
#include <new>

#include "params/pattern_parameters.h"
#include "sequence/byte_stream.h"

namespace {

constexpr std::uint32_t kCompositeHeaderSize = 12;  // identifier, length, count of children

/// What stands in the payload of a block.
enum class Content { Raw, Word, Half, Pattern, Position, TimeSigList, TimeSig };

/// What the format says of a child.
struct Rule {
    Content parent;
    std::uint32_t id;
    Content content;
    bool required;
    const char* name;
};

constexpr std::array<Rule, 13> kRules = {{
    {Content::Pattern, kReservedBlock, Content::Raw, false, "reserved"},
    {Content::Pattern, kNameBlock, Content::Raw, false, "name"},
    {Content::Pattern, kNumberBlock, Content::Word, false, "number"},
    {Content::Pattern, kPositionBlock, Content::Position, false, "position event"},
    {Content::Pattern, kOldNumeratorBlock, Content::Word, false, "numerator"},
    {Content::Pattern, kOldDenominatorBlock, Content::Word, false, "denominator"},
    {Content::Pattern, kTimeSigListBlock, Content::TimeSigList, false, "time signatures"},
    {Content::Pattern, kDivisionBlock, Content::Word, false, "division"},
    {Content::Position, 2800, Content::Raw, true, "placement"},
    {Content::TimeSigList, 5700, Content::TimeSig, false, "time signature"},
    {Content::TimeSig, 5800, Content::Raw, true, "time"},
    {Content::TimeSig, 5801, Content::Half, true, "numerator"},
    {Content::TimeSig, 5802, Content::Half, true, "denominator"},
}};

const Rule* RuleFor(Content parent, std::uint32_t id) {
    for (const auto& rule : kRules) {
        if (rule.parent == parent && rule.id == id) {
            return &rule;
        }
    }
    return nullptr;
}

/// A block on the way from the outermost one to the place that is being looked at.
struct Place {
    const Place* parent = nullptr;
    const Rule* rule = nullptr;  // null for the pattern and for unknown blocks
    std::uint32_t id = 0;
    std::uint32_t number = 0;  // which child of its parent, from 1
    std::uint32_t begin = 0;   // of the payload
    std::uint32_t end = 0;

    std::uint32_t Size() const { return end - begin; }
};

std::string WayTo(const Place& place) {
    if (place.parent == nullptr) {
        return "pattern";
    }
    return WayTo(*place.parent) + " > " + (place.rule != nullptr ? place.rule->name : "unknown") +
           " (block " + std::to_string(place.id) + ", child " + std::to_string(place.number) + ")";
}

std::string Amount(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

class PatternCheck {
public:
    explicit PatternCheck(std::string_view bytes) : bytes(bytes) {}

    std::optional<PatternFault> Run() {
        if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
            Fail(0, {}, "a pattern of at most 2147483647 bytes", Amount(bytes.size()));
            return fault;
        }
        if (bytes.size() < kBlockHeaderSize + kCompositeHeaderSize) {
            Fail(0, {}, "a pattern of at least 20 bytes",
                 bytes.empty() ? "nothing" : Amount(bytes.size()));
            return fault;
        }
        const auto size = static_cast<std::uint32_t>(bytes.size());
        if (CheckOutside(size - kBlockHeaderSize)) {
            Place pattern;
            pattern.begin = kBlockHeaderSize;
            pattern.end = size;
            CheckComposite(pattern, Content::Pattern);
        }
        return fault;
    }

private:
    std::uint32_t WordAt(std::uint32_t offset) const {
        return DecodeBigEndian32(reinterpret_cast<const std::uint8_t*>(bytes.data()) + offset);
    }

    bool Fail(std::uint32_t offset, const Place& place, std::string expected, std::string found) {
        fault = PatternFault{offset, WayTo(place), std::move(expected), std::move(found)};
        return false;
    }

    /// The outermost length is what tells a pattern from other files.
    bool CheckOutside(std::uint32_t room) {
        const std::uint32_t length = WordAt(4);
        if (length == room) {
            return true;
        }
        if (length < room && length >= kCompositeHeaderSize && WordAt(12) == length - 8) {
            return Fail(kBlockHeaderSize + length, {}, "the end of the pattern",
                        Amount(room - length) + " more");
        }
        std::array<char, 12> start = {};
        std::snprintf(start.data(), start.size(), "%02X %02X %02X %02X", WordAt(0) >> 24,
                      WordAt(0) >> 16 & 0xFFU, WordAt(0) >> 8 & 0xFFU, WordAt(0) & 0xFFU);
        return Fail(4, {}, "a length of " + Amount(room) + ", all that follows",
                    "a length of " + Amount(length) + " behind the identifier " + start.data());
    }

    bool CheckComposite(const Place& place, Content content) {
        if (place.Size() < kCompositeHeaderSize) {
            return Fail(place.begin, place, "a list of blocks of at least 12 bytes",
                        Amount(place.Size()));
        }
        const std::uint32_t room = place.Size() - kBlockHeaderSize;
        if (const std::uint32_t length = WordAt(place.begin + 4); length != room) {
            return Fail(place.begin + 4, place, "a length of " + Amount(room),
                        "a length of " + Amount(length));
        }
        const std::uint32_t count = WordAt(place.begin + 8);
        const std::uint32_t most = (place.Size() - kCompositeHeaderSize) / kBlockHeaderSize;
        if (count > most) {
            return Fail(place.begin + 8, place, "at most " + std::to_string(most) + " children",
                        std::to_string(count));
        }
        return CheckChildren(place, content, count);
    }

    bool CheckChildren(const Place& place, Content content, std::uint32_t count) {
        std::array<bool, kRules.size()> seen = {};
        std::uint32_t offset = place.begin + kCompositeHeaderSize;
        for (std::uint32_t number = 1; number <= count; ++number) {
            Place child{&place, nullptr, 0, number, offset, offset};
            if (!FindExtent(child, place.end, content) || !CheckContent(child)) {
                return false;
            }
            if (child.rule != nullptr) {
                seen[static_cast<std::size_t>(child.rule - kRules.data())] = true;
            }
            offset = child.end;
        }
        if (offset != place.end) {
            return Fail(offset, place, "the end after " + std::to_string(count) + " children",
                        Amount(place.end - offset) + " more");
        }
        for (std::size_t i = 0; i < kRules.size(); ++i) {
            if (kRules[i].parent == content && kRules[i].required && !seen[i]) {
                return Fail(
                    place.begin, place,
                    std::string(kRules[i].name) + " (block " + std::to_string(kRules[i].id) + ")",
                    "none");
            }
        }
        return true;
    }

    /// Reads the header at `child.begin` and finds where the payload begins and ends.
    bool FindExtent(Place& child, std::uint32_t end, Content parent) {
        const std::uint32_t room = end - child.begin;
        if (room < kBlockHeaderSize) {
            return Fail(child.begin, *child.parent,
                        "the header of child " + std::to_string(child.number) + ", 8 bytes",
                        Amount(room));
        }
        child.id = WordAt(child.begin);
        child.rule = RuleFor(parent, child.id);
        const std::uint32_t length = WordAt(child.begin + 4);
        if (length > room - kBlockHeaderSize) {
            return Fail(child.begin + 4, child,
                        "a length of at most " + Amount(room - kBlockHeaderSize),
                        "a length of " + Amount(length));
        }
        child.begin += kBlockHeaderSize;
        child.end = child.begin + length;
        return true;
    }

    bool CheckContent(const Place& child) {
        const Content content = child.rule == nullptr ? Content::Raw : child.rule->content;
        switch (content) {
            case Content::Raw:
                return true;
            case Content::Word:
                return CheckNumber(child, 4);
            case Content::Half:
                return CheckNumber(child, 2);
            default:
                return CheckComposite(child, content);
        }
    }

    bool CheckNumber(const Place& child, std::uint32_t most) {
        return child.Size() <= most ||
               Fail(child.begin - 4, child, "a length of at most " + Amount(most),
                    "a length of " + Amount(child.Size()));
    }

    std::string_view bytes;
    std::optional<PatternFault> fault;
};

}  // namespace

std::string PatternFault::Text() const {
    return "at byte " + std::to_string(offset) + ", " + block + ": expected " + expected +
           ", found " + found;
}

std::optional<PatternFault> CheckPatternBytes(std::string_view bytes) {
    return PatternCheck(bytes).Run();
}

std::unique_ptr<CQelCPB_3DPattern> ReadPatternBytes(std::string_view bytes, PatternFault& fault) {
    if (auto refused = CheckPatternBytes(bytes)) {
        fault = std::move(*refused);
        return nullptr;
    }
    const std::uint32_t failures = SwallowedFailures();
    std::strstream stream;
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    auto pattern = std::make_unique<CQelCPB_3DPattern>();
    const bool isCopied = stream.good();
    pattern->Read(&stream, true);  // empties the new pattern first
    if (!isCopied) {
        throw std::bad_alloc();
    }
    RaiseFailuresSince(failures);
    return pattern;
}

std::unique_ptr<CQelCPB_3DPattern> CopyPattern(const CQelCPB_3DPattern& pattern) {
    const std::uint32_t failures = SwallowedFailures();
    auto copy = std::make_unique<CQelCPB_3DPattern>(pattern);
    RaiseFailuresSince(failures);
    return copy;
}

std::string WritePatternBytes(const CQelCPB_3DPattern& pattern) {
    std::strstream stream;
    pattern.Write(&stream);
    std::string bytes(static_cast<std::size_t>(stream.pcount()), '\0');
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw std::bad_alloc();
    }
    return bytes;
}
