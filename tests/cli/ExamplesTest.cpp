#include "tests/support/TempFolder.h"
#include "tests/support/runProgram.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Examples, GiveTheirExpectedFiles) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUILLMARK_EXAMPLES)) {
        if (!std::filesystem::exists(entry.path() / "dialect.pp")) {
            continue;
        }
        ++count;
        const std::string example = entry.path().string();
        const TempFolder folder;
        const ProgramResult run = runProgram(
            {QUILLMARK_PROGRAM, "-p", example + "/dialect.pp", "-nc", example + "/part.nc", "-of",
             folder.path("part.apt"), "-l", folder.path("part.log"), "--quiet"});
        EXPECT_EQ(std::to_string(run.status) + run.out + run.err, "0") << example;
        EXPECT_EQ(folder.read("part.apt"), readFile(example + "/part.apt")) << example;
        EXPECT_EQ(folder.read("part.log"), readFile(example + "/part.log")) << example;
    }
    EXPECT_GE(count, 5);
}

} // namespace
