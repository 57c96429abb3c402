#include "tests/param/ParamTool.h"

#include <array>
#include <initializer_list>
#include <random>
#include <utility>

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string kHead = "##### Header\n#FILE:       UNCODED\n#VERSION:    V1R5\n";
const std::string kSection = "##### Toolmachine Section (TDB)\n";
const std::string kMovements = "RAPID\nG0\nLINEAR_INTERPOLATION\nG1\n"
                               "1ST_COORDINATE\nX\n1\nM5.3\n2ND_COORDINATE\nY\n1\nM5.3\n";
const std::string kMill = kHead + kSection + "MFG_CLASS_NAME\nNC_STANDARD_MACHINES\n" + kMovements +
                          "DECIMAL_POINT_REPRESENTATION\n.\n";
const std::string kOld = "*5XGABEL 0\n*MITTANF (\n*MITTEND )\n*DEZKOMM .\n\n*KREISMI 1\n";
constexpr const char* kProgram = "G0 X1. Y2.\nG1 X3.\n";

// Every byte that a line may hold, and keys among them.
std::string randomLines(std::mt19937& random, int count, std::size_t longest, bool keepsBlanks) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        std::string line(random() % (longest + 1), ' ');
        for (char& byte : line) {
            do {
                byte = static_cast<char>(1 + random() % 254);
            } while (byte == '\n' || byte == '\r');
        }
        if (!keepsBlanks) {
            line.erase(line.find_last_not_of(' ') + 1);
        }
        lines += (i % 7 == 0 ? "RAPID" : line) + "\n";
    }
    return lines;
}

TEST_F(ParamTool, DecodesToExactlyWhatItCoded) {
    std::mt19937 random(19991231);
    const std::string heads[] = {kHead,
                                 "##### Header\n#VERSION: V1R8\n\xFE\n#FILE:       UNCODED\n",
                                 "Header\n#FILE:       UNCODED\n\n\n"};
    for (const std::string& head : heads) {
        const std::string plain = head + kSection + randomLines(random, 2000, 300, true);
        write("plain", plain);
        ASSERT_EQ(param("encode plain coded").status, 0);
        const std::string coded = read("coded");
        EXPECT_THAT(coded.substr(coded.find(kSection) + kSection.size()), Not(HasSubstr("RAPID")));
        EXPECT_THAT(coded, Not(HasSubstr("UNCODED")));
        ASSERT_EQ(param("decode coded decoded").status, 0);
        ASSERT_EQ(read("decoded"), plain);
    }
    const std::string old = randomLines(random, 2000, 80, false);
    write("plain", old);
    ASSERT_EQ(param("encode-old plain coded").status, 0);
    EXPECT_THAT(read("coded"), Not(HasSubstr("RAPID")));
    ASSERT_EQ(param("decode coded decoded").status, 0);
    EXPECT_EQ(read("decoded"), old);
}

TEST_F(ParamTool, CodesAFileThatWorksAsThePlainOneAndComesBackPlain) {
    write("plain", kMill);
    write("part.nc", kProgram);
    ASSERT_EQ(param("encode plain coded").status, 0);
    ASSERT_THAT(read("coded"), StartsWith("##### Header\n\n"));
    ASSERT_EQ(shell("sed '2s/^/#FILE:       CODED/' coded >other; sed 2d coded >none").status, 0);
    for (const std::string name : {"coded", "other", "none", "plain"}) {
        EXPECT_EQ(param("decode " + name + " -").out, kMill) << name;
        const Run run = shell(QUILLMARK " -p " + name + " -nc part.nc -of part.apt");
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err, IsEmpty());
        EXPECT_THAT(read("part.apt"), HasSubstr("GOTO/"));
        EXPECT_EQ(shell("test -e apt || cp part.apt apt; cmp part.apt apt").status, 0) << name;
    }
}

TEST_F(ParamTool, UpdatesOldFilesAndWarnsOfThoseThatCannotMove) {
    ASSERT_EQ(shell(QUILLMARK_PARAM " encode-old " UPDATE_DATA "allKeys.old - | " QUILLMARK_PARAM
                                    " update - - | cmp - " UPDATE_DATA "allKeys.new")
                  .status,
              0);
    write("old.txt", kOld);
    write("part.nc", kProgram);
    ASSERT_EQ(param("encode-old old.txt old.pp").status, 0);
    for (const char* const call :
         {QUILLMARK " -p old.pp -nc part.nc -of part.apt", QUILLMARK_PARAM " update old.pp new.pp",
          QUILLMARK_PARAM " check old.pp"}) {
        const Run run = shell(call);
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err + run.out, ContainsRegex("warning: .*configures no movement command"));
    }
    EXPECT_THAT(read("new.pp"), StartsWith("##### Header\n#FILE:       UNCODED\n"));
    EXPECT_THAT(read("new.pp"), HasSubstr("##### Address Section\nCOMMENT_START\n(\n"));
    // What the update wrote is used, and with movements it moves.
    write("new.pp", read("new.pp") + kMovements);
    EXPECT_THAT(shell(QUILLMARK " -p new.pp -nc part.nc -of part.apt").err, IsEmpty());
    EXPECT_THAT(read("part.apt"), HasSubstr("GOTO/"));
}

TEST_F(ParamTool, LeavesNothingBehindWhenTheMachineIsUnknown) {
    write("old.txt", "*5XGABEL 13\n");
    write("kept", "kept");
    ASSERT_EQ(param("encode-old old.txt old.pp").status, 0);
    const std::string message = "Undefined Machine Type - no automatic update possible\n";
    const std::string update = message + "quillmark-param: 'old.pp': cannot be updated\n";
    const std::string check = message + "quillmark-param: 'old.pp': the machine type cannot be told"
                                        ", and without it nothing else\n";
    for (const auto& [call, out, err] : std::initializer_list<std::array<std::string, 3>>{
             {QUILLMARK_PARAM " update old.pp new", "", update},
             {QUILLMARK_PARAM " update old.pp kept", "", update},
             {QUILLMARK_PARAM " check old.pp", "old.pp: older generation, coded\n", check},
             {QUILLMARK " -p old.pp -nc old.txt -of /dev/null", "", message}}) {
        const Run run = shell(call);
        EXPECT_EQ(run.status, 99) << call;
        EXPECT_EQ(run.out, out) << call;
        EXPECT_EQ(run.err, err) << call;
    }
    EXPECT_EQ(files(), 3);
    EXPECT_EQ(read("kept"), "kept");
}

TEST_F(ParamTool, RefusesWhatACommandCannotDo) {
    const std::string body = kSection + "RAPID\n";
    write("mill", kMill);
    ASSERT_EQ(param("encode mill coded").status, 0);
    write("unmarked", "##### Header\n" + body);
    write("headless", kHead + "RAPID\nG0\n");
    write("hexless", "##### Header\n\nEC751A45BB0\n");
    write("old", kOld);
    write("long", std::string(80, 'x') + "\n" + std::string(81, 'x') + "\n");
    write("byte255", kHead + kSection + "RAPID\n\xFF\n");
    write("onfirst", "#FILE: UNCODED Header\n" + body);
    write("twice", kHead + "#FILE:       UNCODED\n" + body);
    write("says", "Header\n#FILE: UNCODED for Miller\n" + body);
    write("big", std::string((64U << 20U) + 1, 'x'));
    std::filesystem::create_directory(path("folder"));
    std::filesystem::create_symlink("loop", path("loop"));
    const std::pair<const char*, const char*> rows[] = {
        {"encode coded x", "coded already"},
        {"encode unmarked x", "coded already"},
        {"encode headless x", "nothing to code"},
        {"encode old x", "not of the current format"},
        {"encode byte255 x", "line <\xFF> can't be coded\n"},
        {"encode onfirst onfirst", "decoding would not give back line 1\n"},
        {"encode twice x", "decoding would not give back line 4\n"},
        {"encode says x", "decoding would not give back line 2\n"},
        {"encode-old mill x", "of the current format"},
        {"encode-old long x", "line 2 cannot be coded\n"},
        {"decode old x", "cannot be decoded"},
        {"decode hexless x", "nothing to decode"},
        {"update mill x", "of the current format already"},
        {"update old x", "cannot be updated"},
        {"decode missing x", "No such file"},
        {"decode folder x", "Is a directory"},
        {"decode coded folder", "Is a directory"},
        {"decode coded loop", "Too many levels"},
        {"decode coded missing/x", "No such file"},
        {"decode coded /dev/full", "No space left"},
        {"decode coded - >/dev/full", "No space left"},
        {"check mill >/dev/full", "No space left"},
        {"decode coded - >&-", "cannot be written"},
        {"decode coded /dev/stdout >&-", "cannot be written"},
        {"check mill >&-", "cannot be written"},
        {"--help >&-", "cannot be written"},
        {"check /dev/zero", "line 1 holds a byte 0"},
        {"check big", "more than 64 MiB"},
    };
    const long before = files();
    for (const auto& [call, message] : rows) {
        const Run run = param(call);
        EXPECT_EQ(run.status, 1) << call;
        EXPECT_THAT(run.err, HasSubstr(message)) << call;
        EXPECT_THAT(run.err.substr(run.err.rfind('\n', run.err.size() - 2) + 1),
                    StartsWith("quillmark-param: "))
            << call;
        EXPECT_FALSE(exists("x")) << call;
    }
    EXPECT_EQ(files(), before);
    EXPECT_EQ(read("onfirst"), "#FILE: UNCODED Header\n" + body);
    EXPECT_EQ(shell(QUILLMARK " --help >&-").status, 1);
    for (const char* const call : {"", "decode a", "decode a b c", "check a b", "unknown a",
                                   "--help decode", "check ''", "check -x"}) {
        const Run run = param(call);
        EXPECT_EQ(run.status, 2) << call;
        EXPECT_THAT(run.err, StartsWith("usage: quillmark-param encode IN OUT\n")) << call;
    }
    EXPECT_THAT(param("--help").out, HasSubstr("Exit status"));
    EXPECT_THAT(param("--version").out, StartsWith("quillmark-param "));
}

TEST_F(ParamTool, WritesItsOutputWholeWhereverItGoes) {
    write("file", kMill);
    ASSERT_EQ(shell("chmod 0640 file; ln -s file link; mkdir folder; ln -s folder/new far; "
                    "ln -s far farther; " QUILLMARK_PARAM " encode link link")
                  .status,
              0);
    EXPECT_THAT(read("file"), Not(HasSubstr("RAPID")));
    for (const char* const call : {"decode file -", "decode - - <file", "decode file /dev/stdout",
                                   "decode file /dev/stdout | cat"}) {
        EXPECT_EQ(param(call).out, kMill) << call;
    }
    EXPECT_EQ(shell("echo first; " QUILLMARK_PARAM " decode file /dev/stdout; echo last").out,
              "first\n" + kMill + "last\n");
    ASSERT_EQ(shell("umask 027; " QUILLMARK_PARAM " decode file farther").status, 0);
    EXPECT_EQ(read("folder/new"), kMill);
    EXPECT_EQ(shell("stat -c '%A %n' *; stat -c %A folder/new").out,
              "lrwxrwxrwx far\nlrwxrwxrwx farther\n-rw-r----- file\ndrwxr-xr-x folder\n"
              "lrwxrwxrwx link\n-rw-r-----\n");
}

TEST_F(ParamTool, PresentsNoCorruptFileAsSuccess) {
    write("mill", kMill);
    write("oldtext", kOld);
    write("part.nc", kProgram);
    ASSERT_EQ(shell(QUILLMARK_PARAM " encode mill coded; " QUILLMARK_PARAM
                                    " encode-old oldtext old; "
                                    "sed 4q coded >head; sed 1,4d coded >tail")
                  .status,
              0);
    struct Row {
        const char* make; // the corrupt file
        int code;         // of the conversion
        const char* message;
    };
    const Row rows[] = {
        {"sed '5s/1F$/2F/' coded", 307, "Checksum-Error"},
        {"cat head; printf AB; cat tail", 307, ""}, // an even number of digits
        {"cat head; tail -c +2 tail", 307, "can't be decoded"},
        {"cat head; echo text", 307, "line <text> can't be decoded"},
        {"head -c -3 coded", 307, "can't be decoded"},
        {"cat head; head -c 5000 " QUILLMARK " | tr -d '\\0'", 307, "can't be decoded"},
        {"cat head; head -c 10000000 /dev/zero | tr '\\0' A", 307, "can't be decoded"},
        {"sed 5d coded", 307, "Checksum-Error"},
        {"sed '1s/^5C/5D/' old", 306, "Checksum-Error"},
        {"sed 2d old", 306, "can't be decoded"},
        {"printf '%082d\\n' 0; cat old", 306, "too long"},
        {"head -c -100 old", 306, "can't be decoded"},
        {"tail -c +2 old", 306, "can't be decoded"},
        {"cat oldtext", 306, "can't be decoded"},
        {"head -c 10000000 /dev/zero | tr '\\0' A", 306, "too long"},
        {"head -c 5000 " QUILLMARK " | tr -d '\\0'", 306, ""},
        {"true", 302, "empty"},
        {"printf 'a\\n'; head -c 5000 /dev/zero", 306, "line 2 holds a byte 0"},
    };
    for (const Row& row : rows) {
        ASSERT_EQ(
            shell("{ " + std::string(row.make) + "; } >bad; ! cmp -s bad coded && ! cmp -s bad old")
                .status,
            0);
        for (const char* const call : {"decode bad x", "update bad x", "check bad"}) {
            const Run run = param(call);
            const std::string what = row.make + std::string(": ") + call;
            EXPECT_EQ(run.status, 1) << what;
            EXPECT_THAT(run.err, HasSubstr("quillmark-param: ")) << what;
            const bool isRefused = row.code == 307 && call[0] == 'u'; // the other generation
            EXPECT_THAT(run.err, HasSubstr(isRefused ? "" : row.message)) << what;
            EXPECT_LT(run.err.size(), 2000U) << what;
            EXPECT_FALSE(exists("x")) << what;
        }
        const std::string both = param("decode bad x 2>&1").out; // in the order of printing
        EXPECT_EQ(both.rfind("quillmark-param: "), both.rfind('\n', both.size() - 2) + 1) << both;
        const Run front = shell(QUILLMARK " -p bad -nc part.nc -of part.apt");
        EXPECT_EQ(front.status, row.code & 0xFF) << row.make;
        EXPECT_THAT(front.err, HasSubstr("quillmark: error " + std::to_string(row.code)));
    }
    // Without the line above the coded part nothing tells that there is one.
    ASSERT_EQ(shell("sed 4d coded >bad").status, 0);
    EXPECT_THAT(param("decode bad x").err, HasSubstr("nothing to decode"));
    EXPECT_THAT(shell(QUILLMARK " -p bad -nc part.nc -of part.apt").err,
                HasSubstr("configures no movement command"));
}

} // namespace
