#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

/// The bytes of a file in tests/data; none when it is missing.
inline std::string TestData(const std::string& name) {
    std::ifstream file(ORBIX_TEST_DATA "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A table in tests/data/tables, never an empty one: a line a row, with "> " behind each cell but
/// the last. Lines that begin with # are remarks.
inline std::vector<std::vector<std::string>> TestTable(const std::string& name) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(TestData("tables/" + name));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        std::vector<std::string>& row = rows.emplace_back();
        for (std::size_t end = 0; (end = line.find("> ")) != std::string::npos;) {
            row.push_back(line.substr(0, end));
            line.erase(0, end + 2);
        }
        row.push_back(line);
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}
