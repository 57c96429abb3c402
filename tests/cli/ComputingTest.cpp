#include "tests/cli/ProgramTest.h"
#include "tests/support/cases.h"
#include "tests/support/convert.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <regex>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// Programs of the o-word family, with subprograms beside them and in a folder.
class Computing : public ProgramTest {
protected:
    Computing() {
        m_folder.write("a.pp", mill({{"REV_PROGRAM_LANGUAGE", "O_WORD"}}));
        m_folder.write("endless.ngc", "o<endless> sub\no<endless> call\no<endless> endsub\n");
        EXPECT_EQ(shell("mkdir subs empty").status, 0);
        m_folder.write("subs/drill.ngc", "o<drill> sub\nG1 X[1/#1]\nY5 G77 (x\no<drill> endsub\n");
    }
};

TEST_F(Computing, IsToldWhereAndWhyItEnded) {
    for (auto [nc, expected] : casesOf(CLI_DATA "failures.txt", 8)) {
        std::ranges::replace(nc, '|', '\n');
        std::ranges::replace(nc, '~', '\x1B');
        m_folder.write("a.nc", nc);
        const ProgramResult result =
            run("--subprograms empty --subprograms subs --quiet --report r");
        std::string said = std::regex_replace(
            result.err,
            std::regex("\nquillmark: the output written so far stays in 'o'|quillmark: (error |"
                       "stopped at block |what helps: )?| (in|for|by) NC file 'a.nc'"),
            "");
        std::ranges::replace(said, '\n', '|');
        EXPECT_EQ(said, expected + "|") << nc;
        EXPECT_EQ(result.status, std::stoi(expected) & 0xFF) << nc;
    }
}

TEST_F(Computing, NamesTheFileOfWhatStandsInASubprogram) {
    m_folder.write("a.nc", "o<drill> call [.5]\nX1\no<drill> call\n");
    EXPECT_EQ(
        run("--subprograms subs --report r").err,
        R"(quillmark: warning: line 3 of 'subs/drill.ngc': G77 not recognised, in a block that moves the tool: Y5 G77 (x
quillmark: warning: comments without an end: 1, the first in line 3 of 'subs/drill.ngc'; the rest of the block was not read
quillmark: unrecognised text in 1 of 4 blocks
quillmark: error 502: value cannot be computed in NC file 'a.nc': 1 / 0
quillmark: message 90503: division by zero: 1 / 0 (Evaluator::binary)
quillmark: stopped at block 2 of 'subs/drill.ngc': G1 X[1/#1]
quillmark: the output written so far stays in 'o'
quillmark: what helps: check divisors and arguments, and the variables in them
)");
    EXPECT_EQ(read("o"), goTo(2, 0, 0) + goTo(2, 5, 0) + goTo(1, 5, 0));
    const std::string json = read("r");
    for (const char* const part : {R"("failure": {
    "text": "1 / 0",
    "line": 2,
    "file": "subs/drill.ngc",
    "block": "G1 X[1/#1]"
  },)",
                                   R"("first_line": 3,
        "file": "subs/drill.ngc"
      })",
                                   R"("line": 3,
        "file": "subs/drill.ngc",
        "rest": "G77")",
                                   R"("first_line": 3,
    "file": "subs/drill.ngc"
  })",
                                   R"("line": 3,
      "file": "subs/drill.ngc",
      "word": "G77")"}) {
        EXPECT_THAT(json, HasSubstr(part));
    }
}

TEST_F(Computing, IsWarnedOfWhereTheAptDoesNotFollowIt) {
    m_folder.write("a.nc", "G1 X1\nM99\nX2\n");
    EXPECT_EQ(run("").err, "");
    EXPECT_THAT(run("--summary").err,
                HasSubstr("quillmark: returns from the main program: 1, the first in line 2; the "
                          "conversion ends there, and a control would begin the program again\n"));
    m_folder.write("a.nc", "G1 X1\n#1=3\nX#1\n");
    m_folder.write("a.pp", mill());
    EXPECT_THAT(run("").err,
                HasSubstr("quillmark: warning: the program computes, and the APT does not follow "
                          "it; such blocks: 2, the first in line 2; a dialect that names their "
                          "language with REV_PROGRAM_LANGUAGE runs them\n"));
    // What it would compute may be the cause of an error.
    m_folder.write("a.pp", mill({{"REV_NOT_CONVERTED", "G5"}}));
    m_folder.write("a.nc", "G1 X1\nG5 X#1\n");
    EXPECT_THAT(run("").err,
                StartsWith("quillmark: warning: the program computes, and the APT does not follow "
                           "it; such blocks: 1, the first in line 2; a dialect that names their "
                           "language with REV_PROGRAM_LANGUAGE runs them\nquillmark: error 511: "));
    m_folder.write("a.nc", "G1 X1\nG5 X2\n");
    EXPECT_THAT(run("").err, StartsWith("quillmark: error 511: "));
}

} // namespace
