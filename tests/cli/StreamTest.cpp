#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Streams : public ProgramTest {};

TEST_F(Streams, StandForTheFilesOfARun) {
    const std::string log = std::string(kLogHead) + "\nG1 X1\n" + goTo(1, 0, 0);
    // The command, its standard output, and what o holds behind it.
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"quillmark -p a.pp -nc - -of - <a.nc", goTo(1, 0, 0), "(missing)"},
        {"cat a.nc | quillmark -p a.pp -nc - -of - | cat", goTo(1, 0, 0), "(missing)"},
        {"quillmark -p - -nc a.nc -of o <a.pp", "", goTo(1, 0, 0)},
        {"cat a.pp | quillmark -p - -nc a.nc -of o -l -", log, goTo(1, 0, 0)},
        {"cat a.pp | quillmark -p /dev/stdin -nc a.nc -of o", "", goTo(1, 0, 0)},
        {"echo old >o; quillmark -p a.pp -nc a.nc -of - >>o", "", "old\n" + goTo(1, 0, 0)},
        // A file of that name is one with its folder, and has nothing to do with the streams.
        {"echo G1 X2 >./-; quillmark -p a.pp -nc ./- -of - --quiet", goTo(2, 0, 0), "(missing)"},
        {"cp a.nc ./-; quillmark -p a.pp -nc - -of - --quiet <a.nc", goTo(1, 0, 0), "(missing)"},
    };
    for (const auto& [command, out, file] : rows) {
        EXPECT_EQ(shell("rm -f o").status, 0);
        const ProgramResult result = shell(command);
        EXPECT_EQ(std::to_string(result.status) + result.err, "0") << command;
        EXPECT_EQ(result.out, out) << command;
        EXPECT_EQ(read("o"), file) << command;
    }
    EXPECT_THAT(run("--report -").out, StartsWith("{\n"));
    EXPECT_EQ(shell("mkfifo p; cat a.pp >p & quillmark -p p -nc a.nc -of o").status, 0);
}

TEST_F(Streams, AreWantedOnceOnly) {
    const std::string table =
        R"(-p - -nc -|2|standard input cannot be parameter file and NC file at once
-of - -l -|2|standard output can be only one of output, log and report
-l - --report -|2|standard output can be only one of output, log and report
-of - >>a.nc|202|error 202: cannot write output file '-': it is an input of this run
-l - >>a.pp|203|error 203: cannot write log file '-': it is an input of this run
--report - >>a.pp|2|cannot write report file '-': it is an input of this run
-nc - -of a.nc <a.nc|202|error 202: cannot write output file 'a.nc': it is an input of this run
-of - >o -l o|203|error 203: cannot write log file 'o': it is the output file as well
-of - >&-|202|error 202: cannot write output file '-': Invalid argument)";
    for (const auto& [options, status, message] : rowsOf(table)) {
        const ProgramResult result = run(options);
        EXPECT_EQ(result.status, std::stoi(status)) << options;
        EXPECT_THAT(result.err, StartsWith("quillmark: " + message)) << options;
        EXPECT_EQ(read("a.nc") + read("a.pp"), kProgram + kDialect) << options;
    }
}

TEST_F(Streams, CarryNoMessages) {
    // Long enough for a record of an old parameter file, which then cannot be decoded.
    m_folder.write("bad.pp", std::string(80, '?') + "\n" + std::string(80, '?') + "\n?\n");
    const ProgramResult result = run("-p bad.pp -of -");
    EXPECT_EQ(std::to_string(result.status) + result.out, "50");
    EXPECT_THAT(result.err,
                HasSubstr("\nError in PpLiesDatei: Can't decode\nquillmark: error 306"));
    const ProgramResult traced = shell("DEBUGLEVEL=DETAIL quillmark -p a.pp -nc a.nc -of -");
    EXPECT_EQ(traced.out, goTo(1, 0, 0));
    EXPECT_EQ(shell("DEBUGLEVEL=DETAIL DEBUG_LOGFILE=t quillmark -p a.pp -nc a.nc -of -").out,
              goTo(1, 0, 0));
}

TEST_F(Streams, MayBeLeftByTheirReader) {
    m_folder.write("a.nc", [] {
        std::string program;
        for (int i = 1; i <= 20'000; ++i) {
            program += "G1 X" + std::to_string(i) + "\n";
        }
        return program;
    }());
    const ProgramResult result =
        shell("{ quillmark -p a.pp -nc a.nc -of -; echo $? >status; } | head -n 1");
    EXPECT_EQ(result.out + result.err, goTo(1, 0, 0));
    EXPECT_EQ(read("status"), "141\n");
}

TEST_F(Streams, TellOfAFileInThePlaceOfAnother) {
    // A program that begins so is told from a parameter file, and a parameter file of no kind is
    // none.
    const std::string table = R"(%~O100 (PLATE)~N10 G0 X5~M30|yes
; part~:1 ABS~:2 G0 X1~|yes
o<drill> sub~#1 = 5~g1 x#1~o<drill> endsub|yes
DEF REAL A~R1=5~CYCLE81(5,0)~MSG("X")~G0 X0~|yes
/N5 g 1 x 2~|yes
(nothing but a comment)~|no
TOOL PATH~ABOUT NOTHING~X1~|no
MFG_CLASS_NAME~MILLING_MACHINE~RAPID~G00~LINEAR~G01~|no)";
    for (auto [text, isProgram, none] : rowsOf(table)) {
        std::ranges::replace(text, '~', '\n');
        m_folder.write("x", text);
        const ProgramResult result = run("-p x");
        EXPECT_EQ(result.status, 50) << text;
        EXPECT_EQ(result.err.find("it looks like an NC program\n") != std::string::npos,
                  isProgram == "yes")
            << text;
    }
    EXPECT_THAT(run("-nc a.pp").err,
                StartsWith("quillmark: warning: NC file 'a.pp' looks like a parameter file\n"));
}

TEST_F(Streams, GetNoByteThatATerminalActsOn) {
    const std::string longText(210, 'Y');
    m_folder.write("a.nc", "G1 X1 \xE4\xC3\xA4\xC2\x9B[2J\x1B \xED\xA0\x80\xE2\x80\xAE\nG4 X2 " +
                               longText + "\n");
    EXPECT_THAT(run("").err, testing::AllOf(HasSubstr("  \\xE4\xC3\xA4\\xC2\\x9B[2J\\x1B\n"),
                                            HasSubstr("  \\xED\\xA0\\x80\\xE2\\x80\\xAE\n"),
                                            HasSubstr("in a block that moves the tool: G4 X2 " +
                                                      longText.substr(0, 194) + "...\n")));
    EXPECT_THAT(run("-nc '\xE4\xC3\xA4'").err, HasSubstr("NC file '\\xE4\xC3\xA4': No such"));
    EXPECT_THAT(run("--report 'x/\xE4'").err, HasSubstr("report file 'x/\\xE4': No such"));
}

} // namespace
