#include "softCommon/CErrorUtil/ersetzeFehlerVariablen.h"

#include "include/quillmark_messages.h"
#include "tests/support/cases.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

std::string replaced(const std::string& text, int length = 300) {
    std::string line = text;
    line.resize(600);
    ersetzeFehlerVariablen(line.data(), length);
    return line.c_str();
}

TEST(Placeholders, AreReplacedByTheCurrentParameters) {
    CatSetErrPar(kMessageParLong, 42L, kMessageParLong, -7L, kMessageParDouble, 3.14159265,
                 kMessageParDouble, -1e300, kMessageParString, " pad ", kMessageParString, "", 0);
    // Only the first occurrence is replaced, and only what is set and is a name.
    for (const auto& [text, expected] : casesOf(QUILLMARK_PLACEHOLDERS, 14)) {
        EXPECT_EQ(replaced(text), expected);
    }
    EXPECT_EQ(replaced("&R02(-+ #0200.60)", 500).size(), 363U);
    EXPECT_EQ(replaced("ab&I01cd", 6), "ab42c"); // ends with its NUL within the length
    EXPECT_EQ(replaced("abcdef&I01", 4), "abc");
    EXPECT_EQ(replaced("&I01", 0), "&I01");
    error_ni4 = error_nr8 = error_nbchar = 99; // more than there are must not be read
    EXPECT_EQ(replaced("&I13 &R13 &C06"), "&I13 &R13 &C06");
}

TEST(Placeholders, NeverWriteBehindTheField) {
    std::mt19937 random(20);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    const char* const pieces[] = {"&C0", "&I0", "&R0", "&F0", "1", "2", "3", "%n", "\xE4"};
    const auto text = [&] {
        std::string made;
        while (below(8) != 0) {
            made += pieces[below(std::size(pieces))];
        }
        return made;
    };
    std::size_t grown = 0;
    for (int round = 0; round < 20000; ++round) {
        error_ni4 = error_nr8 = below(15);
        error_nbchar = below(7);
        error_i4.fill(static_cast<std::int32_t>(random()));
        error_r8.fill(std::ldexp(static_cast<double>(random()), below(2000) - 1000));
        error_charlen.fill(static_cast<std::int32_t>(text().copy(error_char[0].data(), 80)));
        const std::size_t length = 1 + random() % 80;
        std::string field = text().substr(0, length - 1);
        const std::size_t before = field.size();
        field.resize(length, '\0');
        field += "guard";
        ersetzeFehlerVariablen(field.data(), static_cast<int>(length));
        ASSERT_LT(std::strlen(field.c_str()), length);
        ASSERT_EQ(field.substr(length), "guard");
        grown += std::strlen(field.c_str()) > before ? 1 : 0;
    }
    EXPECT_GT(grown, 1000U); // the texts do hold placeholders
}

} // namespace
