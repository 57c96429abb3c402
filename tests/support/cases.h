#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

/// The rows "text => expected" of a file, which has `count` of them; "# " begins a comment.
inline std::vector<std::pair<std::string, std::string>> casesOf(const char* name,
                                                                std::size_t count) {
    std::vector<std::pair<std::string, std::string>> cases;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);) {
        if (const std::size_t arrow = line.find(" => "); !line.starts_with("# ")) {
            cases.emplace_back(line.substr(0, arrow), line.substr(arrow + 4));
        }
    }
    EXPECT_EQ(cases.size(), count) << name;
    return cases;
}
