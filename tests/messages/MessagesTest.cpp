#include "tests/messages/MessageFixture.h"

#include "tests/support/endOf.h"

#include <gmock/gmock.h>

#include <chrono>
#include <fstream>
#include <map>

using testing::ExitedWithCode;
using testing::HasSubstr;

namespace {

using Messages = MessageFixture;

std::string unknownLine(int msgnr) {
    return joined("\nCatGetLongMessage: MsgNr. = ", msgnr, " unknown. isev=5\n\n");
}

std::string block(int msgnr, int severity, const std::string& text) {
    return joined(kRule, "MSG.NR.: ", msgnr, "\n", text, "\nSEVERITY: ", severity, "\n", kRule);
}

TEST_F(Messages, TextAndSeverityAreLookedUp) {
    const std::string wide(90, 'w'), ten = "&l\n&l\n&l\n&l\n&l\n&l\n&l\n&l\n&l\n&l\n";
    useMessages("/ comment\n&stray text\n  102 4 later words\n&  second\r\n&   \n& message   \n"
                "00101 3\n/ no text line\n&not reached\n00102 1\n&not the first\n00103 +2\n&" +
                wide + "\n1234567 2\n&five columns\n\n00104\t-7x\n&" + std::string(253, ' ') +
                "00105 4\n&" + std::string("nul\0end\n", 8) + "00106 1\n" + ten + "00107 1\n" +
                ten + "&l\n00108\n&no severity\n00110 2\n&&last");
    const std::string kUnset = "guerlm: error scanning severity from error file (error no. ";
    struct Row {
        int msgnr;
        std::string text;
        int severity;
        std::string traced = "";
    };
    severityLevel = 9;
    for (const Row& row :
         {Row{101, "", 9}, // without text the severity of the last message stays
          Row{102, "second\nmessage", 4}, Row{103, wide.substr(0, 70), 2},
          Row{12345, "five columns", 2}, Row{104, "nul", -7},
          Row{105, "(none)", 5, unknownLine(105)}, // the rest of a long line is no header
          Row{106, "l\nl\nl\nl\nl\nl\nl\nl\nl\nl", 1}, Row{107, "(none)", 5, unknownLine(107)},
          Row{108, "(none)", 5, kUnset + "108)\n" + unknownLine(108)}, Row{110, "&last", 2},
          Row{0, "(none)", 5, kUnset + "0)\n" + unknownLine(0)}}) { // the empty line
        EXPECT_EQ(taken(CatGetLongMessage(row.msgnr)), row.text) << row.msgnr;
        EXPECT_EQ(severityLevel, row.severity) << row.msgnr;
        EXPECT_EQ(traced(), row.traced);
    }
}

TEST_F(Messages, BlocksAreExact) {
    const std::string kStub = "guersm (oc_errHndlg) not implemented yet!\n";
    useMessages("90001 4\n&Routine &C01\n&twice\n90003 5\n");
    CatSetErrPar(kMessageParString, "p3Parse", kMessageParEnd);
    fehler(90001);
    EXPECT_EQ(traced(), block(90001, 4, "Routine p3Parse\ntwice"));
    CatStderrMessage(90001);
    EXPECT_EQ(traced(), kRule + "MSG.NR.:  90001\nRoutine p3Parse\ntwice\nSEVERITY: 4\n" + kRule);

    // Without text lines the short text stands in; its severity 0 takes the fatal one back.
    fehler(90003);
    EXPECT_EQ(traced(), kStub + block(90003, 0, ""));
    // Other than CatStderrMessage, fehler knows no short text for an unknown number.
    CatStderrMessage(7);
    EXPECT_EQ(traced(), kRule + unknownLine(7) + kStub + "MSG.NR.:  7\n\nSEVERITY: 0\n" + kRule);
    EXPECT_EQ(endOf([] { fehler(7); }).status, 7);
    EXPECT_EQ(traced(),
              unknownLine(7) + block(7, 5, " --- no Messagetext --- ") + "Program aborted.\n");
}

TEST_F(Messages, PrintersAreReplaceableAndMayReport) {
    useMessages("00001 1\n&one\n00002 2\n&two\n");
    // While a stacked message is printed, it is off the stack already.
    const auto reporting = [](std::int32_t severity, std::int32_t msgnr, const char* text) {
        std::fprintf(stddbg, "%d %d %s\n", severity, msgnr, text);
        if (msgnr == 1) {
            fehler(2);
        }
        return 1;
    };
    const auto second = [](std::int32_t, std::int32_t msgnr, const char*) {
        return std::fprintf(stddbg, "after %d\n", msgnr);
    };
    EXPECT_EQ(CatInitErrorFehlerFuncs(reporting, second), 0);
    SetErrStackPar(1, 0);
    fehler(9);
    EXPECT_EQ(traced(), "1 1 one\n2 2 two\nafter 2\nafter 1\n");
    EXPECT_EQ(CatInitErrorFehlerFuncs(nullptr, nullptr), 0);
    fehler(1);
    EXPECT_EQ(traced(), block(1, 1, "one"));
}

TEST_F(Messages, MessageFileMustBeReadable) {
    useMessages("00001 4\n&old file\n");
    setenv("QMMISSIN", "/no such folder/file", 1);
    const std::string rows[][3] = {
        {"QMMISSINGFILE", "can't open file: <QMMISSIN>\n        QMMISSIN=/no such folder/file<\n",
         "QMMISSIN"},
        {"NO  ", "Environmentvariable <NO> for Messagefile not defined!\n", "NO"}};
    for (const auto& [member, line, shown] : rows) {
        const std::string lines = "gueuse: " + line + "Error in gueuse. Rc=1\n" + unknownLine(1);
        EXPECT_EQ(endOf([&] { CatInitError(member.c_str()); }).status, 1);
        EXPECT_EQ(traced(), lines + block(1, 5, " --- no Messagetext --- ") + "Program aborted.\n");
        EXPECT_EQ(errorFile, nullptr);
        // A printer that takes the severity back lets the code return.
        CatInitErrorFehlerFuncs([](int, int, const char*) { return severityLevel = 0; }, nullptr);
        EXPECT_EQ(CatInitError(member.c_str()), 1);
        CatInitErrorFehlerFuncs(nullptr, nullptr);
        EXPECT_EQ(traced(),
                  lines + "CatInitError: member <" + shown + "> cannot be accessed! (rc=1)\n");
    }
}

TEST_F(Messages, StackKeepsParametersUntilTheyAreRefused) {
    const auto L = kMessageParLong, D = kMessageParDouble, S = kMessageParString;
    const std::string s79(79, 's'), s81 = s79 + "tu";
    const char* const none = nullptr;
    EXPECT_EQ(SetErrStackPar(1, L, 0x100000007L, D, 2.5, S, none, S, s81.c_str(), 0), 0);
    EXPECT_EQ(SetErrStackPar(2, S, "1", S, "2", S, "3", S, "4", S, "5", S, "6", 0), 3);
    EXPECT_EQ(SetErrStackPar(3, L, 1L, L, 2L, L, 3L, L, 4L, L, 5L, L, 6L, L, 7L, L, 8L, L, 9L, L,
                             10L, L, 11L, L, 12L, L, 13L, D, 1.5, 0),
              3);
    EXPECT_EQ(SetErrStackPar(5, L, 7L, 4, 8L, 0), 2);
    const ErrorStackRecord* record = softErrors;
    EXPECT_EQ(record->i[0], 7); // narrowed to 32 bits
    EXPECT_STREQ(record->c[0], "(null)");
    EXPECT_EQ(record->c[1], s79);
    EXPECT_STREQ(record->next->c[4], "5");
    EXPECT_EQ(record->next->next->i[11], 12);
    EXPECT_EQ(record->next->next->r[0], 0.0);
    EXPECT_EQ(record->next->next->next->next, nullptr);
    freeErrorStack();
    SetErrStackPar(-9, L, -5L, D, 0.5, S, "x", 0);
    dbgErrorStack();
    const std::string dump = traced();
    for (const char* const line :
         {"Fehlerstack     rc=-9\n l_softErrors->i[0] = -5\n", "i[11] = 0\n",
          " l_softErrors->r[0] = 0.500000\n", " l_softErrors->c[0] = <x>\n", "c[4] = <>\n"}) {
        EXPECT_THAT(dump, HasSubstr(line));
    }
}

TEST_F(Messages, CurrentParametersAreReplacedOnlyByAGoodList) {
    const auto L = kMessageParLong, D = kMessageParDouble, S = kMessageParString;
    EXPECT_EQ(CatSetErrPar(S, std::string(81, 's').c_str(), S, "b", D, 1.0, 0), 0);
    EXPECT_EQ(error_charlen[0], 80);
    EXPECT_EQ(std::string(error_char[1].data(), 80), joined("b", std::string(79, ' ')));
    EXPECT_EQ(CatSetErrPar(L, 1L, 99, 0), 2);
    EXPECT_EQ(CatSetErrPar(S, "", S, "", S, "", S, "", S, "", S, "", 0), 3);
    EXPECT_EQ(error_nbchar * 100 + error_ni4 * 10 + error_nr8, 201);
}

TEST_F(Messages, StackedMessagesStandForTheNumberReported) {
    useMessages("00001 1\n&one &I01 &C01.\n00002 2\n&two &I01 &C01.\n00003 3\n&three\n");
    SetErrStackPar(2, kMessageParLong, 22L, kMessageParString, "b", 0);
    SetErrStackPar(1, kMessageParLong, 11L, 0);
    fehler(3);
    EXPECT_EQ(traced(), block(2, 2, "two 22 b.") + block(1, 1, "one 11 ."));
    EXPECT_EQ(softErrors, nullptr);
    fehler(3);
    EXPECT_EQ(traced(), block(3, 3, "three"));
}

TEST_F(Messages, FatalMessageJumpsBackWithAnEmptyStack) {
    useMessages("00001 1\n&note\n00300 5\n&fatal\n");
    std::jmp_buf back;
    const int value = setjmp(back);
    if (value == 0) {
        p_dllExitJump = &back;
        SetErrStackPar(1, 0);
        SetErrStackPar(300, 0);
        SetErrStackPar(1, 0);
        fehler(9);
        ADD_FAILURE() << "returned from a fatal message";
    }
    EXPECT_EQ(value, 300);
    EXPECT_EQ(softErrors, nullptr);
    EXPECT_EQ(traced(), block(1, 1, "note") + block(300, 5, "fatal") + "Module aborted.\n");
}

TEST_F(Messages, FatalMessageExitsWithItsNumber) {
    EXPECT_EXIT(
        {
            std::fclose(std::exchange(stddbg, stderr));
            fehler(90001);
        },
        ExitedWithCode(90001 & 0xFF),
        "MSG.NR.: 90001\n --- no Messagetext --- \nSEVERITY: 5\n\\*{50}\nProgram aborted.\n$");
}

TEST_F(Messages, ShippedFileCoversEveryNumber) {
    setenv("QMTEST", QUILLMARK_MESSAGE_FILE, 1);
    ASSERT_EQ(CatInitError("QMTEST"), 0);
    std::map<int, int> headers;
    std::ifstream file(QUILLMARK_MESSAGE_FILE);
    for (std::string line; std::getline(file, line);) {
        EXPECT_LE(line.size(), 71U) << line;
        if (line[0] != '/' && line[0] != '&') {
            ++headers[std::stoi(line.substr(0, 5))];
        }
    }
    CatSetErrPar(kMessageParString, "vpVarPutDbl", 0);
    for (const int msgnr :
         {1,   100, 200, 201, 202,   203,   300,   301,   302,   303,   304,   305,
          306, 307, 345, 400, 39999, 90001, 90003, 90004, 90005, 90011, 90503, 90518}) {
        const std::string text = taken(CatGetLongMessage(msgnr));
        EXPECT_EQ(headers[msgnr], 1) << msgnr;
        EXPECT_EQ(text.find("vpVarPutDbl") != std::string::npos, msgnr > 90000) << text;
        EXPECT_TRUE(severityLevel >= 1 && severityLevel <= 5) << msgnr;
        headers.erase(msgnr);
    }
    EXPECT_TRUE(headers.empty());
    EXPECT_EQ(traced(), "");
}

// Prints the figure of docs/messages.md.
TEST_F(Messages, LookUpCostOfTheLastOfTenThousand) {
    std::ostringstream content;
    for (int msgnr = 10000; msgnr < 20000; ++msgnr) {
        content << msgnr << " 3\n&Message " << msgnr << " with one line of text, routine &C01\n";
    }
    useMessages(content.str());
    constexpr int kLookUps = 20;
    const auto start = std::chrono::steady_clock::now();
    for (int k = 0; k < kLookUps; ++k) {
        EXPECT_THAT(taken(CatGetLongMessage(19999)), HasSubstr("Message 19999 with"));
    }
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - start;
    std::printf("%.2f ms per look-up in a file of %zu bytes\n", spent.count() / kLookUps,
                content.str().size());
}

} // namespace
