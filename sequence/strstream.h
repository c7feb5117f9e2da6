#pragma once

// std::strstream is the stream type of every reader and writer here. It is deprecated but stays in
// the standard until C++26; this is the one place that includes it, with that one warning off.
#pragma push_macro("__DEPRECATED")
#undef __DEPRECATED
#include <strstream>  // IWYU pragma: export
#pragma pop_macro("__DEPRECATED")
