#pragma once

#include <cstddef>

/// Bytes that the program holds by `new` now, and the most since the mark was last set.
std::size_t HeapNow();
std::size_t HeapPeak();
void MarkHeap();
