#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

// quillmark in a folder without a viewer, and viewers in PATH: one that notes what it is asked for,
// and one that a signal ends.
class ViewOption : public ProgramTest {
protected:
    ViewOption() {
        m_folder.write("doubtful.nc", "G1 X1 Q7\n");
        m_folder.write("quillmark-view", "#!/bin/sh\necho \"$@\" >asked; cat \"$1\" >\"$3\";\n");
        EXPECT_EQ(shell("mkdir alone killed; ln " QUILLMARK_PROGRAMS
                        "/quillmark alone 2>/dev/null || "
                        "cp " QUILLMARK_PROGRAMS "/quillmark alone; chmod +x quillmark-view; "
                        "printf '#!/bin/sh\\nkill -TERM $$\\n' >killed/quillmark-view; "
                        "chmod +x killed/quillmark-view")
                      .status,
                  0);
    }
    // As run, with viewers in the folder `path` alone.
    [[nodiscard]] ProgramResult runAlone(const std::string& options,
                                         const std::string& path) const {
        return shell("rm -f asked v.svg; PATH=" + path +
                     ":/usr/bin:/bin; exec alone/quillmark -p a.pp -nc a.nc -of o " + options);
    }
};

TEST_F(ViewOption, AsksTheViewerBehindAConversion) {
    // Options, exit status, and what the viewer is asked for; it makes v.svg of the output.
    const std::string table = R"(--view v.svg|0|o -o v.svg
-l l --view v.svg|0|o -o v.svg -l l
-l /dev/null --view v.svg|0|o -o v.svg
-l l --whole --view v.svg|0|o -o v.svg -l l
-of -o --view v.svg|0|./-o -o v.svg
-nc doubtful.nc --strict --quiet --view v.svg|3|o -o v.svg
-nc doubtful.nc --strict --whole --view v.svg|3|
-nc missing.nc --view v.svg|200|
--report none/r --view v.svg|2|)";
    for (const auto& [options, status, asked] : rowsOf(table)) {
        EXPECT_EQ(runAlone(options, ".").status, std::stoi(status)) << options;
        EXPECT_EQ(read("asked"), asked.empty() ? "(missing)" : asked + "\n") << options;
        EXPECT_EQ(read("v.svg"), asked.empty() ? "(missing)" : goTo(1, 0, 0)) << options;
    }
}

TEST_F(ViewOption, TellsWhenThereIsNoView) {
    const std::string failed = "quillmark: the output is complete, but 'v.svg' was not made: ";
    EXPECT_EQ(runAlone("--view v.svg", "/none").err,
              failed + "no quillmark-view beside quillmark, nor in PATH\n");
    EXPECT_EQ(runAlone("--view v.svg", "/none").status, 2);
    EXPECT_EQ(runAlone("--view v.svg", "killed").err, failed + "signal 15 ended quillmark-view\n");
    EXPECT_EQ(runAlone("--view v.svg", "killed").status, 143);
    EXPECT_EQ(read("o"), goTo(1, 0, 0));
    const ProgramResult result = run("--view none/v.svg");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("quillmark-view: 'none/v.svg': "));
    EXPECT_THAT(result.err,
                HasSubstr("\nquillmark: the output is complete, but 'none/v.svg' was not "
                          "made: quillmark-view ended with status 1\n"));
}

TEST_F(ViewOption, RefusesNamesBeforeAnythingIsWritten) {
    const std::string table = R"(--view|--view needs the name of a file as its own argument
--view=v.svg|--view needs the name of a file as its own argument
--view v.jpg|--view takes the name of a file that ends in .html, .svg or .png
--view v.svg --into d|--view shows one program and does not go together with --into
-of - --view v.svg|--view shows a file: the output cannot be standard output
-nc a.svg --view ./a.svg|cannot write view './a.svg': it is an input of this run
-of v.svg --view $PWD/v.svg|cannot write view '$PWD/v.svg': it is another output of this run
-l v.svg --whole --view v.svg|cannot write view 'v.svg': it is another output of this run
--report v.svg --whole --view v.svg|cannot write view 'v.svg': it is another output of this run)";
    m_folder.write("a.svg", kProgram);
    for (auto [options, message, none] : rowsOf(table)) {
        const ProgramResult result = run(options);
        if (const auto place = message.find("$PWD"); place != std::string::npos) {
            message.replace(place, 4, m_folder.path());
        }
        EXPECT_EQ(result.err, "quillmark: " + message + "\n") << options;
        EXPECT_EQ(result.status, 2) << options;
        EXPECT_EQ(read("o") + read("v.svg") + read("v.svg.part"), "(missing)(missing)(missing)")
            << options;
    }
}

TEST_F(ViewOption, MakesThePictureByTheProgramBesideIt) {
    if (MAKES_PICTURES == 0) {
        GTEST_SKIP() << "built without cairo";
    }
    const ProgramResult result = run("-l l --view v.svg");
    EXPECT_EQ(std::to_string(result.status) + result.out + result.err, "0");
    EXPECT_THAT(read("v.svg"), HasSubstr("<svg"));
}

} // namespace
