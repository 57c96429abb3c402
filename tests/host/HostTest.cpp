#include "include/quillmark.h"
#include "tests/host/hostNames.h"
#include "tests/support/Quiet.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <csignal>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <malloc.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

// A host that works in a folder of its own.
class Host : public testing::Test {
protected:
    Host() { std::filesystem::current_path(m_folder.path()); }
    ~Host() override { std::filesystem::current_path(m_before); }

    const std::filesystem::path m_before = std::filesystem::current_path();
    const TempFolder m_folder;
};

struct Job {
    std::string dialect, program;
    int code;
    std::string apt;
};

// Dialects and failures of every sort, in turn.
std::vector<Job> jobs(const TempFolder& folder) {
    folder.write("mill.pp", mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}}));
    folder.write("lathe.pp", lathe({{"ZX_LATHE_X_ASSIGNMENT", "-2"}}));
    folder.write("bare.pp", dialectOf({{"1ST_COORDINATE", "X\n1\nM5.3"}}));
    folder.write("cut.pp", std::string(kHeader) + "RAPID\n");
    folder.write("coded.pp", "##### Header\n##### Toolmachine Section\nnot coded\n");
    folder.write("old.pp", "*5XGABEL 0\n");
    folder.write("part.nc", "G91 G1 X1500 F6 M3 S5 (text)\nT7 M6\nM30\n");
    return {
        {"mill.pp", "part.nc", 0, ""},    {"lathe.pp", "part.nc", 0, ""},
        {"bare.pp", "part.nc", 0, ""},    {"cut.pp", "part.nc", 302, ""},
        {"coded.pp", "part.nc", 307, ""}, {"old.pp", "part.nc", 306, ""},
        {"mill.pp", "missing", 200, ""},  {"missing", "part.nc", 301, ""},
    };
}

int convert(const Job& job) {
    const Quiet quiet;
    // File systems wait for the disk when a file is truncated and written again.
    (void)std::remove("part.apt");
    (void)std::remove("part.log");
    return dllentry(job.dialect.c_str(), job.program.c_str(), "part.apt", "part.log", eOutputAPT);
}

constexpr int kSignals[] = {SIGINT, SIGABRT, SIGFPE, SIGSEGV, SIGPIPE, SIGXFSZ, SIGALRM};
void handleSignal(int /*signal*/) {}

TEST_F(Host, ConvertsTenThousandTimesWithoutATrace) {
    constexpr int kConversions = 10000;
    const mode_t mask = umask(0027);
    for (const int signal : kSignals) {
        (void)std::signal(signal, handleSignal);
    }
    std::vector<Job> all = jobs(m_folder);
    for (Job& job : all) {
        EXPECT_EQ(convert(job), job.code) << job.dialect;
        job.apt = m_folder.read("part.apt");
    }
    EXPECT_NE(all[0].apt, all[1].apt);
    const auto countDescriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto descriptors = countDescriptors();
    const std::size_t bytes = mallinfo2().uordblks;
    for (int i = 0; i < kConversions; ++i) {
        const Job& job = all[static_cast<std::size_t>(i) % all.size()];
        ASSERT_EQ(convert(job), job.code) << job.dialect;
        ASSERT_EQ(m_folder.read("part.apt"), job.apt) << job.dialect;
    }
    // A byte lost per conversion would be sixteen in the heap; the rest is its own bookkeeping. A
    // sanitizer has a heap of its own, and looks for lost bytes at the end.
    EXPECT_LT(mallinfo2().uordblks, bytes + kConversions);
    EXPECT_EQ(countDescriptors(), descriptors);
    for (const int signal : kSignals) {
        EXPECT_EQ(std::signal(signal, SIG_DFL), handleSignal) << signal;
    }
    EXPECT_EQ(umask(mask), 0027U);
    EXPECT_EQ(std::filesystem::status("part.apt").permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(std::filesystem::current_path(), m_folder.path());
    EXPECT_EQ(g_hostCalls, 0);
    // The names stand where the loader looks first: a library that asked would get the host's.
    EXPECT_NE(dlsym(RTLD_DEFAULT, "errorFile"), nullptr);
    EXPECT_NE(dlsym(RTLD_DEFAULT, "_ZTV10Controller"), nullptr);
}

} // namespace
