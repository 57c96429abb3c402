#include "paramfile/codeOldLine.h"

#include "paramfile/lineCoder.h"
#include "softCommon/CStringUtil/fixedField.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

int codeOldLine(const char* plain, OldPhysicalLines& physical) noexcept {
    if (std::strlen(plain) > kOldLineLength) {
        std::fputs("pp inputline too long - parameterfile is corrupted!!\n", stderr);
        return kCoderTooLong;
    }
    std::array<char, kOldLineLength> line{};
    s2fcpy(line.data(), plain, kOldLineLength);
    std::array<char, kOldRecordLength> record{};
    const int code = pp_vxveh(kCodeOption, line, record);
    if (code == kCoderDone) {
        const char* const half = record.data() + kOldLineLength;
        std::copy_n(record.data(), kOldLineLength, physical.first.data());
        std::copy_n(half, kOldLineLength, physical.second.data());
        physical.third[0] = record.back();
    }
    return code;
}
