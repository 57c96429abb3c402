#include "tests/messages/MessageFixture.h"

#include "softCommon/CErrorUtil/ersetzeFehlerVariablen.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>
#include <clocale>
#include <cmath>
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
    struct Row {
        const char* text;
        std::string expected;
    };
    for (const Row& row : {
             Row{"&I01 &I01 &I02", "42 &I01 -7"}, // the first occurrence only
             Row{"<&C01><&C02><&C03>", "< pad ><><&C03>"},
             Row{"&I03 &R03 &F00 &C1 &", "&I03 &R03 &F00 &C1 &"}, // not set, not a name
             Row{"&R01 &F01", "3.141593 3.14159"},
             Row{"&R01(8.3)|", "3.142|"},
             Row{"&R01  ( +09.2) x", "+00003.14 x"},
             Row{"&F01(#.0) &R01(-9.1)|", "3. 3.1|"},
             Row{"&R01()&F01(5.)", "3.1415933"},
             Row{"&R01(8.3", "3.141593(8.3"},
             Row{"&R01 mm", "3.141593 mm"},
             Row{"&R01(s%n)", "3.141593(s%n)"},
             Row{"&R01(*) &F01(8.3l)", "3.141593(*) 3.14159(8.3l)"},
             Row{"&R01(201) &F01(.61)", "3.141593(201) 3.14159(.61)"},
             Row{"&R01(4294967297.1)", "3.141593(4294967297.1)"},
             Row{"%s %n &I01 %d", "%s %n 42 %d"},
         }) {
        EXPECT_EQ(replaced(row.text), row.expected) << row.text;
    }
    for (const char* width : {"-+ #0200.60", "+0200.60", ".60", "08", " .0", "0", "-20.3"}) {
        char expected[400];
        std::snprintf(expected, sizeof expected, joined("%", width, "f").c_str(), -1e300);
        string_mani(3, expected);
        EXPECT_EQ(replaced(joined("&R02(", width, ")"), 500), expected);
    }
    EXPECT_EQ(replaced("ab&I01cd", 6), "ab42c"); // ends with its NUL within the length
    EXPECT_EQ(replaced("abcdef&I01", 4), "abc");
    EXPECT_EQ(replaced("nothing", 3), "nothing");
    EXPECT_EQ(replaced("&I01", 0), "&I01");
}

TEST_F(Placeholders, RealsHaveAPointInAnyLocale) {
    const std::string folder = testing::TempDir() + "locale." + std::to_string(getpid());
    (void)!std::system(joined("mkdir -p ", folder, " && localedef -i de_DE -f UTF-8 ", folder,
                              "/de_DE.UTF-8 >/dev/null 2>&1")
                           .c_str());
    setenv("LOCPATH", folder.c_str(), 1);
    const bool hasComma = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    CatSetErrPar(kMessageParDouble, 1234.5, 0);
    const std::string text = replaced("&R01 &F01(.1)");
    SetErrStackPar(1, kMessageParDouble, 0.5, 0);
    dbgErrorStack();
    char host[20];
    std::snprintf(host, sizeof host, "%.1f", 0.5);
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    std::filesystem::remove_all(folder);
    if (!hasComma) {
        GTEST_SKIP() << "no locale with a decimal comma";
    }
    EXPECT_STREQ(host, "0,5"); // the host's own locale is back
    EXPECT_EQ(text, "1234.500000 1234.5");
    EXPECT_NE(traced().find("r[0] = 0.500000\n"), std::string::npos);
}

/// The replacement told by whole strings, without regard to memory.
std::string model(std::string line, std::size_t length) {
    const auto put = [&](const char* kind, int number, const std::string& value) {
        char name[8];
        std::snprintf(name, sizeof name, "%s%02d", kind, number);
        const std::size_t place = line.find(name);
        if (place != std::string::npos) {
            line = line.replace(place, 4, value).substr(0, length - 1);
        }
    };
    for (std::size_t k = 0; k < static_cast<std::size_t>(error_nbchar); ++k) {
        put("&C", static_cast<int>(k + 1),
            {error_char[k].data(), static_cast<std::size_t>(error_charlen[k])});
    }
    for (std::size_t k = 0; k < static_cast<std::size_t>(error_ni4); ++k) {
        put("&I", static_cast<int>(k + 1), std::to_string(error_i4[k]));
    }
    for (const auto& [kind, precision] : {std::pair{"&R", 6}, std::pair{"&F", 5}}) {
        for (std::size_t k = 0; k < static_cast<std::size_t>(error_nr8); ++k) {
            char value[400];
            std::snprintf(value, sizeof value, "%.*f", precision, error_r8[k]);
            put(kind, static_cast<int>(k + 1), value);
        }
    }
    return line;
}

TEST_F(Placeholders, NeverWriteBehindTheField) {
    std::mt19937 random(20);
    const auto below = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const char* const pieces[] = {"&C0", "&I0", "&I1", "&R0", "&F0", "&R1", "&",    "1",
                                  "2",   "3",   "5",   "0",   " ",   "%n",  "\xE4", "text"};
    int changed = 0;
    for (int round = 0; round < 20000; ++round) {
        const auto text = [&] {
            std::string made;
            for (int k = below(12); k > 0; --k) {
                made += pieces[below(std::size(pieces))];
            }
            return made;
        };
        error_ni4 = below(15); // more than there are must not be read
        error_nr8 = below(15);
        for (std::size_t k = 0; k < error_i4.size(); ++k) {
            error_i4[k] = static_cast<std::int32_t>(random());
            error_r8[k] = std::ldexp(static_cast<double>(random()), below(2000) - 1000);
        }
        error_nbchar = below(7);
        for (std::size_t k = 0; k < error_char.size(); ++k) {
            const std::string value = text().substr(0, 80);
            value.copy(error_char[k].data(), 80);
            error_charlen[k] = static_cast<std::int32_t>(value.size());
        }
        const int length = 1 + below(80);
        const std::string line = text().substr(0, static_cast<std::size_t>(length - 1));
        std::string field = line;
        field.resize(static_cast<std::size_t>(length), '\0');
        field += "guard";
        ersetzeFehlerVariablen(field.data(), length);
        error_ni4 = std::min(error_ni4, kMessageIntegers);
        error_nr8 = std::min(error_nr8, kMessageReals);
        error_nbchar = std::min(error_nbchar, kMessageStrings);
        ASSERT_EQ(field.c_str(), model(line, static_cast<std::size_t>(length))) << line;
        ASSERT_EQ(field.substr(static_cast<std::size_t>(length)), "guard") << line;
        changed += field.c_str() != line ? 1 : 0;
    }
    EXPECT_GT(changed, 1000); // the texts do hold placeholders
}

} // namespace
