#pragma once

#include <cstdio>
#include <cstdlib>

/// What must hold for every input; else the input is a finding and the process ends.
inline void Require(bool holds, const char* claim) {
    if (!holds) {
        std::fprintf(stderr, "this does not hold: %s\n", claim);
        std::abort();
    }
}
