#include "include/quillmark_messages.h"
#include "tests/faults/Fault.h"
#include "tests/support/TempFolder.h"
#include "tests/support/endOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <utility>

using testing::HasSubstr;

namespace {

const std::string kRule = std::string(50, '*') + "\n";

// The text of a heap string that the caller owns; "(none)" for null.
std::string taken(char* heapText) {
    std::string text = heapText == nullptr ? "(none)" : heapText;
    std::free(heapText);
    return text;
}

// Gives each test a message file of its own, named by the variable QMTEST, an empty error stack,
// and a trace stream in memory.
class Messages : public testing::Test {
protected:
    Messages() {
        stddbg = open_memstream(&m_trace, &m_traceSize);
        setenv("QMTEST", m_folder.path("messages").c_str(), 1);
    }
    ~Messages() override {
        freeErrorStack();
        CatInitErrorFehlerFuncs(nullptr, nullptr);
        CatSetErrPar(kMessageParEnd);
        std::fclose(std::exchange(stddbg, nullptr));
        std::free(m_trace);
    }

    void useMessages(const std::string& content) const {
        m_folder.write("messages", content);
        ASSERT_EQ(CatInitError("QMTEST"), 0);
    }

    // What was traced since the last call.
    std::string traced() {
        std::fflush(stddbg);
        const std::string all(m_trace, m_traceSize);
        return all.substr(std::exchange(m_seen, all.size()));
    }

    const TempFolder m_folder;
    char* m_trace = nullptr;
    std::size_t m_traceSize = 0;
    std::size_t m_seen = 0;
};

std::string unknownLine(int msgnr) {
    return "\nCatGetLongMessage: MsgNr. = " + std::to_string(msgnr) + " unknown. isev=5\n\n";
}

std::string block(int msgnr, int severity, const std::string& text) {
    return kRule + "MSG.NR.: " + std::to_string(msgnr) + "\n" + text +
           "\nSEVERITY: " + std::to_string(severity) + "\n" + kRule;
}

TEST_F(Messages, TextAndSeverityAreLookedUp) {
    const std::string wide(90, 'w'), ten = "&l\n&l\n&l\n&l\n&l\n&l\n&l\n&l\n&l\n&l\n";
    useMessages("/ comment\n&stray text\n  102 4 later words\n&  second\r\n&   \n& message   \n"
                "00101 3\n/ no text line\n&not reached\n00102 1\n&not the first\n00103 +2\n&" +
                wide + "\n1234567 2\n&five columns\n\n00104\t-7x\n&" + std::string(253, ' ') +
                "00105 4\n&" + std::string("nul\0end\n", 8) + "00106 1\n" + ten + "00107 1\n" +
                ten + "&l\n00108\n&no severity\n00110 2\n&&last");
    const std::string kUnset = "guerlm: error scanning severity from error file (error no. ";
    const std::tuple<int, std::string, int, std::string> rows[] = {
        {101, "", 9, ""}, // without text the severity of the last message stays
        {102, "second\nmessage", 4, ""},
        {103, wide.substr(0, 70), 2, ""},
        {12345, "five columns", 2, ""},
        {104, "nul", -7, ""},
        {105, "(none)", 5, unknownLine(105)}, // the rest of a long line is no header
        {106, "l\nl\nl\nl\nl\nl\nl\nl\nl\nl", 1, ""},
        {107, "(none)", 5, unknownLine(107)},
        {108, "(none)", 5, kUnset + "108)\n" + unknownLine(108)},
        {110, "&last", 2, ""},
        {0, "(none)", 5, kUnset + "0)\n" + unknownLine(0)}}; // the empty line
    severityLevel = 9;
    for (const auto& [msgnr, text, severity, trace] : rows) {
        EXPECT_EQ(taken(CatGetLongMessage(msgnr)), text) << msgnr;
        EXPECT_EQ(severityLevel, severity) << msgnr;
        EXPECT_EQ(traced(), trace);
    }
}

TEST_F(Messages, BlocksAreExact) {
    const std::string kStub = "guersm (oc_errHndlg) not implemented yet!\n";
    useMessages("90001 4\n&Routine &C01\n&twice\n90003 5\n");
    CatSetErrPar(kMessageParString, "p3Parse", kMessageParEnd);
    fehler(90001);
    EXPECT_EQ(traced(), block(90001, 4, "Routine p3Parse\ntwice"));
    // Without text lines the short text stands in; its severity 0 takes the fatal one back.
    fehler(90003);
    EXPECT_EQ(traced(), kStub + block(90003, 0, ""));
    fehler_output_default(3, 8, "its own severity");
    EXPECT_EQ(traced(), block(8, 3, "its own severity"));
    // Other than CatStderrMessage, fehler knows no short text for an unknown number.
    CatStderrMessage(7);
    EXPECT_EQ(traced(), kRule + unknownLine(7) + kStub + "MSG.NR.:  7\n\nSEVERITY: 0\n" + kRule);
    EXPECT_EXIT(fehler(7), testing::ExitedWithCode(7), "");
    EXPECT_EQ(endOf([] { fehler(7); }).status, 7);
    EXPECT_EQ(traced(),
              unknownLine(7) + block(7, 5, " --- no Messagetext --- ") + "Program aborted.\n");
}

TEST_F(Messages, PrintersAreReplaceableAndMayReport) {
    useMessages("00001 1\n&one\n00002 2\n&two\n");
    // While a stacked message is printed, it is off the stack already.
    CatInitErrorFehlerFuncs(
        [](std::int32_t severity, std::int32_t msgnr, const char* text) {
            std::fprintf(stddbg, "%d %d %s\n", severity, msgnr, text);
            msgnr == 1 ? fehler(2) : void();
            return 1;
        },
        [](std::int32_t severity, std::int32_t msgnr, const char*) {
            return std::fprintf(stddbg, "after %d %d\n", severity, msgnr);
        });
    SetErrStackPar(1, 0);
    fehler(9);
    EXPECT_EQ(traced(), "1 1 one\n2 2 two\nafter 2 2\nafter 1 1\n");
}

TEST_F(Messages, MessageFileMustBeReadable) {
    useMessages("00001 4\n&old file\n");
    const int oldFile = fileno(errorFile);
    setenv("QMMISSIN", "/no such folder/file", 1);
    const std::string rows[][3] = {
        {"NO  ", "Environmentvariable <NO> for Messagefile not defined!\n", "NO"},
        {"QMMISSINGFILE", "can't open file: <QMMISSIN>\n        QMMISSIN=/no such folder/file<\n",
         "QMMISSIN"}};
    for (const auto& [member, line, shown] : rows) {
        std::jmp_buf earlier;
        p_dllExitJump = &earlier; // is forgotten first
        EXPECT_EQ(endOf([&] { CatInitError(member.c_str()); }).status, 1);
        EXPECT_THAT(traced(), HasSubstr("Program aborted.\n"));
        EXPECT_EQ(errorFile, nullptr);
        EXPECT_EQ(fcntl(oldFile, F_GETFD), -1);
        // A printer that takes the severity back lets the code return.
        CatInitErrorFehlerFuncs([](int, int, const char*) { return severityLevel = 0; }, nullptr);
        EXPECT_EQ(CatInitError(member.c_str()), 1);
        CatInitErrorFehlerFuncs(nullptr, nullptr);
        EXPECT_EQ(traced(), "gueuse: " + line + "Error in gueuse. Rc=1\n" + unknownLine(1) +
                                "CatInitError: member <" + shown +
                                "> cannot be accessed! (rc=1)\n");
    }
}

TEST_F(Messages, StackKeepsParametersUntilTheyAreRefused) {
    const auto L = kMessageParLong, D = kMessageParDouble, S = kMessageParString;
    const std::string s79(79, 's');
    SetErrStackPar(-9, L, 0x1FFFFFFFBL, D, 0.5, S, static_cast<char*>(nullptr), S,
                   (s79 + "tu").c_str(), 0);
    dbgErrorStack();
    const std::string dump = traced(); // the long is narrowed to 32 bits
    for (const std::string line :
         {"Fehlerstack     rc=-9\n l_softErrors->i[0] = -5\n", "i[11] = 0\n",
          " l_softErrors->r[0] = 0.500000\n", " l_softErrors->c[0] = <(null)>\n", "c[4] = <>\n"}) {
        EXPECT_THAT(dump, HasSubstr(line));
    }
    EXPECT_EQ(softErrors->c[1], s79);
    EXPECT_EQ(SetErrStackPar(2, S, "1", S, "2", S, "3", S, "4", S, "5", S, "6", 0), 3);
    EXPECT_STREQ(softErrors->next->c[4], "5");
    EXPECT_EQ(SetErrStackPar(3, L, 1L, L, 2L, L, 3L, L, 4L, L, 5L, L, 6L, L, 7L, L, 8L, L, 9L, L,
                             10L, L, 11L, L, 12L, D, 1.5, 0),
              3);
    EXPECT_EQ(softErrors->next->next->i[11], 12);
    EXPECT_EQ(SetErrStackPar(5, L, 7L, 4, 8L, 0), 2);
}

TEST_F(Messages, CurrentParametersAreReplacedOnlyByAGoodList) {
    const auto L = kMessageParLong, D = kMessageParDouble, S = kMessageParString;
    EXPECT_EQ(CatSetErrPar(S, std::string(81, 's').c_str(), S, "b", D, 1.0, 0), 0);
    EXPECT_EQ(error_charlen[0], 80);
    EXPECT_EQ(std::string(error_char[1].data(), 80), "b" + std::string(79, ' '));
    EXPECT_EQ(CatSetErrPar(L, 1L, 99, 0), 2);
    EXPECT_EQ(CatSetErrPar(L, 1L, L, 2L, L, 3L, L, 4L, L, 5L, L, 6L, L, 7L, L, 8L, L, 9L, L, 10L, L,
                           11L, L, 12L, L, 13L, 0),
              3);
    EXPECT_EQ(error_nbchar * 100 + error_ni4 * 10 + error_nr8, 201);
}

TEST_F(Messages, FatalMessageJumpsBackWithAnEmptyStack) {
    useMessages("00001 1\n&note &I01 &C01.\n00002 2\n&two &I01\n00300 5\n&fatal\n");
    std::jmp_buf back;
    const int value = setjmp(back);
    if (value == 0) {
        p_dllExitJump = &back;
        SetErrStackPar(1, kMessageParLong, 11L, kMessageParString, "bc", 0);
        SetErrStackPar(2, 0);
        SetErrStackPar(300, 0);
        SetErrStackPar(1, 0);
        fehler(9); // the stacked messages stand for it
        ADD_FAILURE() << "returned from a fatal message";
    }
    EXPECT_EQ(value, 300);
    EXPECT_EQ(softErrors, nullptr);
    EXPECT_EQ(traced(), block(1, 1, "note 11 bc.") + block(2, 2, "two 0") + block(300, 5, "fatal") +
                            "Module aborted.\n");
}

TEST_F(Messages, ShippedFileCoversEveryNumber) {
    setenv("QMTEST", QUILLMARK_MESSAGE_FILE, 1);
    ASSERT_EQ(CatInitError("QMTEST"), 0);
    CatSetErrPar(kMessageParString, "vpVarPutDbl", 0);
    std::string numbers;
    std::ifstream file(QUILLMARK_MESSAGE_FILE);
    for (std::string line; std::getline(file, line);) {
        EXPECT_LE(line.size(), 71U) << line;
        if (line[0] != '/' && line[0] != '&') {
            const int msgnr = std::stoi(line.substr(0, 5));
            const std::string text = taken(CatGetLongMessage(msgnr));
            EXPECT_EQ(text.find("vpVarPutDbl") != std::string::npos, msgnr > 90000) << text;
            EXPECT_TRUE(severityLevel >= 1 && severityLevel <= 5) << msgnr;
            numbers += std::to_string(msgnr) + ' ';
        }
    }
    EXPECT_EQ(numbers,
              "1 39999 100 200 201 202 203 300 301 302 303 304 305 306 307 308 345 400 500 "
              "501 502 503 504 505 506 507 508 509 510 511 90001 90003 90004 90005 90006 90011 "
              "90503 90518 ");
    EXPECT_EQ(traced(), "");
}

TEST_F(Messages, ExhaustedMemoryIsReported) {
    useMessages("00001 2\n&text\n00002 4\n39999 3\n&no memory\n");
    const auto failing = [](long call, const auto& action) {
        testing::internal::CaptureStderr();
        const Fault fault(FaultKind::kMemory, call);
        action();
        return testing::internal::GetCapturedStderr();
    };
    EXPECT_THAT(failing(0, [] { EXPECT_EQ(taken(CatGetLongMessage(1)), "(none)"); }),
                HasSubstr("CatGetLongMessag (malloc): "));
    EXPECT_THAT(failing(1, [] { EXPECT_EQ(taken(CatGetLongMessage(1)), ""); }),
                HasSubstr("CatGetLongMessag (realloc): "));
    EXPECT_EQ(traced(), "Error in CatGetLongMessage. Rc=1\nError in CatGetLongMessage. Rc=1\n");
    EXPECT_THAT(failing(0, [] { CatStderrMessage(7); }),
                HasSubstr("CatGetShortMessage (strdup): "));
    EXPECT_THAT(traced(), HasSubstr("MSG.NR.:  7\n --- no Messagetext ---\nSEVERITY: 0\n"));
    failing(0, [] { EXPECT_EQ(SetErrStackPar(1, kMessageParLong, 5L, 0), 39999); });
    EXPECT_EQ(traced(), block(39999, 3, "no memory"));
}

} // namespace
