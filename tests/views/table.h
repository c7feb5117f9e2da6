#pragma once

#include <gtest/gtest.h>

#include "tests/support/data.h"

/// Holds what `answer` makes of each row's first cell in a table of tests/data against the second:
/// words, each followed by a blank, "-" for none.
template <typename Answer>
void ExpectTable(const std::string& name, const Answer& answer) {
    for (const auto& row : TestTable(name)) {
        std::istringstream given(row.at(0));
        const std::string answered = answer(given);
        EXPECT_EQ(answered.empty() ? "- " : answered, row.at(1) + " ") << row.at(0);
    }
}
