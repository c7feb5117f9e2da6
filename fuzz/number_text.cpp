// A text typed or pasted into a number box. Six bytes are the bounds, the rest is the text.

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "fuzz/require.h"
#include "views/number_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHead = 6;
    if (size < kHead) {
        return 0;
    }
    const int one = data[1] * 65536 + data[2] * 256 + data[3];
    const int other = data[4] * 256 + data[5];
    const NumberBounds bounds{data[0] % 12, std::min(one, other), std::max(one, other)};
    const std::string given(reinterpret_cast<const char*>(data + kHead), size - kHead);
    CString text = given;
    if (NormalizeNumber(text, bounds) == 0) {
        Require(text == given, "a refused text stays");
        return 0;
    }
    int number = -1;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number).ptr;
    Require(end == text.data() + text.size(), "what is valid is a number");
    Require(number >= bounds.lower && number <= bounds.upper, "within its bounds");
    Require(text == std::to_string(number), "in its shortest form");
    return 0;
}
