// A message file whose texts hold placeholders, with parameters of every kind and size.

#include "fuzz/MemoryFile.h"
#include "include/quillmark_messages.h"
#include "softCommon/CErrorUtil/processEnd.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

namespace {

struct EndOfRun {};

void endRun(void* /*context*/, const ProcessEnd& end) {
    if (end.kind != ProcessEnd::Kind::kExit) {
        std::abort();
    }
    throw EndOfRun{};
}

void report(std::int32_t number) {
    try {
        fehler(number);
    } catch (const EndOfRun&) {
        return; // a message of severity 5, or an unknown one
    }
    if (severityLevel == kSeverityFatal) {
        std::abort();
    }
}

void setParameters() {
    const std::string full(200, 'q');
    (void)CatSetErrPar(kMessageParLong, long{-2147483648}, kMessageParLong, 0L, kMessageParDouble,
                       -std::numeric_limits<double>::max(), kMessageParDouble, 1.5,
                       kMessageParDouble, std::numeric_limits<double>::quiet_NaN(),
                       kMessageParString, full.c_str(), kMessageParString, "&I01&R02(5.2)",
                       kMessageParString, nullptr, kMessageParEnd);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    file.write({reinterpret_cast<const char*>(data), size});
    (void)setenv("FUZZMSG", file.path(), 1);
    setProcessEndHook(endRun, nullptr);
    if (CatInitError("FUZZMSG") != 0) {
        std::abort();
    }
    setParameters();
    for (const std::int32_t number : {0, 1, 2, 102, 99999}) {
        std::free(CatGetLongMessage(number));
        report(number);
    }
    (void)SetErrStackPar(1, kMessageParString, "stacked", kMessageParDouble, 2.5, kMessageParEnd);
    (void)SetErrStackPar(2, kMessageParLong, 7L, kMessageParEnd);
    dbgErrorStack();
    report(3);
    freeErrorStack();
    return 0;
}
