#include "tests/messages/MessageFixture.h"

#include "softCommon/CErrorUtil/ersetzeFehlerVariablen.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <clocale>
#include <cmath>
#include <cstring>
#include <random>

namespace {

using Placeholders = MessageFixture;

std::string replaced(const std::string& text, int length = 300) {
    std::string line = text;
    line.resize(600);
    ersetzeFehlerVariablen(line.data(), length);
    return line.c_str();
}

TEST_F(Placeholders, AreReplacedByTheCurrentParameters) {
    CatSetErrPar(kMessageParLong, 42L, kMessageParLong, -7L, kMessageParDouble, 3.14159265,
                 kMessageParDouble, -1e300, kMessageParString, " pad ", kMessageParString, "", 0);
    const std::pair<const char*, const char*> rows[] = {
        {"&I01 &I01 &I02", "42 &I01 -7"}, // the first occurrence only
        {"<&C01><&C02><&C03>", "< pad ><><&C03>"},
        {"&I03 &R03 &F00 &C1 &", "&I03 &R03 &F00 &C1 &"}, // not set, not a name
        {"&R01 &F01", "3.141593 3.14159"},
        {"&R01(8.3)|", "3.142|"},
        {"&R01  ( +09.2) x", "+00003.14 x"},
        {"&F01(#.0) &R01(-9.1)|", "3. 3.1|"},
        {"&R01()&F01(5.)", "3.1415933"},
        {"&R01(8.3", "3.141593(8.3"},
        {"&R01(s%n)", "3.141593(s%n)"},
        {"&R01(*) &F01(8.3l)", "3.141593(*) 3.14159(8.3l)"},
        {"&R01(201) &F01(.61)", "3.141593(201) 3.14159(.61)"},
        {"%s %n &I01 %d", "%s %n 42 %d"},
        {"&R01(4294967297.1)", "3.141593(4294967297.1)"}};
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(replaced(text), expected) << text;
    }
    for (const char* width : {"-+ #0200.60", "+0200.60", " .0"}) {
        char expected[400];
        std::snprintf(expected, sizeof expected, joined("%", width, "f").c_str(), -1e300);
        string_mani(3, expected);
        EXPECT_EQ(replaced(joined("&R02(", width, ")"), 500), expected);
    }
    EXPECT_EQ(replaced("ab&I01cd", 6), "ab42c"); // ends with its NUL within the length
    EXPECT_EQ(replaced("abcdef&I01", 4), "abc");
    EXPECT_EQ(replaced("&I01", 0), "&I01");
}

TEST_F(Placeholders, RealsHaveAPointInAnyLocale) {
    const std::string locale = m_folder.path("de_DE.UTF-8");
    (void)!std::system(("localedef -i de_DE -f UTF-8 " + locale + " >/dev/null 2>&1").c_str());
    setenv("LOCPATH", m_folder.path().c_str(), 1);
    const bool hasComma = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    CatSetErrPar(kMessageParDouble, 1234.5, 0);
    const std::string text = replaced("&R01 &F01(.1)");
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    if (!hasComma) {
        GTEST_SKIP() << "no locale with a decimal comma";
    }
    EXPECT_EQ(text, "1234.500000 1234.5");
}

TEST_F(Placeholders, NeverWriteBehindTheField) {
    std::mt19937 random(20);
    const auto below = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const char* const pieces[] = {"&C0", "&I0", "&I1", "&R0", "&F0", "&R1",
                                  "1",   "2",   "3",   "%n",  "\xE4"};
    const auto text = [&] {
        std::string made;
        for (int k = below(12); k > 0; --k) {
            made += pieces[below(std::size(pieces))];
        }
        return made;
    };
    std::size_t grown = 0;
    for (int round = 0; round < 20000; ++round) {
        error_ni4 = error_nr8 = below(15); // more than there are must not be read
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
