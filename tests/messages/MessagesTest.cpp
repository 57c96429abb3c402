#include "tests/messages/MessageFixture.h"

#include "softCommon/CErrorUtil/processEnd.h"

#include <gmock/gmock.h>

#include <chrono>
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

std::string times(int count, const std::string& text) {
    std::string all;
    while (count-- > 0) {
        all += text;
    }
    return all;
}

/// Runs `report` and returns the end of the run that it asks for, in place of ending.
template<class Report>
ProcessEnd endOf(Report report) {
    setProcessEndHook([](void*, const ProcessEnd& end) { throw end; }, nullptr);
    ProcessEnd seen;
    seen.status = -1;
    try {
        report();
    } catch (const ProcessEnd& end) {
        seen = end;
    }
    setProcessEndHook(nullptr, nullptr);
    return seen;
}

TEST_F(Messages, TextAndSeverityAreLookedUp) {
    const std::string wide(90, 'w');
    const std::string content =
        "/ comment\n&stray text\n"
        "  102 4 later words\n&  second\r\n&   \n& message   \n"
        "00101 3\n/ no text line\n&not reached\n"
        "00102 1\n&not the first\n"
        "00103 +2\n&" +
        wide + "\n1234567 2\n&five columns\n\n00104\t-7x\n&" + std::string(253, ' ') +
        "00105 4\n&" + std::string("nul\0end\n", 8) + "00106 1\n" + times(10, "&l\n") +
        "00107 1\n" + times(11, "&l\n") + "00108\n&no severity\n00109 x\n00110 2\n&&last";
    useMessages(content);
    const std::string kUnset = "guerlm: error scanning severity from error file (error no. ";
    struct Row {
        int msgnr;
        std::string text;
        int severity;
        std::string traced = "";
    };
    severityLevel = 9;
    for (const Row& row : {
             Row{101, "", 9}, // without text the severity of the last message stays
             Row{102, "second\nmessage", 4}, Row{103, wide.substr(0, 70), 2},
             Row{12345, "five columns", 2}, Row{104, "nul", -7},
             Row{105, "(none)", 5, unknownLine(105)}, // the rest of a long line is no header
             Row{106, "l\nl\nl\nl\nl\nl\nl\nl\nl\nl", 1}, Row{107, "(none)", 5, unknownLine(107)},
             Row{108, "(none)", 5, kUnset + "108)\n" + unknownLine(108)},
             Row{109, "(none)", 5, kUnset + "109)\n" + unknownLine(109)}, Row{110, "&last", 2},
             Row{-3, "(none)", 5, unknownLine(-3)},
             Row{0, "(none)", 5, kUnset + "0)\n" + unknownLine(0)}, // the empty line
         }) {
        EXPECT_EQ(taken(CatGetLongMessage(row.msgnr)), row.text) << row.msgnr;
        EXPECT_EQ(severityLevel, row.severity) << row.msgnr;
        EXPECT_EQ(traced(), row.traced);
    }
    EXPECT_EQ(taken(CatGetShortMessage(102)), "");
    EXPECT_EQ(severityLevel, 0);
    EXPECT_EQ(traced(), "guersm (oc_errHndlg) not implemented yet!\n");
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
    CatStderrMessage(90003);
    EXPECT_EQ(traced(), kRule + "MSG.NR.:  90003\n\nSEVERITY: 0\n" + kRule);

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
    EXPECT_EQ(pf_foutput, fehler_output_default);
    fehler(1);
    EXPECT_EQ(traced(), block(1, 1, "one"));
}

TEST_F(Messages, MessageFileMustBeReadable) {
    useMessages("00001 4\n&old file\n");
    setenv("QMMISSIN", "/no such folder/file", 1);
    const std::string kAfter = "Error in gueuse. Rc=1\n" + unknownLine(1);
    const auto severityIsTaken = [](std::int32_t, std::int32_t, const char*) {
        return severityLevel = 0;
    };
    struct Row {
        const char* member;
        std::string lines;
        std::string shown;
    };
    for (const Row& row : {
             Row{"QMUNSETVARIABLE",
                 "gueuse: Environmentvariable <QMUNSETV> for Messagefile not defined!\n",
                 "QMUNSETV"},
             Row{"QMMISSINGFILE",
                 "gueuse: can't open file: <QMMISSIN>\n"
                 "        QMMISSIN=/no such folder/file<\n",
                 "QMMISSIN"},
             Row{"NO  ", "gueuse: Environmentvariable <NO> for Messagefile not defined!\n", "NO"},
             Row{nullptr, "gueuse: Environmentvariable <> for Messagefile not defined!\n", ""},
         }) {
        EXPECT_EQ(endOf([&] { CatInitError(row.member); }).status, 1);
        EXPECT_EQ(traced(), row.lines + kAfter + block(1, 5, " --- no Messagetext --- ") +
                                "Program aborted.\n");
        EXPECT_EQ(errorFile, nullptr);
        // A printer that takes the severity back lets the code return.
        CatInitErrorFehlerFuncs(severityIsTaken, nullptr);
        EXPECT_EQ(CatInitError(row.member), 1);
        CatInitErrorFehlerFuncs(nullptr, nullptr);
        EXPECT_EQ(traced(), row.lines + kAfter + "CatInitError: member <" + row.shown +
                                "> cannot be accessed! (rc=1)\n");
    }
}

TEST_F(Messages, StackKeepsParametersUntilTheyAreRefused) {
    const std::string s79(79, 's');
    const std::string s81 = s79 + "tu";
    const auto L = kMessageParLong;
    const auto D = kMessageParDouble;
    const auto S = kMessageParString;
    const char* const none = nullptr;
    EXPECT_EQ(SetErrStackPar(1, L, 0x100000007L, D, 2.5, S, none, S, s81.c_str(), 0), 0);
    EXPECT_EQ(SetErrStackPar(2, S, "1", S, "2", S, "3", S, "4", S, "5", S, "6", 0), 3);
    EXPECT_EQ(SetErrStackPar(3, L, 1L, L, 2L, L, 3L, L, 4L, L, 5L, L, 6L, L, 7L, L, 8L, L, 9L, L,
                             10L, L, 11L, L, 12L, D, 1.5, 0),
              3);
    EXPECT_EQ(SetErrStackPar(4, D, 1., D, 2., D, 3., D, 4., D, 5., D, 6., D, 7., D, 8., D, 9., D,
                             10., D, 11., D, 12., D, 13., 0),
              3);
    EXPECT_EQ(SetErrStackPar(5, L, 7L, 4, 8L, 0), 2);
    EXPECT_EQ(SetErrStackPar(6, 0), 0);

    const ErrorStackRecord* record = softErrors;
    EXPECT_EQ(record->i[0], 7); // narrowed to 32 bits
    EXPECT_STREQ(record->c[0], "(null)");
    EXPECT_EQ(record->c[1], s79);
    record = record->next;
    EXPECT_STREQ(record->c[4], "5");
    record = record->next;
    EXPECT_EQ(record->i[11], 12);
    EXPECT_EQ(record->r[0], 0.0);
    record = record->next;
    EXPECT_EQ(record->r[11], 12.0);
    record = record->next;
    EXPECT_EQ(record->i[0], 7);
    EXPECT_EQ(record->next->msgnr, 6);
    EXPECT_EQ(record->next->next, nullptr);
    freeErrorStack();
    EXPECT_EQ(softErrors, nullptr);

    SetErrStackPar(-9, L, -5L, D, 0.5, S, "x", 0);
    dbgErrorStack();
    std::string dump = "Fehlerstack     rc=-9\n";
    for (int k = 0; k < 12; ++k) {
        dump += joined(" l_softErrors->i[", k, "] = ", k == 0 ? "-5" : "0", "\n");
    }
    for (int k = 0; k < 12; ++k) {
        dump += joined(" l_softErrors->r[", k, "] = ", k == 0 ? "0.500000" : "0.000000", "\n");
    }
    for (int k = 0; k < 5; ++k) {
        dump += joined(" l_softErrors->c[", k, "] = <", k == 0 ? "x" : "", ">\n");
    }
    EXPECT_EQ(traced(), dump);
}

TEST_F(Messages, CurrentParametersAreReplacedOnlyByAGoodList) {
    const std::string s81(81, 's');
    const auto D = kMessageParDouble;
    EXPECT_EQ(CatSetErrPar(kMessageParString, s81.c_str(), kMessageParString, "b", D, 1.0, 0), 0);
    EXPECT_EQ(error_nbchar, 2);
    EXPECT_EQ(error_charlen[0], 80);
    EXPECT_EQ(std::string(error_char[1].data(), 80), joined("b", std::string(79, ' ')));
    EXPECT_EQ(CatSetErrPar(kMessageParLong, 1L, 99, 0), 2);
    EXPECT_EQ(CatSetErrPar(D, 1., D, 2., D, 3., D, 4., D, 5., D, 6., D, 7., D, 8., D, 9., D, 10., D,
                           11., D, 12., D, 13., 0),
              3);
    EXPECT_EQ(error_ni4, 0);
    EXPECT_EQ(error_nr8, 1);
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
    SetErrStackPar(1, 0);
    EXPECT_FALSE(outErrStack());
    EXPECT_EQ(softErrors, nullptr);
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
    fehler(1);
    EXPECT_EQ(traced(), block(1, 1, "note"));
    EXPECT_EQ(endOf([] { fehler2(300); }).kind, ProcessEnd::Kind::kJump);
}

TEST_F(Messages, FatalMessageExitsWithItsNumber) {
    EXPECT_EXIT(
        {
            std::fclose(std::exchange(stddbg, stderr));
            fehler(90001);
        },
        ExitedWithCode(90001 & 0xFF),
        "MSG.NR.: 90001\n --- no Messagetext --- \nSEVERITY: 5\n\\*{50}\nProgram aborted.\n$");
    EXPECT_EXIT(
        {
            std::fclose(std::exchange(stddbg, nullptr));
            dup2(STDERR_FILENO, STDOUT_FILENO);
            CatInitError("QMUNSET");
        },
        ExitedWithCode(1), "^gueuse: Environmentvariable <QMUNSET> .*Program aborted.\n$");
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
        EXPECT_GT(text.size(), 20U) << msgnr;
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
