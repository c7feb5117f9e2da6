#include "views/number_text.h"

#include <algorithm>
#include <charconv>

namespace {

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

// A number that no int can hold is above every bound, so which one stands for it is the same.
int NumberOf(const CString& digits, int tooLarge) {
    int number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc() ? number : tooLarge;
}

}  // namespace

int NormalizeNumber(CString& text, const NumberBounds& bounds) {
    if (text.empty()) {
        return 0;
    }
    if (static_cast<std::ptrdiff_t>(text.size()) > bounds.characters) {
        text = std::to_string(bounds.upper);
        return 1;
    }
    if (!std::all_of(text.begin(), text.end(), IsDigit)) {
        return 0;
    }
    const int number = NumberOf(text, bounds.upper);
    if (number < bounds.lower) {
        text = std::to_string(bounds.lower);
    } else {
        text = std::to_string(std::min(number, bounds.upper));
    }
    return 1;
}
