#include "include/quillmark.h"
#include "include/quillmark_messages.h"
#include "softCommon/CErrorUtil/ersetzeFehlerVariablen.h"
#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Library, CarriesNothingOverFromAFailedConversion) {
    const std::string nc = "G91 G1 X1500 S5 F6 M3 T7\n";
    const std::string bare = dialectOf({{"1ST_COORDINATE", "X\n1\nM5.3"}});
    // The first dialect asks for a tool axis and fails before any movement writes it.
    const std::string failing = mill({{"MFG_INIT_SPINDLE", "1;0;0"}, {"MFG_CLASS_NAME", "MILL"}});
    EXPECT_EQ(convert(failing + "COOLANT_ON", nc).code, 302);
    EXPECT_EQ(aptOf(bare, nc), goTo(1.5, 0, 0));
    EXPECT_EQ(aptOf(mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}}), nc),
              "MODE/INCR,ON\nSPINDL/    5.0000,RPM,CLW\nFEDRAT/    6.0000,MMPM\n"
              "TLAXIS/    0.00000,    0.00000,    1.00000\n" +
                  goTo(1500, 0, 0));
    EXPECT_EQ(aptOf(bare, nc), goTo(1.5, 0, 0));
}

TEST(Library, LeavesTheFailureOfAProgramOnTheErrorStack) {
    const std::string dialect = mill({{"REV_PROGRAM_LANGUAGE", "HASH"}});
    EXPECT_EQ(convert(dialect, "X1\n#1=SQRT[-1]\n").code, 502);
    EXPECT_EQ(convert(dialect, "X1\nGOTO 7\n").code, 503);
    EXPECT_EQ(aptOf(dialect, "X1\n"), "RAPID\n" + goTo(1, 0, 0));
    // Records of the interpreter have its numbers, others the return code.
    ASSERT_NE(softErrors, nullptr);
    EXPECT_EQ(softErrors->msgnr, 90518);
    EXPECT_STREQ(softErrors->c[0], "Evaluator::call");
    EXPECT_STREQ(softErrors->c[1], "SQRT of -1");
    ASSERT_NE(softErrors->next, nullptr);
    EXPECT_EQ(softErrors->next->msgnr, 503);
    EXPECT_STREQ(softErrors->next->c[1], "there is no block N7");
    EXPECT_EQ(softErrors->next->next, nullptr);
    freeErrorStack();
}

TEST(Library, IgnoresTheLocaleOfItsHost) {
    const std::string dialect = mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"},
                                      {"MFG_INIT_SPINDLE", "0;0.6;0.8"},
                                      {"ZX_LATHE_X_ASSIGNMENT", "-2.5"}});
    // The second one knows the byte 0xC4 as a letter.
    for (const std::string charmap : {"UTF-8", "ISO-8859-1"}) {
        const TempFolder folder;
        const std::string locale = "de_DE." + charmap;
        if (runProgram({"localedef", "-i", "de_DE", "-f", charmap, folder.path(locale)}).status ==
            127) {
            GTEST_SKIP() << "localedef is not installed";
        }
        setenv("LOCPATH", folder.path().c_str(), 1);
        EXPECT_NE(std::setlocale(LC_ALL, locale.c_str()), nullptr);
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
        const std::string apt = aptOf(dialect, "G1 X2.5\n\xC4X5.0\n");
        char message[80] = "&R01 &F01(.1)";
        CatSetErrPar(kMessageParDouble, 1234.5, kMessageParEnd);
        ersetzeFehlerVariablen(message, sizeof message);
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        EXPECT_EQ(apt,
                  "TLAXIS/    0.00000,    0.60000,    0.80000\n" + goTo(-1, 0, 0) + goTo(-2, 0, 0));
        EXPECT_STREQ(message, "1234.500000 1234.5");
    }
}

TEST(Library, ExportsItsTwoEntriesOnly) {
    const ProgramResult nm = runProgram({"nm", "-Dj", "--defined-only", QUILLMARK_LIBRARY});
    EXPECT_EQ(nm.out, "dllentry\ngtvers\n") << nm.err;
    std::string banner(64, '#');
    int length = 0;
    gtvers(banner.data(), &length);
    EXPECT_EQ(length, 54);
    EXPECT_EQ(banner, "V1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23##########");
}

} // namespace
