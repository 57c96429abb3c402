#include "update/liesPP.h"

#include "paramfile/vxveh.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "update/LineCollector.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

// Also the most that the second line gives to the record: a line end behind its 80 characters is
// overwritten by the third line.
constexpr std::size_t kLongestPhysicalLine = 81;

using PhysicalLine = std::array<char, 100>;
using Record = std::array<char, kOldRecordLength>;

// The rest of the buffer is zero, so a short line leaves no trace of the one before it.
bool readPhysicalLine(std::FILE* in, PhysicalLine& line) noexcept {
    line.fill('\0');
    return std::fgets(line.data(), static_cast<int>(line.size()), in) != nullptr;
}

void reportUndecodable(const PhysicalLine& first) noexcept {
    std::fprintf(stderr, "line <%s> can't be decoded\n", first.data());
}

Record joinRecord(const PhysicalLine& first, const PhysicalLine& second,
                  const PhysicalLine& third) noexcept {
    std::array<char, 2 * kLongestPhysicalLine> joined{};
    const std::size_t firstLength = strnlen(first.data(), kLongestPhysicalLine);
    const std::size_t secondLength = strnlen(second.data(), kLongestPhysicalLine);
    std::copy_n(first.data(), firstLength, joined.data());
    std::copy_n(second.data(), secondLength, joined.data() + firstLength);
    Record record;
    std::copy_n(joined.data(), record.size(), record.data());
    record.back() = third[0];
    return record;
}

enum class Step { kEndOfFile, kRecord, kFailure };

// Reads the next three physical lines.
Step readRecord(std::FILE* in, Record& record) noexcept {
    PhysicalLine first;
    do {
        if (!readPhysicalLine(in, first)) {
            return Step::kEndOfFile;
        }
        // A line of no bytes at all cannot be read: this one begins with a NUL.
        if (first[0] == '\0') {
            reportUndecodable(first);
            return Step::kFailure;
        }
        string_mani(0, first.data());
    } while (first[0] == '\0');
    if (std::strlen(first.data()) > kLongestPhysicalLine) {
        std::fputs("pp inputline too long - parameterfile is corrupted!!\n", stderr);
        return Step::kFailure;
    }
    PhysicalLine second;
    PhysicalLine third;
    if (!readPhysicalLine(in, second) || !readPhysicalLine(in, third)) {
        reportUndecodable(first);
        return Step::kFailure;
    }
    record = joinRecord(first, second, third);
    return Step::kRecord;
}

std::FILE* g_messages = nullptr; // null is standard output

} // namespace

void setLiesPPMessages(std::FILE* stream) noexcept { g_messages = stream; }

char** liesPP(std::FILE* in) noexcept {
    LineCollector lines;
    for (;;) {
        Record record;
        const Step step = readRecord(in, record);
        if (step == Step::kFailure) {
            return nullptr;
        }
        if (step == Step::kEndOfFile) {
            break;
        }
        std::array<char, kOldLineLength + 1> line{};
        if (pp_vxveh(kDecodeOption, std::span(line).first<kOldLineLength>(), record) != 0) {
            std::fputs("Error in PpLiesDatei: Can't decode\n",
                       g_messages != nullptr ? g_messages : stdout);
            return nullptr;
        }
        lines.add(line.data());
        if (lines.failed()) {
            return nullptr;
        }
    }
    if (std::ferror(in) != 0) {
        std::perror("liesPP");
        return nullptr;
    }
    char** const result = lines.release();
    if (result != nullptr) {
        (void)std::fclose(in);
    }
    return result;
}
