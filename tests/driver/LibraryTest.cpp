#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

const char* const kBanner = " 54 V1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23 0\n";

using Inputs = std::vector<std::pair<std::string, std::string>>; // dialects and programs

// Runs conversions in one host process; their outputs are NUMBER.apt and NUMBER.log in `folder`.
ProgramResult runHost(const TempFolder& folder, const std::string& locale, const Inputs& inputs) {
    std::vector<std::string> arguments = {QUILLMARK_HOST, QUILLMARK_LIBRARY, locale};
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const std::string number = std::to_string(i);
        arguments.insert(arguments.end(),
                         {inputs[i].first, inputs[i].second, folder.path(number + ".apt"),
                          folder.path(number + ".log")});
    }
    return runProgram(arguments, {folder.path(), "", {{"LOCPATH", folder.path()}}});
}

Inputs examples() {
    Inputs inputs;
    for (const char* const name :
         {"milling", "implied-decimals", "lathe", "decimal-comma", "marked-words", "milling"}) {
        const std::string folder = std::string(QUILLMARK_EXAMPLES "/") + name;
        inputs.emplace_back(folder + "/dialect.pp", folder + "/part.nc");
    }
    return inputs;
}

void expectExamples(const TempFolder& folder) {
    const auto inputs = examples();
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const std::filesystem::path example = std::filesystem::path(inputs[i].first).parent_path();
        const std::string number = std::to_string(i);
        EXPECT_EQ(folder.read(number + ".apt"), readFile(example / "part.apt")) << example;
        EXPECT_EQ(folder.read(number + ".log"), readFile(example / "part.log")) << example;
    }
}

TEST(Library, ConvertsDifferentDialectsInTurn) {
    const TempFolder folder;
    const ProgramResult host = runHost(folder, "C", examples());
    EXPECT_EQ(host.status, 0);
    EXPECT_EQ(host.out, std::string("0\n0\n0\n0\n0\n0\n1.5") + kBanner);
    EXPECT_EQ(host.err, "");
    expectExamples(folder);
}

TEST(Library, CarriesNothingOverFromAFailedConversion) {
    const TempFolder folder;
    // The first dialect asks for a tool axis and fails before any movement writes it.
    const std::string failing = folder.write(
        "failing.pp",
        mill({{"MFG_INIT_SPINDLE", "1;0;0"}, {"MFG_CLASS_NAME", "MILL"}}) + "COOLANT_ON");
    const std::string asking =
        folder.write("asking.pp", mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}}));
    const std::string bare = folder.write("bare.pp", dialectOf({{"1ST_COORDINATE", "X\n1\nM5.3"}}));
    const std::string nc = folder.write("a.nc", "G91 G1 X1500 S5 F6 M3 T7\n");
    const ProgramResult host = runHost(
        folder, "C", {{failing, nc}, {bare, nc}, {asking, nc}, {bare, nc}, {"-", nc}, {bare, "-"}});
    EXPECT_EQ(host.out, std::string("302\n0\n0\n0\n300\n200\n1.5") + kBanner);
    EXPECT_EQ(folder.read("1.apt"), goTo(1.5, 0, 0));
    EXPECT_EQ(folder.read("2.apt"),
              "MODE/INCR,ON\nSPINDL/    5.0000,RPM,CLW\nFEDRAT/    6.0000,MMPM\n"
              "TLAXIS/    0.00000,    0.00000,    1.00000\n" +
                  goTo(1500, 0, 0));
    EXPECT_EQ(folder.read("3.apt"), goTo(1.5, 0, 0));
}

TEST(Library, IgnoresTheLocaleOfItsHost) {
    // The second one knows the byte 0xC4 as a letter.
    for (const char* const charmap : {"UTF-8", "ISO-8859-1"}) {
        const TempFolder folder;
        const std::string locale = std::string("de_DE.") + charmap;
        const ProgramResult made =
            runProgram({"localedef", "-i", "de_DE", "-f", charmap, folder.path(locale)});
        if (made.status == 127) {
            GTEST_SKIP() << "localedef is not installed";
        }
        auto inputs = examples();
        inputs.emplace_back(folder.write("a.pp", mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"},
                                                       {"MFG_INIT_SPINDLE", "0;0.6;0.8"},
                                                       {"ZX_LATHE_X_ASSIGNMENT", "-2.5"}})),
                            folder.write("a.nc", "G1 X2.5\n\xC4X5.0\n"));
        const ProgramResult host = runHost(folder, locale, inputs);
        EXPECT_EQ(host.err, "");
        EXPECT_EQ(host.out, std::string("0\n0\n0\n0\n0\n0\n0\n1,5") + kBanner);
        expectExamples(folder);
        EXPECT_EQ(folder.read("6.apt"),
                  "TLAXIS/    0.00000,    0.60000,    0.80000\n" + goTo(-1, 0, 0) + goTo(-2, 0, 0));
    }
}

TEST(Library, ExportsItsTwoEntriesOnly) {
    const ProgramResult nm = runProgram({"nm", "-D", "--defined-only", QUILLMARK_LIBRARY});
    ASSERT_EQ(nm.status, 0) << nm.err;
    std::istringstream lines(nm.out);
    std::vector<std::string> names;
    for (std::string address, kind, name; lines >> address >> kind >> name;) {
        EXPECT_EQ(kind, "T") << name;
        names.push_back(name);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAre("dllentry", "gtvers")) << nm.out;
}

} // namespace
