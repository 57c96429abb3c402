#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const char* const kUsage =
    "quillmark -p paramfile -nc ncfile -of outputfile [-l logfile]\n"
    "  paramfile   parameter file of the postprocessor defining the nc-type.\n"
    "  ncfile      nc code stored in a file to be imported.\n"
    "  outputfile  file in which the output will be written.\n"
    "  logfile     file in which the error messages in case of problems \n"
    "              will be written. This parameter is optional. If it's not\n"
    "              given stderr will be used.\n";

TEST(Program, WorksInAPipeline) {
    const TempFolder folder;
    folder.write("dialect.pp", mill());
    const ProgramResult run = runProgram(
        {QUILLMARK_PROGRAM, "-p", "dialect.pp", "-nc", "/dev/stdin", "-of", "/dev/stdout"},
        {folder.path(), "G1 X1\nX2", {}});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, goTo(1, 0, 0) + goTo(2, 0, 0));
}

TEST(Program, AnswersQuestionsAboutItself) {
    const ProgramResult version = runProgram({QUILLMARK_PROGRAM, "--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "quillmark " QUILLMARK_VERSION
                           "\nV1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23\n");
    const ProgramResult help = runProgram({QUILLMARK_PROGRAM, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_THAT(help.out, testing::StartsWith(kUsage));
    for (const char* const spelling :
         {"-P", "-Nc", "-nC", "-NC", "-Of", "-oF", "-OF", "-L", "-ot", "-Ot", "-oT", "-OT",
          "--help", "--version", "--summary", "--quiet", "--strict", "--report FILE"}) {
        EXPECT_THAT(help.out, testing::HasSubstr(spelling));
    }
    for (const ReturnCode& row : returnCodes()) {
        EXPECT_THAT(help.out, testing::HasSubstr(std::to_string(row.code) + "  " + row.meaning));
    }
    // Questions stand alone; beside other arguments they are unknown ones.
    EXPECT_EQ(runProgram({QUILLMARK_PROGRAM, "--help", "--version"}).status, 100);
}

TEST(Program, PrintsTheUsageTextAloneForAnIncompleteCommandLine) {
    const std::vector<std::vector<std::string>> rows = {
        {},
        {"-p", "a", "-nc", "b"},
        {"-p", "a", "-nc", "b", "-of"},
        {"-p", "-nc", "-of", "x"},
        {"p", "a", "nc", "b", "of", "c"},
    };
    for (std::vector<std::string> arguments : rows) {
        arguments.insert(arguments.begin(), QUILLMARK_PROGRAM);
        const ProgramResult run = runProgram(arguments);
        EXPECT_EQ(run.status, 100);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, kUsage);
    }
}

TEST(CommandLine, KnowsEverySpelling) {
    struct Row {
        std::vector<const char*> arguments;
        std::string read; // parameter file, NC file, output, log, kind
        int code;
    };
    const Row rows[] = {
        {{"-p", "a", "-nc", "b", "-of", "c"}, "a b c - 1", 0},
        {{"-P", "a", "-Nc", "b", "-Of", "c", "-L", "d"}, "a b c d 1", 0},
        {{"-l", "d", "-oF", "c", "-nC", "b", "-p", "a"}, "a b c d 1", 0},
        {{"-NC", "b", "-OF", "c", "-p", "a", "-ot", "TOOLPATH"}, "a b c - 2", 0},
        {{"-nc", "b", "-of", "c", "-p", "a", "-Ot", "toolpath"}, "a b c - 1", 0},
        {{"-nc", "b", "-of", "c", "-p", "a", "-oT", "TOOLPATH", "-OT", "APT"}, "a b c - 1", 0},
        {{"-nc", "b", "-of", "c", "-p", "a", "-ot", "TOOLPATH", "-ot", "x"}, "a b c - 2", 0},
        {{"-nc", "b", "-of", "c", "-p", "a", "-ot"}, "a b c - 1", 0},
        {{"-nc", "b", "-of", "c", "-p", "a", "-l"}, "a b c - 1", 0},
        {{"-p", "x", "-x", "-p", "a", "stray", "-nc", "b", "-of", "c"}, "a b c - 1", 0},
        {{"-p", "-nc", "-nc", "-p", "-of", "-of"}, "-nc -p -of - 1", 0}, // values are taken as is
        {{"-nc", "b", "-of", "c", "-p", "a", "-p"}, "- b c - 1", 100},
        {{"-PP", "a", "-Lc", "b", "-nc", "b", "-of", "c"}, "- b c - 1", 100},
        {{}, "- - - - 1", 100},
    };
    const Controller controller;
    const auto shown = [](const char* name) { return std::string(name == nullptr ? "-" : name); };
    for (const Row& row : rows) {
        std::vector<char*> argv = {const_cast<char*>("quillmark")};
        for (const char* const argument : row.arguments) {
            argv.push_back(const_cast<char*>(argument));
        }
        argv.push_back(nullptr);
        char* names[4] = {};
        eOutputType type = eOutputNone;
        EXPECT_EQ(controller.ScanParameters(static_cast<int>(argv.size()) - 1, argv.data(),
                                            names[0], names[1], names[2], names[3], type),
                  row.code);
        EXPECT_EQ(shown(names[0]) + " " + shown(names[1]) + " " + shown(names[3]) + " " +
                      shown(names[2]) + " " + std::to_string(type),
                  row.read);
    }
}

} // namespace
