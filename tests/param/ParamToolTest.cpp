#include "tests/cli/ProgramTest.h"
#include "tests/support/cases.h"
#include "tests/support/convert.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <initializer_list>
#include <regex>
#include <utility>

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

/// The tool among a plain and a coded dialect of either generation.
class ParamTool : public ProgramTest {
protected:
    ParamTool() {
        m_folder.write("oldtext", "*5XGABEL 0\n*MITTANF (\n*MITTEND )\n*DEZKOMM .\n*KREISMI 1\n");
        EXPECT_EQ(shell("quillmark-param encode a.pp coded && "
                        "quillmark-param encode-old oldtext old")
                      .status,
                  0);
    }
    [[nodiscard]] ProgramResult param(const std::string& arguments) const {
        return shell("quillmark-param " + arguments);
    }
};

TEST_F(ParamTool, DecodesToExactlyWhatItCoded) {
    std::string lines; // of every byte that they may hold
    for (int byte = 254; byte > 0; --byte) {
        lines += byte == '\n' || byte == '\r' ? '\n' : static_cast<char>(byte);
        lines += byte % 70 == 0 ? "\nRAPID\n" : "";
    }
    const std::string body = "##### Toolmachine Section (TDB)\n  RAPID  \n" + lines + "\n" +
                             std::string(300, 'x') + "\n";
    const std::pair<const char*, std::string> rows[] = {
        {"encode", "##### Header\n#FILE:       UNCODED\n#VERSION:    V1R5\n" + body},
        {"encode", "##### Header\n#VERSION: V1R8\n\xFE\n#FILE:       UNCODED\n" + body},
        {"encode", "Header\n#FILE:       UNCODED\n\n\n" + body},
        {"encode-old", lines + "\n" + std::string(80, 'x') + "\n"},
    };
    for (const auto& [command, plain] : rows) {
        m_folder.write("plain", plain);
        ASSERT_EQ(param(command + std::string(" plain coded")).status, 0);
        EXPECT_THAT(read("coded"), Not(AnyOf(HasSubstr("RAPID"), HasSubstr("UNCODED"))));
        ASSERT_EQ(param("decode coded decoded").status, 0);
        EXPECT_EQ(read("decoded"), plain);
    }
}

TEST_F(ParamTool, CodesAFileThatWorksAsThePlainOneAndComesBackPlain) {
    ASSERT_EQ(shell("sed '2s/^/#FILE:       CODED/' coded >other; sed 2d coded >none").status, 0);
    ASSERT_THAT(read("coded"), StartsWith("##### Header\n\n"));
    for (const std::string name : {"coded", "other", "none", "a.pp"}) {
        EXPECT_EQ(param("decode " + name + " -").out, kDialect) << name;
        EXPECT_EQ(run("-p " + name).err, "") << name;
        EXPECT_EQ(read("o"), goTo(1, 0, 0)) << name;
    }
}

TEST_F(ParamTool, UpdatesOldFilesAndWarnsOfThoseThatCannotMove) {
    const std::string warning = "the parameter file configures no movement command";
    for (const char* const call : {"quillmark -p old -nc a.nc -of o",
                                   "quillmark-param update old new", "quillmark-param check old"}) {
        const ProgramResult run = shell(call);
        EXPECT_EQ(run.status, 0) << call;
        EXPECT_THAT(run.err + run.out, HasSubstr("warning: ")) << call;
        EXPECT_THAT(run.err + run.out, HasSubstr(warning)) << call;
    }
    EXPECT_THAT(read("new"), StartsWith("##### Header\n#FILE:       UNCODED\n"));
    // What the update wrote is used, and with movements it moves.
    m_folder.write("new", read("new") + kDialect.substr(kHeader.size()));
    EXPECT_EQ(run("-p new").err, "");
    EXPECT_THAT(read("o"), HasSubstr(goTo(1, 0, 0)));
}

TEST_F(ParamTool, LeavesNothingBehindWhenTheMachineIsUnknown) {
    m_folder.write("oldtext", "*5XGABEL 13\n");
    ASSERT_EQ(param("encode-old oldtext old").status, 0);
    const std::string message = "Undefined Machine Type - no automatic update possible\n";
    for (const auto& [call, out, err] : std::initializer_list<std::array<std::string, 3>>{
             {"quillmark-param update old a.pp", "", "quillmark-param: 'old': cannot be updated\n"},
             {"quillmark-param check old", "old: older generation, coded\n",
              "quillmark-param: 'old': the machine type cannot be told, and without it nothing "
              "else\n"},
             {"quillmark -p old -nc a.nc -of /dev/null", "", ""}}) {
        const ProgramResult run = shell(call);
        EXPECT_EQ(run.status, 99) << call;
        EXPECT_EQ(run.out, out) << call;
        EXPECT_EQ(run.err, message + err) << call;
    }
    EXPECT_EQ(shell("ls -A").out, "a.nc\na.pp\ncoded\nold\noldtext\n");
    EXPECT_EQ(read("a.pp"), kDialect);
}

TEST_F(ParamTool, RefusesWhatACommandCannotDo) {
    const std::string marked = "#FILE: UNCODED Header\n##### Toolmachine Section\nRAPID\n";
    m_folder.write("onfirst", marked);
    m_folder.write("says", "Header\n" + marked);
    m_folder.write("headless", "##### Header\n#FILE:       UNCODED\nRAPID\nG0\n");
    m_folder.write("long", std::string(80, 'x') + "\n" + std::string(81, 'x') + "\n");
    m_folder.write("byte255", kDialect + "\xFF\n");
    m_folder.write("big", std::string((64U << 20U) + 1, 'x'));
    ASSERT_EQ(shell("mkdir folder; ln -s loop loop; sed 4d coded >hexless").status, 0);
    const std::string before = shell("ls -A").out;
    for (const auto& [call, message] : casesOf(PARAM_DATA "refusals.txt", 23)) {
        const ProgramResult run = param(call);
        EXPECT_EQ(run.status, 1) << call;
        EXPECT_THAT(run.err, HasSubstr(message)) << call;
        EXPECT_THAT(run.err.substr(run.err.rfind('\n', run.err.size() - 2) + 1),
                    StartsWith("quillmark-param: "))
            << call;
        EXPECT_EQ(shell("ls -A").out, before) << call;
    }
    EXPECT_EQ(read("onfirst"), marked);
    EXPECT_EQ(shell("quillmark --help >&-").status, 1);
    for (const char* const call : {"", "decode a", "check a b", "unknown a", "eval a", "eval -a 1",
                                   "--help decode", "check ''", "check -x"}) {
        const ProgramResult run = param(call);
        EXPECT_EQ(run.status, 2) << call;
        EXPECT_THAT(run.err, StartsWith("usage: quillmark-param encode IN OUT\n")) << call;
    }
    EXPECT_THAT(param("--help").out, HasSubstr("Exit status"));
    EXPECT_EQ(param("-h").out, param("--help").out);
    EXPECT_THAT(param("--version").out, StartsWith("quillmark-param "));
}

TEST_F(ParamTool, EvaluatesTextsInTheLanguageOfADialect) {
    for (const std::string family : {"HASH", "O_WORD", "R_PARAMETER"}) {
        const char* const comment = family == "R_PARAMETER" ? ";" : "(";
        m_folder.write(family,
                       mill({{"REV_PROGRAM_LANGUAGE", family}, {"COMMENT_START", comment}}));
    }
    for (const auto& [call, expected] : casesOf(PARAM_DATA "evaluations.txt", 18)) {
        const ProgramResult run = param("eval " + call);
        std::string said = run.out;
        std::ranges::replace(said, '\n', '|');
        EXPECT_EQ(run.status, run.err.empty() ? 0 : 1) << call;
        EXPECT_EQ(said + std::regex_replace(run.err, std::regex("^quillmark-param: |\n"), "!"),
                  expected + (run.err.empty() ? "" : "!"))
            << call;
    }
    EXPECT_THAT(param("eval a.pp 1").err, HasSubstr("'a.pp': the dialect names no language"));
    EXPECT_THAT(param("eval coded 1").err, HasSubstr("'coded': the dialect names no language"));
}

TEST_F(ParamTool, WritesItsOutputWholeWhereverItGoes) {
    ASSERT_EQ(shell("mv a.pp file; chmod 0640 file; ln -s file link; mkdir folder; "
                    "ln -s new folder/far; ln -s folder/far farther; rm -f a.nc c* o*; "
                    "quillmark-param encode link link")
                  .status,
              0);
    EXPECT_THAT(read("file"), Not(HasSubstr("RAPID")));
    for (const char* const call : {"decode file -", "decode - - <file", "decode file /dev/stdout",
                                   "decode file /dev/stdout | cat"}) {
        EXPECT_EQ(param(call).out, kDialect) << call;
    }
    EXPECT_EQ(shell("echo first; quillmark-param decode file /dev/stdout; echo last").out,
              "first\n" + kDialect + "last\n");
    ASSERT_EQ(shell("umask 027; quillmark-param decode file farther").status, 0);
    EXPECT_EQ(read("folder/new"), kDialect);
    EXPECT_EQ(shell("stat -c '%A %n' *; stat -c %A folder/new").out,
              "lrwxrwxrwx farther\n-rw-r----- file\ndrwxr-xr-x folder\n"
              "lrwxrwxrwx link\n-rw-r-----\n");
}

TEST_F(ParamTool, PresentsNoCorruptFileAsSuccess) {
    // The code of the conversion and what makes the corrupt file, then the message.
    for (const auto& [row, message] : casesOf(PARAM_DATA "corruptFiles.txt", 11)) {
        const int code = std::stoi(row);
        const std::string make = row.substr(4);
        ASSERT_EQ(shell("{ " + make + "; } >bad; ! cmp -s bad coded").status, 0);
        for (const char* const call : {"decode bad x 2>&1", "update bad x 2>&1", "check bad"}) {
            const ProgramResult run = param(call);
            const std::string said = call[0] == 'c' ? run.err : run.out; // in order of printing
            EXPECT_EQ(run.status, 1) << make << call;
            EXPECT_EQ(said.rfind("quillmark-param: "), said.rfind('\n', said.size() - 2) + 1);
            const bool isRefused = code == 307 && call[0] == 'u'; // the other generation
            EXPECT_THAT(said, HasSubstr(isRefused ? "current format" : message)) << make << call;
            EXPECT_LT(said.size(), 2000U) << make << call;
        }
        EXPECT_EQ(read("x"), "(missing)") << make;
        const ProgramResult front = run("-p bad");
        EXPECT_EQ(front.status, code & 0xFF) << make;
        EXPECT_THAT(front.err, HasSubstr("quillmark: error " + std::to_string(code)));
    }
}

} // namespace
