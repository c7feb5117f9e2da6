#pragma once

#include <vector>

struct NativeWindow;

namespace toolkit {

/// The radio buttons of the group that `radio` is in, in the template's order. A group runs from
/// a control that starts one to the next that does.
std::vector<NativeWindow*> RadioGroupOf(const NativeWindow& radio);

}  // namespace toolkit
