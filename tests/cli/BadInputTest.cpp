#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <csignal>
#include <gmock/gmock.h>
#include <regex>

namespace {

class BadInput : public ProgramTest {};

TEST_F(BadInput, IsReportedOnOneLineAndLeavesTheInputsAlone) {
    m_folder.write("empty", "");
    ASSERT_EQ(shell("ln -s a.nc link.nc; ln a.pp hard.pp; ln -s new link.new").status, 0);
    // Options behind good files, the code, and the message without its beginning.
    const std::string table =
        R"(-p x.pp|301|cannot open parameter file 'x.pp': No such file or directory
-p empty|302|unexpected end of parameter file 'empty': the file is empty, or its last key lacks the lines that belong to it
-p /dev/null|302|unexpected end of parameter file '/dev/null': the file is empty, or its last key lacks the lines that belong to it
-p /dev/zero|304|cannot make a temporary copy of parameter file '/dev/zero': it has more than 64 MiB
-p .|301|cannot open parameter file '.': Is a directory
-p made -l made|301|cannot open parameter file 'made': No such file or directory
-nc made -of made -l l|200|cannot read NC file 'made': No such file or directory
-p x.pp -nc x.nc -l a.nc|301|cannot open parameter file 'x.pp': No such file or directory
-p a.nc -nc a.pp -l l|306|cannot convert parameter file of the old format 'a.nc': it looks like an NC program, and 'a.pp' like a parameter file: -p and -nc seem to be exchanged
-p a.nc -l l|306|cannot convert parameter file of the old format 'a.nc': it looks like an NC program
-p 'a	b'|301|cannot open parameter file 'a\x09b': No such file or directory
-nc . -l l|200|cannot read NC file '.': Is a directory
-nc x.nc -l l|200|cannot read NC file 'x.nc': No such file or directory
-p x.pp -l l -ot TOOLPATH|301|cannot open parameter file 'x.pp': No such file or directory
-l l -ot TOOLPATH|201|the requested kind of output is not APT: leave out -ot or write -ot APT
-of no/o -l no/l -ot TOOLPATH|203|cannot write log file 'no/l': No such file or directory
-of /dev/full -l /dev/full|202|cannot write output file '/dev/full': No space left on device
-of a.nc -l l|202|cannot write output file 'a.nc': it is an input of this run
-of hard.pp|202|cannot write output file 'hard.pp': it is an input of this run
-l /dev/full|203|cannot write log file '/dev/full': No space left on device
-l a.pp|203|cannot write log file 'a.pp': it is an input of this run
--report link.nc|2|cannot write report file 'link.nc': it is an input of this run
-l l --report ./l|2|cannot write report file './l': it is the log file as well
-of ./new --report new|2|cannot write report file 'new': it is the output file as well
--report|2|--report needs the name of a file as its own argument
--report ''|2|--report needs the name of a file as its own argument
--subprograms|2|--subprograms needs the name of a folder as its own argument
--subprograms=x --subprograms y|2|--subprograms needs the name of a folder as its own argument
--quiet= --summary|2|--quiet takes no value
--quiet --summary|2|--summary and --quiet exclude each other
-of new -l new|203|cannot write log file 'new': it is the output file as well
-of link.new -l new|203|cannot write log file 'new': it is the output file as well)";
    for (const auto& [options, code, message] : rowsOf(table)) {
        m_folder.write("o", "old");
        m_folder.write("l", "old");
        const ProgramResult result = run(options, "##### Header\n");
        const std::string error = code == "2" ? "" : "error " + code + ": ";
        EXPECT_EQ(result.status, std::stoi(code) & 0xFF) << options;
        EXPECT_EQ(result.out, "") << options;
        EXPECT_EQ(result.err, "quillmark: " + error + message + "\n") << options;
        EXPECT_EQ(read("a.pp"), kDialect) << options;
        EXPECT_EQ(read("a.nc"), kProgram) << options;
        // What is refused truncates and creates nothing, nor does an input that cannot be read.
        if (code == "2" || code == "200" || code == "301" || code == "304" || code == "306" ||
            message.find(": it is an input") != std::string::npos) {
            EXPECT_EQ(read("o") + read("l"), "oldold") << options;
            EXPECT_EQ(read("new") + read("made"), "(missing)(missing)") << options;
        }
        // Other failures leave what was written before.
        if (code == "201") {
            EXPECT_EQ(read("o") + read("l"), kLogHead) << options;
        }
    }
}

TEST_F(BadInput, KeepsTheLastResultsWhereNoConversionBegins) {
    const std::string table = R"(##### Header~LINEAR_INTERPOLATION|302
##### Header~REV_EXECUTION_ORDER~LAST|308
##### Header~RAPID~FMAX|345)";
    for (const auto& [dialect, code, none] : rowsOf(table)) {
        m_folder.write("a.pp", std::regex_replace(dialect + "\n", std::regex("~"), "\n"));
        m_folder.write("o", "old");
        m_folder.write("l", "old");
        const ProgramResult result = run("-l l");
        EXPECT_EQ(result.status, std::stoi(code) & 0xFF) << dialect;
        EXPECT_THAT(result.err, testing::HasSubstr("error " + code)) << dialect;
        EXPECT_EQ(read("o") + read("l"), "oldold") << dialect;
    }
}

TEST_F(BadInput, EndsTheProcessAtAnArcWithoutADirection) {
    m_folder.write("a.nc", "G1 X1\n\n  N30 G2 X5 (no centre)\nX9\n");
    const ProgramResult result = run("-l l --report r");
    EXPECT_EQ(result.status, -SIGABRT);
    EXPECT_THAT(result.err,
                testing::MatchesRegex(
                    R"(quillmark: warning: line 3: arc without a centre word: N30 G2 X5 .no centre.
quillmark: this arc has no direction, since its centre is its start: 3: N30 G2 X5 .no centre.
quillmark: likely cause: it has no word of a centre or a radius
quillmark: stopped at block 3: N30 G2 X5 .no centre.
quillmark: the output written so far stays in 'o'
quillmark: apt/AResCircularMovement.cpp:.*Assertion `!gmIsZero.len.' failed.
)"));
    EXPECT_EQ(read("o"), goTo(1, 0, 0));
    EXPECT_EQ(read("l"), std::string(kLogHead) + "\nG1 X1\n" + goTo(1, 0, 0) +
                             "\n\n\nN30 G2 X5 (no centre)\n");
    EXPECT_THAT(read("r"), testing::HasSubstr(R"-("return_code": null,
  "meaning": null,
  "exit_status": null,
  "process_end": {
    "assertion": "!gmIsZero(len)",
    "line": 3,
    "block": "N30 G2 X5 (no centre)"
  },
)-"));
}

TEST_F(BadInput, NamesTheLikelyCausesOfAnArcWithoutADirection) {
    const std::regex otherCentres("(2ND|3RD)_CIRCLE_CENTER_COORDINATE\n.\n1\nM5.3\n");
    m_folder.write("flat.pp", std::regex_replace(kDialect, otherCentres, ""));
    const std::string table =
        R"(G2 X5 R5|it is given by its radius (R, CR=), which the dialect does not read|2
X2 CR=7~G2 X5 CR=5|it is given by its radius (R, CR=), which the dialect does not read|3
G2 X5 J2 K3|its centre word (I, J, K) is one that the dialect lacks|2
G18~G2 X5 I0|it lies in another plane, whose code the dialect lacks|3
G19 G2 Y5 J0 K2 R5|it is given by its radius (R, CR=), which the dialect does not read; or its centre word (I, J, K) is one that the dialect lacks; or it lies in another plane, whose code the dialect lacks|2
X2 R5~X3 J5~G2 X5 I0|its centre words name its start, as those of another plane do|4
X2 R5~X3 J5~G2 X5|it has no word of a centre or a radius|4)";
    for (const auto& [nc, causes, line] : rowsOf(table)) {
        m_folder.write("a.nc", "G1 X1\n" + std::regex_replace(nc, std::regex("~"), "\n") + "\n");
        const ProgramResult result = run("-p flat.pp");
        EXPECT_EQ(result.status, -SIGABRT) << nc;
        EXPECT_THAT(result.err, testing::HasSubstr("\nquillmark: likely cause: " + causes +
                                                   "\nquillmark: stopped at block " + line + ": "))
            << nc;
    }
}

} // namespace
