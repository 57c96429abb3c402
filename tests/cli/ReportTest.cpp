#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

using testing::HasSubstr;

namespace {

using Arguments = std::vector<std::string>;

// Runs the program on a good dialect with the given options behind the usual ones.
class Report : public testing::Test {
protected:
    Report() {
        m_folder.write("a.pp", mill());
        m_folder.write("good.nc", "G1 X1\n");
        m_folder.write("bad.nc", "%\nG1 X1\nG4 X2.\nG54 X3 R-5\n");
        m_folder.write("arc.nc", "G4\nG1 X1\nG18 G2 X5 R5\nX9\n");
    }

    [[nodiscard]] ProgramResult run(const std::string& nc, const Arguments& options = {}) const {
        Arguments arguments = {QUILLMARK_PROGRAM, "-p", "a.pp", "-nc", nc, "-of", "o"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runProgram(arguments, {m_folder.path(), "", {}});
    }

    TempFolder m_folder;
    const std::string kBadText =
        "quillmark: unrecognised text in 3 of 4 blocks\n"
        "     count  first line  word\n"
        "         1           1  %\n"
        "         1           3  G4\n"
        "         1           4  G54\n"
        "         1           4  R-5\n"
        "quillmark: warning: line 3: G4 not recognised, in a block that moves the tool: G4 X2.\n"
        "quillmark: warning: line 4: G54 not recognised, in a block that moves the tool: "
        "G54 X3 R-5\n";
};

TEST_F(Report, TellsWhatWasNotUnderstood) {
    const std::string count = "quillmark: unrecognised text in 3 of 4 blocks\n";
    struct Row {
        std::string nc;
        Arguments options;
        int status;
        std::string err;
    };
    const Row rows[] = {
        {"good.nc", {}, 0, ""},
        {"good.nc", {"--strict"}, 0, ""},
        {"bad.nc", {}, 0, kBadText},
        {"bad.nc", {"--quiet"}, 0, ""},
        {"bad.nc", {"--strict"}, 3, kBadText},
        {"bad.nc", {"--quiet", "--strict"}, 3, count},
        {"bad.nc", {"--unknown", "--Quiet", "-q"}, 0, kBadText}, // skipped like all the unknown
        {"x.nc",
         {"--strict", "--quiet"},
         200,
         "quillmark: error 200: cannot read NC file 'x.nc': No such file or directory\n"},
    };
    for (const Row& row : rows) {
        const ProgramResult result = run(row.nc, row.options);
        EXPECT_EQ(result.status, row.status);
        EXPECT_EQ(result.err, row.err);
        EXPECT_EQ(result.out, "");
        if (row.nc == "bad.nc") {
            EXPECT_EQ(m_folder.read("o"), goTo(1, 0, 0) + goTo(2, 0, 0) + goTo(3, 0, 0));
        }
    }
}

TEST_F(Report, ShowsTheMostFrequentWordsAndFirstWarnings) {
    std::string nc = "G1 X1\n\x1B[2J\n";
    for (int i = 1; i <= 25; ++i) {
        nc += "G4 X1 E" + std::to_string(i) + "\n";
    }
    m_folder.write("long.nc", nc + "(\n" + std::string(300, ' ') + "M8\nG2\n");
    const std::string err = run("long.nc").err;
    EXPECT_THAT(err, testing::StartsWith("quillmark: unrecognised text in 26 of 31 blocks\n"
                                         "     count  first line  word\n"
                                         "        25           3  G4\n"
                                         "         1           2  \\x1B[2J\n"
                                         "         1           3  E1\n"));
    EXPECT_THAT(err, HasSubstr("  E18\n"
                               "quillmark: and 7 more different words; --report FILE has more of "
                               "them\n"
                               "quillmark: arcs of radius 0: 1, the first in line 30; nothing was "
                               "written for them\n"
                               "quillmark: blocks longer than 255 characters: 1, the first in line "
                               "29; they were read in pieces, a number can be cut in two\n"
                               "quillmark: comments without an end: 1, the first in line 28; the "
                               "rest of the block was not read\n"
                               "quillmark: warning: line 3: G4 not "));
    EXPECT_THAT(err, HasSubstr("line 22: G4"));
    EXPECT_THAT(err, testing::EndsWith("quillmark: and 6 more warnings; --report FILE has more of "
                                       "them\n"));
}

TEST_F(Report, SummaryIsPrintedAlways) {
    const std::string figures =
        "quillmark: blocks read: 1\n"
        "quillmark: statements: rapid moves 0, feed moves 1, arcs 0, tool axes 0, feed rates 0, "
        "spindle 0, coolant 0, tools 0, modes 0, program ends 0\n"
        "quillmark: seconds: ";
    EXPECT_THAT(run("good.nc", {"--summary"}).err, testing::StartsWith(figures));
    EXPECT_THAT(run("bad.nc", {"--summary"}).err,
                testing::StartsWith(kBadText + "quillmark: blocks read: 4\n"));
    EXPECT_THAT(run("x.nc", {"--summary"}).err,
                testing::AllOf(testing::StartsWith("quillmark: blocks read: 0\n"),
                               HasSubstr("\nquillmark: error 200: ")));
}

TEST_F(Report, OptionsAreTakenOutUnlessAValueIsExpected) {
    m_folder.write("--quiet", mill());
    struct Row {
        Arguments arguments;
        int status;
        std::string err;
    };
    const Row rows[] = {
        // The value of an option of the conversion, and of the report.
        {{"-p", "--quiet", "-nc", "bad.nc", "-of", "o"}, 0, kBadText},
        {{"-p", "a.pp", "-nc", "good.nc", "-of", "--strict"}, 0, ""},
        {{"-p", "a.pp", "-nc", "bad.nc", "-of", "o", "--report", "-p", "--quiet"}, 0, ""},
        // In front of and between the others.
        {{"--quiet", "-p", "a.pp", "--strict", "-nc", "good.nc", "--report", "r", "-of", "o"},
         0,
         ""},
        {{"--report"}, 2, "quillmark: --report needs the name of a file as its own argument\n"},
        {{"--report", ""}, 2, "quillmark: --report needs the name of a file as its own argument\n"},
        {{"--report=r"}, 2, "quillmark: --report needs the name of a file as its own argument\n"},
        {{"--strict=1"}, 2, "quillmark: --strict takes no value\n"},
        {{"--summary=1"}, 2, "quillmark: --summary takes no value\n"},
        {{"--quiet="}, 2, "quillmark: --quiet takes no value\n"},
        {{"--quiet", "--summary"}, 2, "quillmark: --summary and --quiet exclude each other\n"},
    };
    for (const Row& row : rows) {
        Arguments arguments = row.arguments;
        arguments.insert(arguments.begin(), QUILLMARK_PROGRAM);
        const ProgramResult result = runProgram(arguments, {m_folder.path(), "", {}});
        EXPECT_EQ(result.status, row.status) << testing::PrintToString(row.arguments);
        EXPECT_EQ(result.err, row.err);
    }
    EXPECT_EQ(m_folder.read("--strict"), goTo(1, 0, 0));
    EXPECT_THAT(m_folder.read("-p"), testing::StartsWith("{\n"));
    // An incomplete command line is the conversion's to report, with the usage text alone.
    EXPECT_THAT(runProgram({QUILLMARK_PROGRAM, "--summary", "--strict"}).err,
                testing::AllOf(testing::StartsWith("quillmark -p "),
                               testing::EndsWith("stderr will be used.\n")));
}

TEST_F(Report, JsonHoldsEverything) {
    m_folder.write("odd.nc", "G1 X1\nG54 \"\\\xE4\xC3\xA4\xED\xA0\x80\x01\nG3\n");
    EXPECT_EQ(run("odd.nc", {"--report", "r", "--strict", "--quiet"}).status, 3);
    std::string json = m_folder.read("r");
    const std::size_t seconds = json.find("\"seconds\": ") + 11;
    ASSERT_LT(seconds, json.size());
    json.replace(seconds, json.find(',', seconds) - seconds, "S");
    // Valid UTF-8 stays; other bytes become the Latin-1 characters of their codes.
    const std::string odd = "\\\"\\\\\\u00E4\xC3\xA4\\u00ED\\u00A0\\u0080\\u0001";
    EXPECT_EQ(
        std::regex_replace(json, std::regex("\n *"), ""),
        R"({"quillmark": ")" QUILLMARK_VERSION R"(","files": {"parameter": "a.pp","nc": "odd.nc",)"
        R"("output": "o","log": null},"return_code": 0,"meaning": null,"exit_status": 3,)"
        R"("process_end": null,"seconds": S,"lines": 3,"blocks": 3,)"
        R"("statements": {"rapid_moves": 0,"feed_moves": 1,"arcs": 0,"tool_axes": 0,)"
        R"("feed_rates": 0,"spindle": 0,"coolant": 0,"tools": 0,"modes": 0,"program_ends": 0},)"
        R"("unrecognised": {"blocks": 1,"word_count": 2,"word_count_not_listed": 0,"words": [)"
        R"({"word": ")" +
            odd +
            R"(","count": 1,"first_line": 2},)"
            R"({"word": "G54","count": 1,"first_line": 2}],)"
            R"("first_blocks": [{"line": 2,"rest": "G54 )" +
            odd +
            R"("}]},)"
            R"("dropped_arcs": {"count": 1,"first_line": 3},)"
            R"("long_blocks": {"count": 0,"first_line": null},)"
            R"("nul_bytes": {"count": 0,"first_line": null},)"
            R"("unterminated_comments": {"count": 0,"first_line": null},"warning_count": 1,)"
            R"("warnings": [{"kind": "arc_without_centre","line": 3,"word": null,"block": "G3"}]})");
}

TEST_F(Report, IsWrittenAfterFailuresAndBeforeTheProcessEnds) {
    EXPECT_EQ(run("x.nc", {"--report", "r"}).status, 200);
    EXPECT_THAT(m_folder.read("r"),
                testing::AllOf(HasSubstr("\"return_code\": 200,\n  \"meaning\": \"cannot read NC "
                                         "file\",\n  \"exit_status\": 200,\n"),
                               testing::EndsWith("\"warnings\": []\n}\n")));
    EXPECT_EQ(runProgram({QUILLMARK_PROGRAM, "--report", m_folder.path("r")}).status, 100);
    EXPECT_THAT(m_folder.read("r"), HasSubstr("\"return_code\": 100,"));

    const ProgramResult ended = run("arc.nc", {"--report", "r", "--strict"});
    EXPECT_EQ(ended.status, -SIGABRT);
    EXPECT_THAT(ended.err,
                testing::StartsWith(
                    "quillmark: unrecognised text in 1 of 3 blocks\n"
                    "     count  first line  word\n"
                    "         1           1  G4\n"
                    "quillmark: warning: line 3: arc without a centre word: G18 G2 X5 R5\n"
                    "quillmark: warning: line 3: G18 not recognised, in a block that moves the "
                    "tool: G18 G2 X5 R5\n"
                    "quillmark: stopped at block 3: G18 G2 X5 R5\n"
                    "quillmark: the output written so far stays in 'o'\n"
                    "quillmark: apt/"));
    const std::string json = m_folder.read("r");
    EXPECT_THAT(json, HasSubstr("\"return_code\": null,\n  \"meaning\": null,\n"
                                "  \"exit_status\": null,\n"
                                "  \"process_end\": {\n    \"assertion\": \"!gmIsZero(len)\",\n"
                                "    \"line\": 3,\n    \"block\": \"G18 G2 X5 R5\"\n  },\n"));
    EXPECT_THAT(json, testing::EndsWith("\"block\": \"G18 G2 X5 R5\"\n    }\n  ]\n}\n"));
    // The arc has a centre word, but its centre is its start all the same.
    m_folder.write("arc.nc", "G1 X1\nG2 X5 I0\n");
    EXPECT_THAT(
        run("arc.nc", {"--quiet"}).err,
        testing::StartsWith("quillmark: stopped at block 2: G2 X5 I0\n"
                            "quillmark: the output written so far stays in 'o'\nquillmark: apt/"));
    EXPECT_THAT(run("arc.nc").err, testing::StartsWith("quillmark: stopped at block 2: "));
}

TEST_F(Report, FileIsNoneOfTheOthers) {
    std::filesystem::create_symlink("bad.nc", m_folder.path("link"));
    std::filesystem::create_hard_link(m_folder.path("a.pp"), m_folder.path("hard"));
    std::filesystem::create_directory(m_folder.path("folder"));
    m_folder.write("o", "old output");
    m_folder.write("l", "old log");
    const std::string dialect = m_folder.read("a.pp");
    const std::string program = m_folder.read("bad.nc");
    struct Row {
        std::string report;
        Arguments options;
        std::string reason;
    };
    const Row rows[] = {
        {"a.pp", {}, "it is an input of this run"},
        {"link", {}, "it is an input of this run"},
        {"hard", {}, "it is an input of this run"},
        {"o", {}, "it is the output file as well"},
        {"./folder/../l", {"-l", "l"}, "it is the log file as well"},
        {"new", {"-of", "./new"}, "it is the output file as well"}, // neither exists yet
        {"new", {"-nc", "new"}, "it is an input of this run"},
        {"folder", {}, "Is a directory"},
        {"no/r", {}, "No such file or directory"},
    };
    for (const Row& row : rows) {
        Arguments options = row.options;
        options.insert(options.end(), {"--report", row.report, "--quiet"});
        const ProgramResult result = run("bad.nc", options);
        EXPECT_EQ(result.status, 2) << row.report;
        EXPECT_EQ(result.err,
                  "quillmark: cannot write report file '" + row.report + "': " + row.reason + "\n");
        EXPECT_EQ(m_folder.read("a.pp"), dialect);
        EXPECT_EQ(m_folder.read("bad.nc"), program);
        EXPECT_EQ(m_folder.read("o") + m_folder.read("l"), "old outputold log");
        EXPECT_EQ(m_folder.read("new"), "(missing)");
    }
    // A full disk shows at the end: the conversion is complete, its own failure would outrank it.
    const Arguments full = {"--report", "/dev/full", "--strict", "--quiet"};
    EXPECT_EQ(run("good.nc", full).status, 2);
    EXPECT_EQ(m_folder.read("o"), goTo(1, 0, 0));
    EXPECT_EQ(run("x.nc", full).status, 200);
    EXPECT_THAT(run("good.nc", {"--report", "/dev/stdout"}).out, testing::StartsWith("{\n"));
    // What an older report holds goes, however long it was.
    m_folder.write("r", std::string(100'000, '#'));
    EXPECT_EQ(run("good.nc", {"--report", "r"}).status, 0);
    EXPECT_THAT(m_folder.read("r"),
                testing::AllOf(testing::StartsWith("{\n"), testing::EndsWith("\n}\n")));
}

} // namespace
