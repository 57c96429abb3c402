#include "paramfile/vxveh.h"

#include "paramfile/lineCoder.h"

#include <cstdio>

static_assert(kOldRecordLength == codedLength(kOldLineLength));

namespace {

constexpr int kCodeActivity = 1;
constexpr int kDecodeActivity = 2;

void report(int code, std::span<const char> line, std::span<const char> record) noexcept {
    switch (code) {
    case kCoderDone:
        break;
    case kCoderChecksum:
        std::fputs("Error in GGUVXVEH : Checksum-Error\n", stderr);
        break;
    case kCoderUndecodable:
        std::fprintf(stderr, "line <%.*s> can't be decoded\n", static_cast<int>(record.size()),
                     record.data());
        break;
    default:
        std::fprintf(stderr, "line <%.*s> can't be coded\n", static_cast<int>(line.size()),
                     line.data());
        break;
    }
}

} // namespace

int vxveh(int activity, std::span<char> line, std::span<char> record) noexcept {
    if (activity != kCodeActivity && activity != kDecodeActivity) {
        std::fputs("Error in GGUVXVEH : unknown aktivity\n", stderr);
        return kCoderInternalError;
    }
    CodingGenerator generator;
    vxinit(generator, kCodingKeyBefore7);
    const int code = activity == kCodeActivity ? codeBytes(generator, line, record)
                                               : decodeBytes(generator, record, line);
    report(code, line, record);
    return code;
}

int pp_vxveh(int option, std::span<char, kOldLineLength> line,
             std::span<char, kOldRecordLength> record) noexcept {
    switch (option) {
    case kCodeOption:
        return vxveh(kCodeActivity, line, record);
    case kDecodeOption:
        return vxveh(kDecodeActivity, line, record);
    default:
        std::fprintf(stderr, "Internal Error (pp_vxveh): unknown option=%d\n", option);
        return kCoderInternalError;
    }
}
