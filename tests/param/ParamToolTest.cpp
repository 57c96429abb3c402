#include "tests/param/ParamTool.h"

#include <random>
#include <sys/stat.h>
#include <vector>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string kHead = "##### Header\n#FILE:       UNCODED\n#VERSION:    V1R5\n";
const std::string kSection = "##### Toolmachine Section (TDB)\n";
const std::string kMill = kHead + kSection +
                          "MFG_CLASS_NAME\nNC_STANDARD_MACHINES\n"
                          "RAPID\nG0\nLINEAR_INTERPOLATION\nG1\n"
                          "1ST_COORDINATE\nX\n1\nM5.3\n2ND_COORDINATE\nY\n1\nM5.3\n"
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

TEST_F(ParamTool, MarksWhatItDecodedAsPlain) {
    write("plain", kMill);
    ASSERT_EQ(param("encode plain coded").status, 0);
    const std::string coded = read("coded");
    const std::string emptied = "##### Header\n\n";
    ASSERT_THAT(coded, StartsWith(emptied));
    const std::string tail = coded.substr(emptied.size());
    write("other", "##### Header\n#FILE:       CODED\n" + tail);
    write("none", "##### Header\n" + tail);
    for (const char* const name : {"coded", "other", "none", "plain"}) {
        EXPECT_EQ(param("decode " + std::string(name) + " -").out, kMill) << name;
    }
}

TEST_F(ParamTool, GivesTheSameAPTWhetherCodedOrNot) {
    write("plain.pp", kMill);
    write("part.nc", kProgram);
    ASSERT_EQ(param("encode plain.pp coded.pp").status, 0);
    for (const char* const name : {"plain", "coded"}) {
        const Run run = shell(QUILLMARK " -p " + std::string(name) + ".pp -nc part.nc -of " + name);
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err, IsEmpty());
    }
    EXPECT_THAT(read("plain"), HasSubstr("GOTO/"));
    EXPECT_EQ(read("coded"), read("plain"));
}

TEST_F(ParamTool, UpdatesAFileWithEveryOldKey) {
    ASSERT_EQ(param("encode-old " UPDATE_DATA "allKeys.old old.pp").status, 0);
    ASSERT_EQ(param("update old.pp new.pp").status, 0);
    EXPECT_EQ(shell("cmp new.pp " UPDATE_DATA "allKeys.new").status, 0);
}

TEST_F(ParamTool, WarnsOfOldFilesThatCannotMove) {
    const char* const warning = "warning: ";
    write("old.txt", kOld);
    write("part.nc", kProgram);
    ASSERT_EQ(param("encode-old old.txt old.pp").status, 0);
    const Run front = shell(QUILLMARK " -p old.pp -nc part.nc -of part.apt");
    const Run update = param("update old.pp new.pp");
    const Run check = param("check old.pp");
    for (const Run& run : {front, update, check}) {
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err + run.out, HasSubstr("configures no movement command"));
        EXPECT_THAT(run.err + run.out, HasSubstr(warning));
    }
    EXPECT_THAT(read("new.pp"), StartsWith("##### Header\n#FILE:       UNCODED\n"));
    EXPECT_THAT(read("new.pp"), HasSubstr("##### Address Section\nCOMMENT_START\n(\n"));
    // What the update wrote is used, and with movements it moves.
    write("new.pp", read("new.pp") + "RAPID\nG0\nLINEAR_INTERPOLATION\nG1\n"
                                     "1ST_COORDINATE\nX\n1\nM5.3\n2ND_COORDINATE\nY\n1\nM5.3\n");
    const Run updated = shell(QUILLMARK " -p new.pp -nc part.nc -of part.apt");
    EXPECT_THAT(updated.err, IsEmpty());
    EXPECT_THAT(read("part.apt"), HasSubstr("GOTO/"));
}

TEST_F(ParamTool, LeavesNothingBehindWhenTheMachineIsUnknown) {
    write("old.txt", "*5XGABEL 13\n");
    write("kept", "kept");
    write("part.nc", kProgram);
    ASSERT_EQ(param("encode-old old.txt old.pp").status, 0);
    const std::string message = "Undefined Machine Type - no automatic update possible\n";
    for (const char* const arguments :
         {"update old.pp new", "update old.pp kept", "check old.pp"}) {
        const Run run = param(arguments);
        EXPECT_EQ(run.status, 99);
        EXPECT_EQ(run.err, message + "quillmark-param: 'old.pp': cannot be updated\n");
        EXPECT_THAT(run.out, IsEmpty());
    }
    EXPECT_EQ(files(), 4);
    EXPECT_EQ(read("kept"), "kept");
    const Run front = shell(QUILLMARK " -p old.pp -nc part.nc -of part.apt");
    EXPECT_EQ(front.status, 99);
    EXPECT_EQ(front.err, message);
}

TEST_F(ParamTool, RefusesWhatACommandCannotDo) {
    write("mill", kMill);
    ASSERT_EQ(param("encode mill coded").status, 0);
    write("unmarked", "##### Header\n" + kSection + "RAPID\nG0\n");
    write("headless", kHead + "RAPID\nG0\n");
    write("hexless", "##### Header\n\nEC751A45BB0\n");
    write("old", kOld);
    write("long", std::string(80, 'x') + "\n" + std::string(81, 'x') + "\n");
    write("byte255", kHead + kSection + "RAPID\n\xFF\n");
    write("empty", "");
    write("zero", std::string("a\n\0b", 4));
    std::filesystem::create_directory(path("folder"));
    struct Row {
        const char* call;
        const char* message;
    };
    const Row rows[] = {
        {"encode coded x", "coded already"},
        {"encode unmarked x", "coded already"},
        {"encode headless x", "nothing to code"},
        {"encode old x", "not of the current format"},
        {"encode byte255 x", "line <\xFF> can't be coded\n"},
        {"encode-old mill x", "of the current format"},
        {"encode-old long x", "line 2 cannot be coded\n"},
        {"decode old x", "cannot be decoded"},
        {"decode hexless x", "nothing to decode"},
        {"update mill x", "of the current format already"},
        {"update old x", "cannot be updated"},
        {"decode empty x", "the file is empty"},
        {"decode zero x", "line 2 holds a byte 0"},
        {"decode missing x", "No such file"},
        {"decode folder x", "Is a directory"},
        {"decode coded folder", "Is a directory"},
        {"decode coded missing/x", "No such file"},
        {"decode coded /dev/full", "No space left"},
        {"decode coded - >/dev/full", "No space left"},
        {"check mill >/dev/full", "No space left"},
    };
    const long before = files();
    for (const Row& row : rows) {
        const Run run = param(row.call);
        EXPECT_EQ(run.status, 1) << row.call;
        EXPECT_THAT(run.err, HasSubstr(row.message)) << row.call;
        EXPECT_THAT(run.err.substr(run.err.rfind('\n', run.err.size() - 2) + 1),
                    StartsWith("quillmark-param: '"))
            << row.call;
        EXPECT_FALSE(exists("x")) << row.call;
    }
    EXPECT_EQ(files(), before);
    for (const char* const call :
         {"", "decode", "decode a", "decode a b c", "check a b", "unknown a", "--help decode",
          "decode --help x", "check ''", "check -x"}) {
        const Run run = param(call);
        EXPECT_EQ(run.status, 2) << call;
        EXPECT_THAT(run.err, StartsWith("usage: quillmark-param encode IN OUT\n")) << call;
    }
    EXPECT_THAT(param("--help").out, HasSubstr("Exit status"));
    EXPECT_THAT(param("--version").out, StartsWith("quillmark-param "));
}

TEST_F(ParamTool, WritesItsOutputWholeWhereverItGoes) {
    const std::string plain = kMill + "COMMENT_START\n(\n";
    write("file", plain);
    ASSERT_EQ(chmod(path("file").c_str(), 0640), 0);
    std::filesystem::create_symlink("file", path("link"));
    ASSERT_EQ(param("encode link link").status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_THAT(read("file"), Not(HasSubstr("COMMENT")));
    struct stat status {};
    ASSERT_EQ(stat(path("file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    for (const char* const call : {"decode file -", "decode - - <file", "decode file /dev/stdout",
                                   "decode file /dev/stdout | cat"}) {
        EXPECT_EQ(param(call).out, plain) << call;
    }
    EXPECT_EQ(shell("echo first; " QUILLMARK_PARAM " decode file /dev/stdout; echo last").out,
              "first\n" + plain + "last\n");
    ASSERT_EQ(shell("umask 027; " QUILLMARK_PARAM " decode file new").status, 0);
    ASSERT_EQ(stat(path("new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(files(), 3);
}

std::string withoutLine(const std::string& text, int number) {
    std::size_t begin = 0;
    for (; number > 1; --number) {
        begin = text.find('\n', begin) + 1;
    }
    return text.substr(0, begin) + text.substr(text.find('\n', begin) + 1);
}

// The last digit but one of the first coded line, which is the second digit of a byte.
std::string withChangedDigit(std::string coded, std::size_t lineBegin) {
    char& digit = coded[coded.find('\n', lineBegin) - 2];
    digit = digit == 'F' ? 'E' : digit == '9' ? 'A' : static_cast<char>(digit + 1);
    return coded;
}

TEST_F(ParamTool, PresentsNoCorruptFileAsSuccess) {
    write("mill", kMill);
    write("oldtext", kOld);
    write("part.nc", kProgram);
    ASSERT_EQ(param("encode mill coded").status, 0);
    ASSERT_EQ(param("encode-old oldtext old").status, 0);
    const std::string coded = read("coded");
    const std::string old = read("old");
    const std::size_t body = coded.find(kSection) + kSection.size();
    std::string changedOld = old;
    changedOld[1] = changedOld[1] == '7' ? '8' : '7';
    std::mt19937 random(5);
    std::string binary(5000, '\0');
    for (char& byte : binary) {
        byte = static_cast<char>(1 + random() % 255);
    }
    struct Row {
        const char* what;
        std::string content;
        int code; // of the conversion
        const char* message;
    };
    const Row rows[] = {
        {"changed digit", withChangedDigit(coded, body), 307, "Checksum-Error"},
        {"even number of digits", coded.substr(0, body) + "AB" + coded.substr(body), 307, ""},
        {"one digit less", coded.substr(0, body) + coded.substr(body + 1), 307, "can't be decoded"},
        {"no hex", coded.substr(0, body) + "text\n", 307, "line <text> can't be decoded"},
        {"cut in a line", coded.substr(0, coded.size() - 3), 307, "can't be decoded"},
        {"binary part", coded.substr(0, body) + binary, 307, "can't be decoded"},
        {"10 MB line", coded.substr(0, body) + std::string(10'000'000, 'A'), 307,
         "can't be decoded"},
        {"line missing", withoutLine(coded, 5), 307, "Checksum-Error"},
        {"old: changed digit", changedOld, 306, "Checksum-Error"},
        {"old: line missing", withoutLine(old, 2), 306, "can't be decoded"},
        {"old: 82 characters", std::string(82, '0') + "\n" + old, 306, "too long"},
        {"old: cut in a record", old.substr(0, old.size() - 100), 306, "can't be decoded"},
        {"old: one digit less", old.substr(1), 306, "can't be decoded"},
        {"old: no hex", kOld, 306, "can't be decoded"},
        {"old: 10 MB line", std::string(10'000'000, 'A'), 306, "too long"},
        {"binary", binary, 306, ""},
        {"empty", "", 302, "empty"},
        {"zeros", std::string(5000, '\0'), 306, "byte 0"},
    };
    for (const Row& row : rows) {
        write("bad", row.content);
        for (const char* const call : {"decode bad x", "update bad x", "check bad"}) {
            const Run run = param(call);
            EXPECT_EQ(run.status, 1) << row.what << ": " << call;
            EXPECT_THAT(run.err, HasSubstr("quillmark-param: ")) << row.what << ": " << call;
            const bool isRefused = row.code == 307 && call[0] == 'u'; // the other generation
            EXPECT_THAT(run.err, HasSubstr(isRefused ? "" : row.message)) << row.what << call;
            EXPECT_LT(run.err.size(), 2000U) << row.what << ": " << call;
            EXPECT_FALSE(exists("x")) << row.what << ": " << call;
        }
        const std::string both = param("decode bad x 2>&1").out; // in the order of printing
        EXPECT_EQ(both.rfind("quillmark-param: "), both.rfind('\n', both.size() - 2) + 1) << both;
        const Run front = shell(QUILLMARK " -p bad -nc part.nc -of part.apt");
        EXPECT_EQ(front.status, row.code & 0xFF) << row.what;
        EXPECT_THAT(front.err, HasSubstr("quillmark: error " + std::to_string(row.code)))
            << row.what;
    }
    // Without the line above the coded part nothing tells that there is one.
    write("bad", withoutLine(coded, 4));
    EXPECT_THAT(param("decode bad x").err, HasSubstr("nothing to decode"));
    EXPECT_THAT(shell(QUILLMARK " -p bad -nc part.nc -of part.apt").err,
                HasSubstr("configures no movement command"));
}

} // namespace
