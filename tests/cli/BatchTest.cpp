#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <gmock/gmock.h>
#include <regex>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// Programs of which each ends in another way.
class Batch : public ProgramTest {
protected:
    Batch() {
        m_folder.write("a.pp", mill({{"REV_PROGRAM_LANGUAGE", "O_WORD"}}));
        m_folder.write("good.nc", "G1 X1\n");
        m_folder.write("word.nc", "G1 X2\nG77\n");
        m_folder.write("divide.nc", "G1 X3\nX[1/0]\n");
        m_folder.write("arc.nc", "G1 X4\nG2 X5\n");
    }

    [[nodiscard]] ProgramResult batch(const std::string& arguments) const {
        return shell("exec quillmark -p a.pp --into out " + arguments);
    }
    /// Names below the folder of the results, in order, with blanks between them.
    [[nodiscard]] std::string results() const {
        return shell("cd out && echo $(LC_ALL=C ls -A)").out;
    }
};

TEST_F(Batch, TellsOfEachProgramInOrder) {
    m_folder.write("late.nc", std::string(100'000, '\n') + "G1 X1\nG78\n");
    const ProgramResult run =
        batch("late.nc missing.nc good.nc ./arc.nc word.nc --jobs 4 --report sum");
    EXPECT_EQ(run.status, 134);
    EXPECT_EQ(run.out, "");
    // Only the assertion report of the run-time library names a source line.
    EXPECT_EQ(std::regex_replace(run.err, std::regex("quillmark: [^\n]*Assertion[^\n]*"), "#"),
              R"(quillmark: 'late.nc':
quillmark: unrecognised text in 1 of 100002 blocks
     count  first line  word
         1      100002  G78
quillmark: 'missing.nc' failed: error 200, cannot read NC file
quillmark: error 200: cannot read NC file 'missing.nc': No such file or directory
quillmark: './arc.nc' failed: ended by signal 6 (Aborted)
quillmark: warning: line 2: arc without a centre word: G2 X5
quillmark: this arc has no direction, since its centre is its start: 2: G2 X5
quillmark: likely cause: it has no word of a centre or a radius
quillmark: stopped at block 2: G2 X5
quillmark: the output written so far stays in 'out/arc.apt.part'
#
quillmark: 'word.nc':
quillmark: unrecognised text in 1 of 2 blocks
     count  first line  word
         1           2  G77
quillmark: 5 programs: 3 converted, 2 failed
)");
    EXPECT_EQ(results(), "arc.apt.part arc.json arc.log.part good.apt good.json good.log late.apt "
                         "late.json late.log missing.json "
                         "word.apt word.json word.log\n");
    EXPECT_EQ(read("out/good.apt"), goTo(1, 0, 0));
    EXPECT_THAT(read("out/word.log"), EndsWith("\nG1 X2\n" + goTo(2, 0, 0) + "\nG77\n"));
    EXPECT_THAT(read("out/good.json"),
                HasSubstr("\"output\": \"out/good.apt\",\n    \"log\": \"out/good.log\"\n"));
    EXPECT_THAT(read("out/arc.json"),
                AllOf(HasSubstr("\"out/arc.apt.part\""), HasSubstr("\"exit_status\": null")));
    const std::string sum = read("sum");
    EXPECT_THAT(sum, StartsWith("{\n  \"quillmark\": \"" QUILLMARK_VERSION "\",\n"
                                R"(  "parameter": "a.pp",
  "folder": "out",
  "exit_status": 134,
  "converted": 3,
  "failed": 2,
  "left_alone": 0,
  "stopped": 0,
  "not_begun": 0,
  "programs": [
    {
      "nc": "late.nc",
      "output": "out/late.apt",
      "log": "out/late.log",
      "report": "out/late.json",
      "outcome": "converted",
      "exit_status": 0,
      "signal": null
    },
)"));
    EXPECT_THAT(sum, AllOf(HasSubstr("\"outcome\": \"failed\",\n      \"exit_status\": 200,\n"
                                     "      \"signal\": null\n"),
                           HasSubstr("\"outcome\": \"failed\",\n      \"exit_status\": null,\n"
                                     "      \"signal\": 6\n")));
}

TEST_F(Batch, EndsWithTheStatusOfTheWorst) {
    const std::string table = R"(good.nc|0
good.nc word.nc|0
word.nc --strict good.nc|3
word.nc --strict missing.nc|200
missing.nc divide.nc|200
divide.nc missing.nc|246
divide.nc arc.nc missing.nc|134)";
    for (const auto& [arguments, status, none] : rowsOf(table)) {
        const ProgramResult run = batch("--quiet " + arguments);
        EXPECT_EQ(std::to_string(run.status), status) << arguments;
        EXPECT_EQ(run.err.empty(), run.status == 0) << arguments;
        EXPECT_THAT(run.err, testing::Not(HasSubstr("programs:"))) << arguments;
    }
}

TEST_F(Batch, PassesOptionsToEveryProgram) {
    EXPECT_EQ(shell("mkdir subs").status, 0);
    m_folder.write("a.pp", mill({{"REV_PROGRAM_LANGUAGE", "O_WORD"}, {"REV_BLOCK_SKIP", "/"}}));
    m_folder.write("subs/drill.ngc", "o<drill> sub\nG1 X7\no<drill> endsub\n");
    m_folder.write("call.nc", "o<drill> call\n/X8\n");
    EXPECT_EQ(batch("--subprograms subs call.nc --skip-blocks --summary good.nc").status, 0);
    EXPECT_EQ(read("out/call.apt"), goTo(7, 0, 0));
    EXPECT_EQ(shell("quillmark -p - --into out good.nc word.nc --quiet <a.pp").status, 0);
    EXPECT_EQ(read("out/word.apt"), goTo(2, 0, 0));
    EXPECT_THAT(batch("--summary good.nc").err,
                StartsWith("quillmark: 'good.nc':\nquillmark: blocks read: 1\n"));
}

TEST_F(Batch, KeepsTheLastResultsOfAProgramThatFails) {
    EXPECT_EQ(batch("good.nc").status, 0);
    const std::string log = read("out/good.log");
    for (const auto& [nc, options, none] :
         rowsOf("G1 X5~X[1/0]\nG1 X5~G2 X6\nG1 X5~G77|--strict")) {
        m_folder.write("good.nc", std::regex_replace(nc, std::regex("~"), "\n"));
        EXPECT_GT(batch("good.nc " + options).status, 0) << nc;
        EXPECT_EQ(read("out/good.apt"), goTo(1, 0, 0)) << nc;
        EXPECT_EQ(read("out/good.log"), log) << nc;
        EXPECT_EQ(read("out/good.apt.part"), goTo(5, 0, 0)) << nc;
        EXPECT_THAT(read("out/good.json"), HasSubstr("\"lines\": 2")) << nc;
    }
    m_folder.write("good.nc", "G1 X2\n");
    EXPECT_EQ(batch("good.nc").status, 0);
    EXPECT_EQ(results(), "good.apt good.json good.log\n");
    EXPECT_EQ(read("out/good.apt"), goTo(2, 0, 0));
}

TEST_F(Batch, ResumesWithWhatIsMissingOrOld) {
    // The minutes of program, parameter file and result; whether the result stays.
    const std::string table = R"(1 1|2|stays
2 1|2|goes
1 2|2|goes
3 1|2|goes
1 3|2|goes)";
    EXPECT_EQ(shell("mkdir out").status, 0);
    for (const auto& [inputs, result, fate] : rowsOf(table)) {
        m_folder.write("out/good.apt", "old");
        const std::string times = "set -- " + inputs +
                                  "; touch -t 20200101000$1 good.nc; touch -t 20200101000$2 a.pp; "
                                  "touch -t 20200101000" +
                                  result + " out/good.apt; ";
        const ProgramResult run = shell(times + "quillmark -p a.pp --into out --resume good.nc");
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(read("out/good.apt"), fate == "stays" ? "old" : goTo(1, 0, 0)) << inputs;
        EXPECT_EQ(run.err, fate == "stays"
                               ? "quillmark: 1 program: 0 converted, 0 failed, 1 left alone\n"
                               : "quillmark: 1 program: 1 converted, 0 failed, 0 left alone\n");
        // Without the option everything is converted.
        EXPECT_EQ(shell(times + "quillmark -p a.pp --into out good.nc").status, 0);
        EXPECT_EQ(read("out/good.apt"), goTo(1, 0, 0));
    }
}

TEST_F(Batch, ResumesWithWhatAnotherDialectMadeOrFailed) {
    m_folder.write("b.pp", kDialect);
    m_folder.write("none.pp", mill({{"REV_NOT_CONVERTED", "G1"}}));
    ASSERT_EQ(shell("touch -t 202001010001 *").status, 0);
    // The parameter files of two runs; what becomes of the result in the second one.
    const std::string table = R"(a.pp|a.pp|0 converted, 0 failed, 1 left alone
a.pp|b.pp|1 converted, 0 failed, 0 left alone
b.pp|none.pp|0 converted, 1 failed, 0 left alone
none.pp|none.pp|0 converted, 1 failed, 0 left alone
none.pp|b.pp|1 converted, 0 failed, 0 left alone)";
    for (const auto& [first, second, counts] : rowsOf(table)) {
        (void)shell("quillmark -p " + first + " --into out good.nc");
        EXPECT_THAT(shell("quillmark -p " + second + " --into out --resume good.nc").err,
                    EndsWith("quillmark: 1 program: " + counts + "\n"))
            << first << " " << second;
    }
    EXPECT_EQ(shell("quillmark -p b.pp -p a.pp --into x --into out --resume good.nc").err,
              "quillmark: warning: '-p' is given more than once: the last one counts\n"
              "quillmark: warning: '--into' is given more than once: the last one counts\n"
              "quillmark: 1 program: 1 converted, 0 failed, 0 left alone\n");
}

TEST_F(Batch, RefusesBeforeAnythingIsTouched) {
    EXPECT_EQ(
        shell("mkdir b; cp good.nc b; cp a.pp b/word.json; ln -s ../good.nc b/link.apt").status, 0);
    m_folder.write("short.pp", kDialect + "REV_PROGRAM_LANGUAGE\n");
    // Arguments behind the program's name; the status; what is said.
    const std::string table = R"(-p a.pp --into out|2|--into needs the names of programs
--into out good.nc|2|--into needs a parameter file: -p paramfile
-p a.pp --into out good.nc b/good.nc|2|'good.nc' and 'b/good.nc' would both give 'out/good.apt'
-p a.pp --into out good.nc good.nc|2|'good.nc' and 'good.nc' would both give 'out/good.apt'
-p a.pp --into out good.nc good.ngc|2|'good.nc' and 'good.ngc' would both give 'out/good.apt'
-p a.pp --into b good.nc link.nc|2|cannot write 'b/link.apt': it is an input of this run
-p b/word.json --into b word.nc|2|cannot write 'b/word.json': it is an input of this run
-p a.pp --into good.nc word.nc|2|cannot make folder 'good.nc': Not a directory
-p a.pp --into out b/|2|'b/' is no name of a program
-p a.pp --into out good.nc --strikt|2|'--strikt' is no option of a run with --into; a program of that name is given as './--strikt'
-p a.pp --into out good.nc -of x|2|with --into, programs stand by themselves and their results get names from them: -nc, -of, -l and -ot do not go together with it
-p a.pp --into out -nc good.nc|2|with --into, programs stand by themselves and their results get names from them: -nc, -of, -l and -ot do not go together with it
-p a.pp --into out good.nc --jobs 0|2|--jobs needs a number from 1 to 500
-p a.pp --into out good.nc --jobs 501|2|--jobs needs a number from 1 to 500
-p a.pp --into out good.nc --jobs 2x|2|--jobs needs a number from 1 to 500
-p a.pp --into out good.nc --jobs|2|--jobs needs a number as its own argument
-p a.pp --into=out good.nc|2|--into needs the name of a folder as its own argument
-p a.pp -nc good.nc -of o --resume|2|--resume and --jobs need --into FOLDER
-p a.pp -nc good.nc -of o --jobs 2|2|--resume and --jobs need --into FOLDER
-p x.pp --into out good.nc word.nc|45|error 301: cannot open parameter file 'x.pp': No such file or directory
-p good.nc --into out good.nc word.nc|50|error 306: cannot convert parameter file of the old format 'good.nc': it looks like an NC program
-p short.pp --into out good.nc word.nc|46|error 302: unexpected end of parameter file 'short.pp': the file is empty, or its last key lacks the lines that belong to it)";
    const std::string before = shell("ls -AR | md5sum").out;
    for (const auto& [arguments, status, said] : rowsOf(table)) {
        const ProgramResult run = shell("quillmark " + arguments);
        EXPECT_EQ(std::to_string(run.status), status) << arguments;
        EXPECT_EQ(run.err, "quillmark: " + said + "\n") << arguments;
        EXPECT_EQ(shell("ls -AR | md5sum").out, before) << arguments;
    }
    EXPECT_EQ(batch("good.nc --report out/good.log").err,
              "quillmark: cannot write report file 'out/good.log': it is a result of a program as "
              "well\n");
    EXPECT_EQ(batch("good.nc --report good.nc").status, 2);
    EXPECT_EQ(read("good.nc"), "G1 X1\n");
}

TEST_F(Batch, RunsSeveralAtOnceAndStopsWhenTold) {
    // A pipe that nobody writes holds its program. Two at once: the last one begins when those
    // between the pipes are done.
    const std::string begin =
        "rm -rf out *pipe.nc; mkfifo pipe.nc lastpipe.nc; quillmark -p a.pp --into out "
        "pipe.nc good.nc word.nc lastpipe.nc --report sum --jobs ";
    const auto waitFor = [](const std::string& file) {
        return " & i=0; until [ -e out/" + file +
               " ]; do sleep .1; i=$((i + 1)); [ $i -lt 600 ] || exit 9; done; ";
    };
    const ProgramResult whole = shell(begin + "2" + waitFor("lastpipe.apt.part") +
                                      "echo G1 X9 >lastpipe.nc; echo G1 X8 >pipe.nc; wait $!");
    EXPECT_EQ(whole.status, 0);
    EXPECT_EQ(read("out/pipe.apt") + read("out/lastpipe.apt"), goTo(8, 0, 0) + goTo(9, 0, 0));
    EXPECT_THAT(whole.err, AllOf(StartsWith("quillmark: 'word.nc':\n"),
                                 EndsWith("quillmark: 4 programs: 4 converted, 0 failed\n")));

    for (const auto& [name, status, none] : rowsOf("TERM|143\nHUP|129")) {
        const ProgramResult stopped =
            shell(begin + "2" + waitFor("lastpipe.apt.part") + "kill -" + name + " $!; wait $!");
        EXPECT_EQ(std::to_string(stopped.status), status);
        EXPECT_THAT(stopped.err, EndsWith("quillmark: stopped by SIG" + name +
                                          ": 4 programs: 2 converted, 0 failed, 2 not converted; "
                                          "--resume goes on with them\n"));
        EXPECT_EQ(read("out/pipe.apt"), "(missing)");
        EXPECT_THAT(read("sum"), AllOf(HasSubstr("\"stopped\": 2"),
                                       HasSubstr("\"exit_status\": " + status + ",\n")));
    }

    // One at a time: those behind the pipe never begin.
    const ProgramResult one =
        shell(begin + "1" + waitFor("pipe.apt.part") + "kill -TERM $!; wait $!");
    EXPECT_EQ(one.status, 143);
    EXPECT_THAT(read("sum"), HasSubstr("\"stopped\": 1,\n  \"not_begun\": 3,\n"));
    EXPECT_EQ(read("out/good.json"), "(missing)");
}

TEST_F(Batch, ShowsItsProgressOnATerminal) {
    const std::string command = "script -qec 'quillmark -p a.pp --into out good.nc word.nc ";
    const std::string shown = shell(command + "' typescript").out;
    EXPECT_THAT(shown, AllOf(StartsWith("quillmark: 0 of 2 programs, 0 failed\r\x1B[K"),
                             HasSubstr("\r\x1B[Kquillmark: 'word.nc':\r\n"),
                             EndsWith("\r\x1B[Kquillmark: 2 programs: 2 converted, 0 failed\r\n")));
    EXPECT_EQ(shell(command + "--quiet' typescript").out, "");
}

class WholeResults : public ProgramTest {};

TEST_F(WholeResults, TakeTheirNamesAtTheEnd) {
    m_folder.write("bad.nc", "G1 X2\nG2 X6\n");
    EXPECT_EQ(run("-l l --report r --whole").status, 0);
    EXPECT_EQ(run("-nc bad.nc -l l --report r --whole").status, -6);
    EXPECT_EQ(read("o") + read("o.part"), goTo(1, 0, 0) + goTo(2, 0, 0));
    EXPECT_THAT(read("l"), EndsWith("\nG1 X1\n" + goTo(1, 0, 0)));
    EXPECT_THAT(read("r"), AllOf(HasSubstr("\"output\": \"o.part\""), HasSubstr("G2 X6")));
    // A link stays one, and what is no file is written itself.
    EXPECT_EQ(shell("ln -s o link; quillmark -p a.pp -nc bad.nc -of o; "
                    "quillmark -p a.pp -nc a.nc -of link --whole && test -L link")
                  .status,
              0);
    EXPECT_EQ(read("o"), goTo(1, 0, 0));
    EXPECT_EQ(run("-of /dev/stdout --whole").out, goTo(1, 0, 0));
    // Inputs are as safe as ever, and each file is told from the others.
    const std::string table = R"(-of a.nc|202
-l a.pp|203
-of both -l both|203
-of o --report a.nc|2
-of o --report o|2
-of o --report /dev/full|2)";
    for (const auto& [options, status, none] : rowsOf(table)) {
        m_folder.write("o", "last");
        EXPECT_EQ(std::to_string(run("--whole " + options).status), status) << options;
        EXPECT_EQ(read("a.nc") + read("a.pp"), kProgram + kDialect) << options;
        EXPECT_EQ(read("o"), "last") << options;
    }
}

} // namespace
