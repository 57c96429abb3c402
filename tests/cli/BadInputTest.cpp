#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Runs the program in a folder with a good dialect and program, and some bad things beside them.
class BadInput : public testing::Test {
protected:
    BadInput() {
        m_folder.write("a.pp", kDialect);
        m_folder.write("a.nc", kProgram);
        m_folder.write("empty", "");
        m_folder.write("short.pp", std::string(kHeader) + "RAPID\n");
        m_folder.write("old.pp", "*MITTANF\n");
        m_folder.write("fmax.pp", std::string(kHeader) + "RAPID\nFMAX\n");
        std::filesystem::create_directory(m_folder.path("folder"));
        std::filesystem::create_symlink("a.nc", m_folder.path("link.nc"));
        std::filesystem::create_hard_link(m_folder.path("a.pp"), m_folder.path("hard.pp"));
        std::filesystem::create_symlink("new", m_folder.path("link.new"));
    }

    // Arguments in the order parameter file, NC file, output, log (empty for none), others.
    [[nodiscard]] ProgramResult run(const std::vector<std::string>& files,
                                    const std::string& input = "") const {
        std::vector<std::string> arguments = {QUILLMARK_PROGRAM};
        const char* const options[] = {"-p", "-nc", "-of", "-l", "-ot"};
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (!files[i].empty()) {
                arguments.insert(arguments.end(), {options[i], files[i]});
            }
        }
        return runProgram(arguments, {m_folder.path(), input, {}});
    }

    const std::string kDialect = mill();
    const std::string kProgram = "G1 X1\n";
    TempFolder m_folder;
};

TEST_F(BadInput, IsReportedOnOneLineAndLeavesTheInputsAlone) {
    const std::string missing = "No such file or directory";
    const std::string noOutput = "quillmark: error 202: cannot write output file ";
    const std::string noLog = "quillmark: error 203: cannot write log file ";
    const std::string noInput = "quillmark: error 200: cannot read NC file ";
    const std::string noDialect = "quillmark: error 301: cannot open parameter file ";
    const std::string ends = "quillmark: error 302: unexpected end of parameter file ";
    const std::string lacks =
        ": the file is empty, or its last key lacks the lines that belong to it";
    const std::string input = ": it is an input of this run";
    struct Row {
        std::vector<std::string> files;
        int code;
        std::string message;
    };
    const Row rows[] = {
        {{"x.pp", "a.nc", "o"}, 301, noDialect + "'x.pp': " + missing},
        {{"folder", "a.nc", "o"}, 301, noDialect + "'folder': Is a directory"},
        {{"", "a.nc", "o"}, 100, ""},
        {{"empty", "a.nc", "o", "l"}, 302, ends + "'empty'" + lacks},
        {{"short.pp", "a.nc", "o"}, 302, ends + "'short.pp'" + lacks},
        {{"/dev/stdin", "a.nc", "o"},
         305,
         "quillmark: error 305: cannot rewind parameter file '/dev/stdin': Illegal seek"},
        {{"old.pp", "a.nc", "o"},
         306,
         "line <*MITTANF> can't be decoded\n"
         "quillmark: error 306: cannot convert parameter file of the old format 'old.pp': the file "
         "is damaged, or it is no parameter file: the first line of a current one contains "
         "\"Header\""},
        {{"fmax.pp", "a.nc", "o"},
         345,
         "quillmark: error 345: unsupported dialect in parameter file 'fmax.pp': programs in "
         "conversational format cannot be converted"},
        {{"a.pp", "x.nc", "o"}, 200, noInput + "'x.nc': " + missing},
        {{"a.pp", "folder", "o"}, 200, noInput + "'folder': Is a directory"},
        {{"a.pp", "empty", "o", "l"}, 0, ""},
        {{"a.pp", "a.nc", "o", "", "TOOLPATH"},
         201,
         "quillmark: error 201: the requested kind of output is not APT: leave out -ot or write "
         "-ot APT"},
        {{"a.pp", "a.nc", "no/o", "", "TOOLPATH"},
         201,
         "quillmark: error 201: the requested kind of output is not APT: leave out -ot or write "
         "-ot APT"},
        {{"a.pp", "a.nc", "no/o", "no/l", "TOOLPATH"}, 203, noLog + "'no/l': " + missing},
        {{"a.pp", "a.nc", "no/o"}, 202, noOutput + "'no/o': " + missing},
        {{"a.pp", "a.nc", "folder"}, 202, noOutput + "'folder': Is a directory"},
        {{"a.pp", "a.nc", "/dev/full"}, 202, noOutput + "'/dev/full': No space left on device"},
        {{"a.pp", "a.nc", "a.nc"}, 202, noOutput + "'a.nc'" + input},
        {{"a.pp", "a.nc", "./folder/../a.pp"}, 202, noOutput + "'./folder/../a.pp'" + input},
        {{"a.pp", "a.nc", "link.nc"}, 202, noOutput + "'link.nc'" + input},
        {{"a.pp", "link.nc", "a.nc"}, 202, noOutput + "'a.nc'" + input},
        {{"a.pp", "a.nc", "hard.pp"}, 202, noOutput + "'hard.pp'" + input},
        {{"a.pp", "a.nc", "o", "no/l"}, 203, noLog + "'no/l': " + missing},
        {{"a.pp", "a.nc", "no/o", "no/l"}, 203, noLog + "'no/l': " + missing},
        {{"a.pp", "a.nc", "o", "folder"}, 203, noLog + "'folder': Is a directory"},
        {{"a.pp", "a.nc", "o", "/dev/full"}, 203, noLog + "'/dev/full': No space left on device"},
        {{"a.pp", "a.nc", "/dev/full", "/dev/full"},
         202,
         noOutput + "'/dev/full': No space left on device"},
        {{"a.pp", "a.nc", "o", "a.pp"}, 203, noLog + "'a.pp'" + input},
        {{"a.pp", "a.nc", "o", "link.nc"}, 203, noLog + "'link.nc'" + input},
        {{"a.pp", "a.nc", "o", "hard.pp"}, 203, noLog + "'hard.pp'" + input},
        {{"a.pp", "a.nc", "new", "new"}, 203, noLog + "'new': it is the output file as well"},
        {{"a.pp", "a.nc", "link.new", "new"}, 203, noLog + "'new': it is the output file as well"},
    };
    for (const Row& row : rows) {
        const ProgramResult result = run(row.files, "##### Header\n");
        const std::string what = testing::PrintToString(row.files);
        EXPECT_EQ(result.status, row.code & 0xFF) << what;
        EXPECT_EQ(result.out, "") << what;
        if (row.code != 100) {
            EXPECT_EQ(result.err, row.message.empty() ? "" : row.message + "\n") << what;
        }
        EXPECT_EQ(m_folder.read("a.pp"), kDialect) << what;
        EXPECT_EQ(m_folder.read("a.nc"), kProgram) << what;
    }
}

TEST_F(BadInput, LeavesWhatWasWrittenBeforeTheFailure) {
    EXPECT_EQ(run({"a.pp", "x.nc", "o", "l"}).status, 200);
    EXPECT_EQ(m_folder.read("o"), "");
    EXPECT_EQ(m_folder.read("l"), kLogHead);
    // The kind of output is refused before any input is read.
    EXPECT_EQ(run({"x.pp", "x.nc", "o2", "l2", "TOOLPATH"}).status, 201);
    EXPECT_EQ(m_folder.read("o2"), "");
    EXPECT_EQ(m_folder.read("l2"), kLogHead);
    // A refused run truncates and creates nothing.
    m_folder.write("o3", "kept");
    EXPECT_EQ(run({"a.pp", "a.nc", "o3", "a.pp"}).status, 203);
    EXPECT_EQ(m_folder.read("o3"), "kept");
    EXPECT_EQ(run({"a.pp", "a.nc", "a.nc", "l3"}).status, 202);
    EXPECT_EQ(m_folder.read("l3"), "(missing)");
}

TEST_F(BadInput, ReportsAFileWithoutReadPermission) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "root reads every file";
    }
    std::filesystem::permissions(m_folder.path("a.nc"), std::filesystem::perms::none);
    const ProgramResult result = run({"a.pp", "a.nc", "o"});
    EXPECT_EQ(result.status, 200);
    EXPECT_EQ(result.err, "quillmark: error 200: cannot read NC file 'a.nc': Permission denied\n");
}

TEST_F(BadInput, EndsTheProcessAtAnArcWithoutADirection) {
    m_folder.write("a.nc", "G1 X1\n\n  N30 G2 X5 (no centre)\nX9\n");
    const ProgramResult result = run({"a.pp", "a.nc", "o", "l"});
    EXPECT_EQ(result.status, -SIGABRT);
    EXPECT_THAT(result.err,
                testing::StartsWith("quillmark: warning: line 3: arc without a centre word: "
                                    "N30 G2 X5 (no centre)\n"
                                    "quillmark: stopped at block 3: N30 G2 X5 (no centre)\n"
                                    "quillmark: the output written so far stays in 'o'\n"
                                    "quillmark: apt/AResCircularMovement.cpp:"));
    EXPECT_THAT(result.err, testing::EndsWith("Assertion `!gmIsZero(len)' failed.\n"));
    EXPECT_EQ(m_folder.read("o"), goTo(1, 0, 0));
    EXPECT_EQ(m_folder.read("l"), std::string(kLogHead) + "\nG1 X1\n" + goTo(1, 0, 0) +
                                      "\n\n\nN30 G2 X5 (no centre)\n");
}

} // namespace
