#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "tests/cli/ProgramTest.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <iterator>

namespace {

const char* const kUsage =
    "quillmark -p paramfile -nc ncfile -of outputfile [-l logfile]\n"
    "  paramfile   parameter file of the postprocessor defining the nc-type.\n"
    "  ncfile      nc code stored in a file to be imported.\n"
    "  outputfile  file in which the output will be written.\n"
    "  logfile     file in which the error messages in case of problems \n"
    "              will be written. This parameter is optional. If it's not\n"
    "              given stderr will be used.\n";

class Program : public ProgramTest {};

TEST_F(Program, GivesTheExpectedFilesOfTheExamplesInSilence) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUILLMARK_EXAMPLES)) {
        const std::string example = entry.path().string();
        if (std::filesystem::exists(example + "/dialect.pp")) {
            ++count;
            const ProgramResult run =
                shell("quillmark -nc /dev/stdin -of /dev/stdout -l log --strict -p " + example +
                          "/dialect.pp",
                      readFile(example + "/part.nc"));
            EXPECT_EQ(std::to_string(run.status) + run.err, "0") << example;
            EXPECT_EQ(run.out, readFile(example + "/part.apt")) << example;
            EXPECT_EQ(read("log"), readFile(example + "/part.log")) << example;
        }
    }
    EXPECT_GE(count, 5);
}

TEST_F(Program, AnswersQuestionsAboutItself) {
    const ProgramResult version = shell("quillmark --version");
    EXPECT_EQ(std::to_string(version.status) + version.out,
              "0quillmark " QUILLMARK_VERSION
              "\nV1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23\n");
    const ProgramResult help = shell("quillmark --help");
    EXPECT_EQ(std::to_string(help.status) + help.err, "0");
    EXPECT_THAT(help.out, testing::StartsWith(kUsage));
    for (const ReturnCode& row : returnCodes()) {
        EXPECT_THAT(help.out, testing::HasSubstr(std::to_string(row.code) + "  " + row.meaning));
    }
    EXPECT_EQ(shell("quillmark -h").out, help.out);
}

TEST_F(Program, SaysWhatIsMissing) {
    // Questions stand alone; beside other arguments they have no answer.
    const std::string table = R"(|-p paramfile, -nc ncfile, -of outputfile
-p a -nc b -of|-of outputfile
p a nc b of c --quiet|-p paramfile, -nc ncfile, -of outputfile
-of x --help --version --quiet|-p paramfile, -nc ncfile
--summary --strict -nc x|-p paramfile, -of outputfile)";
    for (const auto& [incomplete, missing, none] : rowsOf(table)) {
        const ProgramResult result = shell("quillmark " + incomplete);
        EXPECT_EQ(result.status, 100);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, kUsage + ("quillmark: missing: " + missing) +
                                  "; 'quillmark --help' tells of all options\n");
    }
}

TEST_F(Program, NamesWhatItPassesOver) {
    const std::string table =
        R"(--strikt|unknown option '--strikt' is passed over; the nearest is '--strict'
--STRICT|unknown option '--STRICT' is passed over; the nearest is '--strict'
--repot=x|unknown option '--repot' is passed over; the nearest is '--report'
-x|unknown option '-x' is passed over; 'quillmark --help' lists the options
-nc a.nc b.nc|'b.nc' is passed over: -nc takes one program
-of o b.nc|'b.nc' is passed over: no option takes it
-|'-' is passed over: no option takes it
-ot apt|kind of output 'apt' is passed over; the nearest is APT
-ot PNG|kind of output 'PNG' is passed over; the only kind is APT
-l|'-l' is passed over: no name of a file follows it
-l l -L m|'-L' is given more than once: the last one counts
-p x.pp -nc a.nc -p a.pp|'-p' is given more than once: the last one counts
--report r --report r|'--report' is given more than once: the last one counts
--version|'--version' is passed over: it stands alone
'a	b'|'a\x09b' is passed over: no option takes it)";
    for (const auto& [options, warning, none] : rowsOf(table)) {
        const ProgramResult result = run(options);
        EXPECT_EQ(std::to_string(result.status) + result.err,
                  "0quillmark: warning: " + warning + "\n")
            << options;
        EXPECT_EQ(run(options + " --quiet").err, "");
    }
    EXPECT_EQ(run("-ot").err, "");
}

TEST(CommandLine, KnowsEverySpelling) {
    // Arguments; parameter file, NC file, output, log and kind of output; the code.
    const std::string table = R"(-P a -Nc b -Of c -L d|a b c d 1|0
-l d -oF c -nC b -p a|a b c d 1|0
-NC b -OF c -p a -ot TOOLPATH|a b c - 2|0
-nc b -of c -p a -Ot toolpath|a b c - 1|0
-nc b -of c -p a -oT TOOLPATH -OT APT|a b c - 1|0
-nc b -of c -p a -ot TOOLPATH -ot x|a b c - 2|0
-nc b -of c -p a -ot|a b c - 1|0
-p x -x -p a stray -nc b -of c|a b c - 1|0
-p -nc -nc -p -of -of|-nc -p -of - 1|0
-nc b -of c -p a -p|- b c - 1|100
-PP a -Lc b -nc b -of c|- b c - 1|100)";
    const auto shown = [](const char* name) { return std::string(name == nullptr ? "-" : name); };
    for (const auto& [line, read, code] : rowsOf(table)) {
        std::istringstream words("quillmark " + line);
        std::vector<std::string> arguments{std::istream_iterator<std::string>(words), {}};
        std::vector<char*> argv(arguments.size() + 1);
        std::ranges::transform(arguments, argv.begin(), [](auto& word) { return word.data(); });
        char* names[4] = {};
        eOutputType type = eOutputNone;
        EXPECT_EQ(Controller().ScanParameters(static_cast<int>(arguments.size()), argv.data(),
                                              names[0], names[1], names[2], names[3], type),
                  std::stoi(code));
        EXPECT_EQ(shown(names[0]) + " " + shown(names[1]) + " " + shown(names[3]) + " " +
                      shown(names[2]) + " " + std::to_string(type),
                  read);
    }
}

} // namespace
