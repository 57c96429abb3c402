#include "tests/messages/MessageFixture.h"

#include <gmock/gmock.h>

#include <new>

using testing::HasSubstr;

namespace {

const char* g_failing = ""; // name of the allocation that fails

bool fails(const char* name) { return std::string_view(name) == g_failing; }

} // namespace

extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return fails("calloc") ? nullptr : __real_calloc(count, size);
}
void* __real_realloc(void* block, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size) {
    return fails("realloc") ? nullptr : __real_realloc(block, size);
}
char* __real_strdup(const char* text);
char* __wrap_strdup(const char* text) { return fails("strdup") ? nullptr : __real_strdup(text); }
void* __real__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag);
void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag) {
    return fails("new") ? nullptr : __real__ZnwmRKSt9nothrow_t(size, tag);
}
}

namespace {

/// Runs `action` while the named allocation fails; returns what perror said.
template<class Action>
std::string failing(const char* allocation, Action action) {
    testing::internal::CaptureStderr();
    g_failing = allocation;
    action();
    g_failing = "";
    return testing::internal::GetCapturedStderr();
}

using MessageFaults = MessageFixture;

TEST_F(MessageFaults, EveryAllocationMayFail) {
    useMessages("00001 2\n&text\n00002 4\n39999 3\n&no memory\n");
    char* text = nullptr;
    const auto longMessage = [&] { text = CatGetLongMessage(1); };
    EXPECT_THAT(failing("calloc", longMessage), HasSubstr("CatGetLongMessag (malloc): "));
    EXPECT_EQ(taken(text), "(none)");
    EXPECT_EQ(severityLevel, 2);
    EXPECT_EQ(traced(), "Error in CatGetLongMessage. Rc=1\n");
    EXPECT_THAT(failing("realloc", longMessage), HasSubstr("CatGetLongMessag (realloc): "));
    EXPECT_EQ(taken(text), "");
    EXPECT_EQ(traced(), "Error in CatGetLongMessage. Rc=1\n");

    EXPECT_THAT(failing("strdup", [] { CatStderrMessage(7); }),
                HasSubstr("CatGetShortMessage (strdup): "));
    EXPECT_THAT(traced(), HasSubstr("MSG.NR.:  7\n --- no Messagetext ---\nSEVERITY: 0\n"));

    int rc = 0;
    failing("new", [&] { rc = SetErrStackPar(1, kMessageParLong, 5L, 0); });
    EXPECT_EQ(rc, 39999);
    EXPECT_EQ(softErrors, nullptr);
    EXPECT_EQ(traced(), kRule + "MSG.NR.: 39999\nno memory\nSEVERITY: 3\n" + kRule);
}

} // namespace
