#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A folder of dialects beside the usual files.
class Dialect : public ProgramTest {
protected:
    Dialect() {
        EXPECT_EQ(shell("mkdir d empty").status, 0);
        m_folder.write("d/small-mill.pp", kDialect);
        m_folder.write("d/lathe.pp", "##### Header\n#FILE:       UNCODED\n#Not this\n"
                                     "# lathe: turns \x1B[2J\r\n# and more\n");
        m_folder.write("d/other.txt", "# none");
    }
    [[nodiscard]] ProgramResult with(const std::string& folder, const std::string& command) const {
        return shell("export QUILLMARK_DIALECTS=" + folder + "; " + command);
    }
};

TEST_F(Dialect, IsFoundByNameUnlessAFileHasIt) {
    // The parameter file, the exit status, and the file that the report names.
    const std::string table = R"(small-mill|0|d/small-mill.pp
a.pp|0|a.pp
small-mill.pp|45|small-mill.pp
./small-mill|45|./small-mill
d/small-mill|45|d/small-mill
other|45|other)";
    for (const auto& [name, status, file] : rowsOf(table)) {
        const ProgramResult run =
            with("d", "quillmark -p " + name + " -nc a.nc -of o --report r --quiet");
        EXPECT_EQ(run.status, std::stoi(status)) << name;
        EXPECT_THAT(read("r"), HasSubstr("\"parameter\": \"" + file + "\",")) << name;
    }
    m_folder.write("d/small-mill.pp", "");
    EXPECT_THAT(with("d", "quillmark -p small-mill -nc a.nc -of o").err,
                StartsWith("quillmark: error 302: unexpected end of parameter file "
                           "'d/small-mill.pp': "));
    m_folder.write("small-mill", kDialect);
    EXPECT_EQ(with("d", "quillmark -p small-mill -nc a.nc -of o").status, 0);
    EXPECT_EQ(read("o"), goTo(1, 0, 0));
}

TEST_F(Dialect, IsFoundByTheToolForParameterFiles) {
    EXPECT_THAT(with("d", "quillmark-param check small-mill").out,
                StartsWith("d/small-mill.pp: current format"));
    EXPECT_EQ(with("d", "quillmark-param encode small-mill coded").status, 0);
    EXPECT_EQ(with("d", "quillmark-param check smal-mill").err,
              "quillmark-param: 'smal-mill': cannot be read: No such file or directory\n"
              "quillmark-param: no dialect of QUILLMARK_DIALECTS, 'd', has the name 'smal-mill'; "
              "the nearest is 'small-mill' "
              "(quillmark --dialects lists them)\n");
}

TEST_F(Dialect, IsListedWithItsFirstComment) {
    m_folder.write("d/plain.pp", "##### Header\n#\n");
    const ProgramResult list = with("d", "quillmark --dialects");
    EXPECT_EQ(std::to_string(list.status) + list.err, "0");
    EXPECT_EQ(list.out, "lathe       turns \\x1B[2J\nplain\nsmall-mill\n");
    for (const auto& [folder, reason] :
         {std::pair("empty", ""), {"x", ": No such file or directory"}}) {
        const ProgramResult none = with(folder, "quillmark --dialects");
        EXPECT_EQ(std::to_string(none.status) + none.out, "1");
        EXPECT_EQ(none.err, "quillmark: no dialects in '" + std::string(folder) + "'" + reason +
                                "; QUILLMARK_DIALECTS names another folder\n");
    }
}

TEST_F(Dialect, IsProposedWhenItsNameIsNear) {
    const auto said = [this](const std::string& name) {
        return with("d", "quillmark -p " + name + " -nc a.nc -of o").err;
    };
    EXPECT_THAT(said("SMALL_MILL"), HasSubstr("\nquillmark: no dialect of QUILLMARK_DIALECTS, "
                                              "'d', has the name 'SMALL_MILL'; "
                                              "the nearest is 'small-mill' "));
    EXPECT_EQ(said("big/mill"), "quillmark: error 301: cannot open parameter file 'big/mill': No "
                                "such file or directory\n");
    EXPECT_THAT(said("big-mill"),
                EndsWith("directory\nquillmark: no dialect of QUILLMARK_DIALECTS, 'd', has the "
                         "name 'big-mill'\n"));
}

TEST_F(Dialect, MayStandInThePlaceOfTheProgram) {
    EXPECT_EQ(with("d", "quillmark -p a.nc -nc small-mill -of o").err,
              "quillmark: error 200: cannot read NC file 'small-mill': it is a dialect, and 'a.nc' "
              "looks like an NC program: -p and -nc seem to be exchanged\n");
    EXPECT_EQ(
        with("d", "quillmark -p a.pp -nc small-mill -of o").err,
        "quillmark: error 200: cannot read NC file 'small-mill': No such file or directory\n");
}

} // namespace
