#include "softCommon/CDebugUtil/dbtrace.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

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

    std::string logged() const {
        std::fflush(debugStream());
        return readFile(m_log);
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
        dbexit();
        EXPECT_EQ(db_root, nullptr);
    }
}

TEST_F(DebugTrace, SettingsArePrintedAboveLevelZeroAndUsersAreCounted) {
    EXPECT_EQ(dbinit(), 0);
    dbexit();
    dbexit();
    setenv("DEBUGLEVEL", "TRACE", 1);
    setenv("DEBUG_LIST_ON", "a,b", 1);
    setenv("DEBUG_LIST_TRACE", "", 1);
    EXPECT_EQ(dbinit(), 0);
    EXPECT_EQ(dbinit_no(), 0);
    dbexit();
    dbexit();
    EXPECT_EQ(dboutpr(), -1);
    EXPECT_EQ(logged(), kRefused + "Error in dbexit. Rc=-1\n" + kRule +
                            "DEBUGLEVEL=3 (Default)\n"
                            "(0) DEBUG_LIST_OFF    =<NULL>\n(1) DEBUG_LIST_LSKIP  =<NULL>\n"
                            "(2) DEBUG_LIST_ON     =a,b\n(3) DEBUG_LIST_TRACE  =\n"
                            "(4) DEBUG_LIST_ALL    =<NULL>\n(5) DEBUG_LIST_LSHOW  =<NULL>\n" +
                            kRule + kRule + "Warning: Debug already initialized (initcounter=1)\n" +
                            kRule + kRule + "Warning: Debug not freed yet, initcounter=2\n" +
                            kRule + kRefused);
}

TEST_F(DebugTrace, StreamFollowsTheEnvironmentAndTheLogFileSurvivesItsUsers) {
    const auto streamOf = [](const char* logFile) {
        logFile == nullptr ? unsetenv("DEBUG_LOGFILE") : setenv("DEBUG_LOGFILE", logFile, 1);
        EXPECT_EQ(dbinit_no(), 0);
        dbexit();
        return stddbg;
    };
    m_folder.write("log", "kept\n");
    (void)streamOf(m_log.c_str());
    std::fputs("later\n", streamOf(nullptr));
    EXPECT_EQ(logged(), "kept\nlater\n");
    EXPECT_EQ(streamOf("stderr"), stderr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(streamOf("/no such folder/log"), stdout);
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("open Debug logfile: "), 0U);
}

} // namespace
