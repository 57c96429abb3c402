#include "softCommon/CDebugUtil/dbtrace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>
#include <unistd.h>

using testing::HasSubstr;

namespace {

bool g_mallocFails = false;

} // namespace

extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size) {
    return g_mallocFails ? nullptr : __real_malloc(size);
}

namespace {

const std::string kRule = std::string(51, '=') + "\n";
const std::string kNotInitialized =
    "Debugging nicht initialisiert!\nBitte zuerst dbinit aufrufen!\n";
const std::string kExitRefused = kNotInitialized + "Error in dbexit. Rc=-1\n";

std::string settings(int level) {
    return kRule + "DEBUGLEVEL=" + std::to_string(level) +
           " (Default)\n"
           "(0) DEBUG_LIST_OFF    =<NULL>\n"
           "(1) DEBUG_LIST_LSKIP  =<NULL>\n"
           "(2) DEBUG_LIST_ON     =a,b\n"
           "(3) DEBUG_LIST_TRACE  =\n"
           "(4) DEBUG_LIST_ALL    =<NULL>\n"
           "(5) DEBUG_LIST_LSHOW  =<NULL>\n" +
           kRule;
}

/// A process without any trace setting, whose trace goes to a log file of the test's own.
class DebugTrace : public testing::Test {
protected:
    DebugTrace() {
        for (const DebugLevel& row : db_levelList) {
            unsetenv(row.listVariable);
        }
        unsetenv("DEBUGLEVEL");
        setenv("DEBUG_LOGFILE", m_log.c_str(), 1);
        std::filesystem::remove(m_log);
        stddbg = nullptr;
    }
    ~DebugTrace() override {
        while (db_initialized > 0) {
            dbexit();
        }
        // Another choice of stream closes the log file that this test opened.
        setenv("DEBUG_LOGFILE", "stdout", 1);
        dbinit_no();
        dbexit();
        std::filesystem::remove(m_log);
    }

    std::string logged() const {
        std::fflush(debugStream());
        std::ifstream file(m_log);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    const std::string m_log = testing::TempDir() + "debugtrace." + std::to_string(getpid());
};

std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(DebugTrace, LevelIsAnExactKeyword) {
    struct Row {
        const char* keyword;
        int level;
    };
    for (const Row& row :
         {Row{"OFF", 0}, Row{"LSKIP", 1}, Row{"ON", 2}, Row{"TRACE", 3}, Row{"ALL", 4},
          Row{"LSHOW", 5}, Row{"on", 0}, Row{"TRACE ", 0}, Row{"3", 0}, Row{"", 0}}) {
        setenv("DEBUGLEVEL", row.keyword, 1);
        ASSERT_EQ(dbinit_no(), 0);
        EXPECT_EQ(db_root->level, row.level) << row.keyword;
        EXPECT_EQ(db_actual, db_root);
        EXPECT_STREQ(db_root->name, "dbinit");
        dbexit();
        EXPECT_EQ(db_root, nullptr);
        EXPECT_EQ(db_actual, nullptr);
    }
    EXPECT_EQ(logged(), "");
}

TEST_F(DebugTrace, SettingsArePrintedAboveLevelZero) {
    setenv("DEBUG_LIST_ON", "a,b", 1);
    setenv("DEBUG_LIST_TRACE", "", 1);
    EXPECT_EQ(dbinit(), 0);
    EXPECT_EQ(logged(), "");
    dbexit();
    setenv("DEBUGLEVEL", "TRACE", 1);
    EXPECT_EQ(dbinit(), 0);
    setenv("DEBUG_LIST_ON", "too late", 1);
    setenv("DEBUGLEVEL", "OFF", 1);
    EXPECT_EQ(dboutpr(), 0);
    EXPECT_EQ(logged(), settings(3) + settings(3));
}

TEST_F(DebugTrace, UsersAreCounted) {
    setenv("DEBUGLEVEL", "LSKIP", 1);
    dbexit();
    EXPECT_EQ(dbinit_no(), 0);
    EXPECT_EQ(dbinit_no(), 0);
    EXPECT_EQ(db_initialized, 2);
    dbexit();
    EXPECT_EQ(db_initialized, 1);
    ASSERT_NE(db_root, nullptr);
    dbexit();
    dbexit();
    EXPECT_EQ(dboutpr(), -1);
    EXPECT_EQ(db_initialized, 0);
    EXPECT_EQ(logged(), kRule + "Warning: Debug already initialized (initcounter=1)\n" + kRule +
                            kRule + "Warning: Debug not freed yet, initcounter=2\n" + kRule +
                            kExitRefused + kNotInitialized);
}

TEST_F(DebugTrace, StreamFollowsTheEnvironment) {
    std::FILE* const own = std::tmpfile();
    const std::string unwritable = testing::TempDir() + "no such folder/log";
    struct Row {
        const char* variable;
        std::FILE* before;
        std::FILE* expected;
    };
    for (const Row& row :
         {Row{nullptr, nullptr, stdout}, Row{nullptr, own, own}, Row{"stdout", own, stdout},
          Row{"stderr", own, stderr}, Row{unwritable.c_str(), own, stdout}}) {
        row.variable == nullptr ? unsetenv("DEBUG_LOGFILE")
                                : setenv("DEBUG_LOGFILE", row.variable, 1);
        stddbg = row.before;
        testing::internal::CaptureStderr();
        dbinit_no();
        EXPECT_EQ(stddbg, row.expected);
        EXPECT_EQ(testing::internal::GetCapturedStderr().starts_with("open Debug logfile: "),
                  row.variable == unwritable.c_str());
        dbexit();
    }
    std::fclose(own);
}

TEST_F(DebugTrace, NothingBeforeTheFirstInitialisationSetsTheStream) {
    testing::internal::CaptureStdout();
    dbexit();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), kExitRefused);
    EXPECT_EQ(stddbg, nullptr);
    EXPECT_EQ(debugStream(), stdout);
}

TEST_F(DebugTrace, LogFileSurvivesItsUsersAndCyclesLeakNothing) {
    std::ofstream(m_log) << "kept\n";
    setenv("DEBUGLEVEL", "ON", 1);
    ASSERT_EQ(dbinit_no(), 0);
    dbexit();
    unsetenv("DEBUG_LOGFILE");
    ASSERT_EQ(dbinit_no(), 0);
    std::fputs("later\n", stddbg);
    dbexit();
    EXPECT_EQ(logged(), "kept\nlater\n");

    setenv("DEBUG_LOGFILE", m_log.c_str(), 1);
    const std::ptrdiff_t before = openDescriptors();
    for (int cycle = 0; cycle < 20; ++cycle) {
        ASSERT_EQ(dbinit_no(), 0);
        dbexit();
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(DebugTrace, ExhaustedMemoryLeavesItUninitialised) {
    setenv("DEBUGLEVEL", "ALL", 1);
    setenv("DEBUG_LIST_ON", "a,b", 1);
    testing::internal::CaptureStderr();
    g_mallocFails = true;
    const int code = dbinit();
    g_mallocFails = false;
    EXPECT_EQ(code, 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("dbinit (malloc db_root): "));
    EXPECT_EQ(db_initialized, 0);
    EXPECT_EQ(logged(), kNotInitialized + "Error in dbinit. Rc=1\n");
    EXPECT_EQ(dbinit_no(), 0);
}

} // namespace
