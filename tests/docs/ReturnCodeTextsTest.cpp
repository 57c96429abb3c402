#include "driver/returnCodes.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <string>

namespace {

TEST(ReturnCodeTexts, AgreeWithTheTableEverywhere) {
    const std::string guide = readFile(QUILLMARK_SOURCE "/docs/return-codes.md");
    const std::string manual = readFile(QUILLMARK_SOURCE "/packaging/man/quillmark.1.in");
    const std::string messages = readFile(QUILLMARK_SOURCE "/messages/quillmark.msg");
    for (const ReturnCode& row : returnCodes()) {
        std::ostringstream line;
        line << "\n| " << row.code << " | " << row.code % 256 << " | " << row.meaning << " | "
             << row.remedy << " |\n";
        EXPECT_NE(guide.find(line.str()), std::string::npos) << line.str();
        std::string meaning = row.meaning;
        meaning[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(meaning[0])));
        // The code, and the status that a shell sees instead where it differs.
        const std::string tag = std::to_string(row.code) +
                                (row.code < 256 ? "" : " (" + std::to_string(row.code % 256) + ")");
        EXPECT_NE(manual.find(".TP\n.B " + tag + "\n" + meaning + ".\n"), std::string::npos)
            << row.code;
        std::ostringstream header;
        header << '\n' << std::setw(5) << row.code << ' ';
        EXPECT_NE(messages.find(header.str()), std::string::npos) << row.code;
    }
    // The guide's table of four columns has no code that the program no longer has.
    std::istringstream lines(guide);
    std::ptrdiff_t guideRows = -2; // head and rule
    for (std::string line; std::getline(lines, line);) {
        guideRows += std::ranges::count(line, '|') == 5;
    }
    EXPECT_EQ(guideRows, std::ssize(returnCodes()));
}

// The shell sees the low 8 bits of a code: they must not be what success, the front end's own
// statuses or an end by a signal (Ctrl-C, SIGTERM, SIGHUP) look like.
TEST(ReturnCodes, KeepClearOfOtherExitStatuses) {
    for (const ReturnCode& row : returnCodes()) {
        for (const int status : {0, 2, 3, 129, 130, 143}) {
            EXPECT_NE(row.code % 256, status) << row.code;
        }
    }
}

} // namespace
