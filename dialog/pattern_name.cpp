#include "dialog/pattern_name.h"

#include <cstdint>

namespace {

struct Form {
    unsigned leadMask;
    unsigned lead;
    std::uint32_t lowest;  // A smaller code must not be written at this length.
};
// By length in bytes, from 1.
constexpr Form kForms[] = {
    {0x80, 0x00, 0x00}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};

bool IsCharacter(std::string_view bytes, const Form& form) {
    std::uint32_t code = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned byte = static_cast<unsigned char>(bytes[i]);
        const unsigned mask = i == 0 ? form.leadMask : 0xC0U;
        if ((byte & mask) != (i == 0 ? form.lead : 0x80U)) {
            return false;
        }
        code = (code << 6U) | (byte & ~mask);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= form.lowest && code <= 0x10FFFF && !isSurrogate;
}

// Length of the character that begins `text`, 0 when its bytes are not UTF-8.
std::size_t CharacterLength(std::string_view text) {
    std::size_t length = 0;
    for (const Form& form : kForms) {
        ++length;
        if (length <= text.size() && IsCharacter(text.substr(0, length), form)) {
            return length;
        }
    }
    return 0;
}

}  // namespace

CString DisplayName(std::string_view stored) {
    CString name;
    while (!stored.empty()) {
        const std::size_t length = CharacterLength(stored);
        const std::string_view character = length == 0 ? "?" : stored.substr(0, length);
        if (name.size() + character.size() > kNameLimit) {
            break;
        }
        name += character;
        stored.remove_prefix(length == 0 ? 1 : length);
    }
    return name;
}
