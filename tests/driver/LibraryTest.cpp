#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const char* const kBanner = " 54 V1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23\n";

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

TEST(Library, ConvertsDialectsInTurnWhateverTheLocaleOfItsHost) {
    // The third one knows the byte 0xC4 as a letter.
    for (const std::string charmap : {"", "UTF-8", "ISO-8859-1"}) {
        const TempFolder folder;
        const std::string locale = charmap.empty() ? "C" : "de_DE." + charmap;
        if (!charmap.empty() &&
            runProgram({"localedef", "-i", "de_DE", "-f", charmap, folder.path(locale)}).status ==
                127) {
            GTEST_SKIP() << "localedef is not installed";
        }
        Inputs inputs = {{folder.write("a.pp", mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"},
                                                     {"MFG_INIT_SPINDLE", "0;0.6;0.8"},
                                                     {"ZX_LATHE_X_ASSIGNMENT", "-2.5"}})),
                          folder.write("a.nc", "G1 X2.5\n\xC4X5.0\n")}};
        for (const std::string name : {"milling", "lathe", "decimal-comma", "milling"}) {
            const std::string example = QUILLMARK_EXAMPLES "/" + name;
            inputs.emplace_back(example + "/dialect.pp", example + "/part.nc");
        }
        const ProgramResult host = runHost(folder, locale, inputs);
        EXPECT_EQ(host.err, "");
        EXPECT_EQ(host.out,
                  "0\n0\n0\n0\n0\n" + std::string(charmap.empty() ? "1.5" : "1,5") + kBanner);
        EXPECT_EQ(folder.read("0.apt"),
                  "TLAXIS/    0.00000,    0.60000,    0.80000\n" + goTo(-1, 0, 0) + goTo(-2, 0, 0));
        for (std::size_t i = 1; i < inputs.size(); ++i) {
            const auto example = std::filesystem::path(inputs[i].first).parent_path();
            EXPECT_EQ(folder.read(std::to_string(i) + ".apt"), readFile(example / "part.apt"));
            EXPECT_EQ(folder.read(std::to_string(i) + ".log"), readFile(example / "part.log"));
        }
    }
}

TEST(Library, ExportsItsTwoEntriesOnly) {
    const ProgramResult nm = runProgram({"nm", "-Dj", "--defined-only", QUILLMARK_LIBRARY});
    EXPECT_EQ(nm.out, "dllentry\ngtvers\n") << nm.err;
}

} // namespace
