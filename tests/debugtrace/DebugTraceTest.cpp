#include "softCommon/CDebugUtil/dbtrace.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>

namespace {

const std::string kRule = std::string(51, '=') + "\n";
const std::string kRefused = "Debugging nicht initialisiert!\nBitte zuerst dbinit aufrufen!\n";

/// A process without any trace setting, whose trace goes to a log file of the test's own.
class DebugTrace : public testing::Test {
protected:
    DebugTrace() {
        clearenv();
        setenv("DEBUG_LOGFILE", m_log.c_str(), 1);
        stddbg = nullptr;
    }
    ~DebugTrace() override {
        // Another choice of stream closes the log file that this test opened.
        setenv("DEBUG_LOGFILE", "stdout", 1);
        dbinit_no();
        dbexit();
    }

    const TempFolder m_folder;
    const std::string m_log = m_folder.path("log");
};

TEST_F(DebugTrace, LevelIsAnExactKeyword) {
    for (const std::string keyword :
         {"LSKIP1", "LSHOW5", "TRACE3", "ON2", "OFF0", "on0", "TRACE 0"}) {
        setenv("DEBUGLEVEL", keyword.substr(0, keyword.size() - 1).c_str(), 1);
        ASSERT_EQ(dbinit_no(), 0);
        EXPECT_EQ(db_root->level, keyword.back() - '0') << keyword;
        EXPECT_EQ(db_actual, db_root);
        dbexit();
        EXPECT_TRUE(db_root == nullptr && db_actual == nullptr);
    }
}

TEST_F(DebugTrace, SettingsArePrintedAboveLevelZeroAndUsersAreCounted) {
    const auto use = [] {
        EXPECT_EQ(dbinit(), 0);
        EXPECT_EQ(dbinit_no(), 0);
        dbexit();
    };
    use();
    dbexit();
    EXPECT_EQ(dboutpr(), -1);
    dbexit();
    EXPECT_EQ(readFile(m_log), kRefused + kRefused + "Error in dbexit. Rc=-1\n");
    setenv("DEBUGLEVEL", "LSKIP", 1);
    setenv("DEBUG_LIST_ON", "a,b", 1);
    setenv("DEBUG_LIST_TRACE", "", 1);
    m_folder.write("log", "");
    EXPECT_EQ(dbinit(), 0);
    const std::string settings = kRule +
                                 "DEBUGLEVEL=1 (Default)\n"
                                 "(0) DEBUG_LIST_OFF    =<NULL>\n(1) DEBUG_LIST_LSKIP  =<NULL>\n"
                                 "(2) DEBUG_LIST_ON     =a,b\n(3) DEBUG_LIST_TRACE  =\n"
                                 "(4) DEBUG_LIST_ALL    =<NULL>\n(5) DEBUG_LIST_LSHOW  =<NULL>\n" +
                                 kRule;
    EXPECT_EQ(readFile(m_log), settings); // a host may never come back: it is in the file
    use();
    const auto warning = [](const std::string& text) { return kRule + text + "\n" + kRule; };
    EXPECT_EQ(readFile(m_log),
              settings + warning("Warning: Debug already initialized (initcounter=1)") + settings +
                  warning("Warning: Debug already initialized (initcounter=2)") +
                  warning("Warning: Debug not freed yet, initcounter=3"));
    dbexit();
    dbexit();
}

TEST_F(DebugTrace, StreamFollowsTheEnvironmentAndTheLogFileSurvivesItsUsers) {
    const auto streamOf = [](const char* logFile) {
        logFile == nullptr ? unsetenv("DEBUG_LOGFILE") : setenv("DEBUG_LOGFILE", logFile, 1);
        EXPECT_EQ(dbinit_no(), 0);
        dbexit();
        return stddbg;
    };
    m_folder.write("log", "kept\n");
    const int log = fileno(streamOf(m_log.c_str()));
    std::fputs("later\n", streamOf(nullptr));
    EXPECT_EQ(streamOf("stderr"), stderr);
    EXPECT_EQ(readFile(m_log), "kept\nlater\n");
    EXPECT_EQ(fcntl(log, F_GETFD), -1); // the later start closed it
    testing::internal::CaptureStderr();
    EXPECT_EQ(streamOf("/no such folder/log"), stdout);
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("open Debug logfile: "), 0U);
}

} // namespace
