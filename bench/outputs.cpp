#include "bench/outputs.h"

#include "bench/Failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File openToRead(const std::string& name) {
    File file(std::fopen(name.c_str(), "rb"));
    if (!file) {
        throw Failure(name + ": " + std::strerror(errno));
    }
    return file;
}

/// Calls `use` with every line of a file, its end included. Lines are far shorter than the buffer.
template<typename Use>
void forEachLine(const std::string& name, Use use) {
    const File file = openToRead(name);
    std::array<char, 512> line;
    while (std::fgets(line.data(), static_cast<int>(line.size()), file.get()) != nullptr) {
        use(std::string_view(line.data()));
    }
}

} // namespace

void requireSameBytes(const std::string& name, const std::string& expected) {
    const File left = openToRead(name);
    const File right = openToRead(expected);
    static std::array<std::array<char, 64 * 1024>, 2> buffer;
    std::uint64_t offset = 0;
    for (;;) {
        const std::size_t leftSize = std::fread(buffer[0].data(), 1, buffer[0].size(), left.get());
        const std::size_t rightSize =
            std::fread(buffer[1].data(), 1, buffer[1].size(), right.get());
        const std::size_t common = std::min(leftSize, rightSize);
        const auto differing = std::mismatch(
            buffer[0].begin(), buffer[0].begin() + static_cast<std::ptrdiff_t>(common),
            buffer[1].begin());
        const auto same = static_cast<std::size_t>(differing.first - buffer[0].begin());
        if (same < common || leftSize != rightSize) {
            throw Failure(name + " differs from " + expected + " at byte " +
                          std::to_string(offset + same));
        }
        if (common == 0) {
            return;
        }
        offset += common;
    }
}

void requireWholeLog(const std::string& log, const std::string& nc, const std::string& apt) {
    std::uint64_t expected = 0;
    forEachLine(nc, [&](std::string_view line) { expected += line.size() + 1; });
    forEachLine(apt, [&](std::string_view line) { expected += line.size(); });
    std::uint64_t banner = 0;
    std::uint64_t found = 0;
    std::uint64_t lines = 0;
    forEachLine(log, [&](std::string_view line) {
        (lines < 2 ? banner : found) += line.size();
        ++lines;
    });
    if (found != expected) {
        throw Failure(log + ": " + std::to_string(found) + " bytes behind the banner, not " +
                      std::to_string(expected));
    }
}

std::uint64_t countAptMoves(const std::string& apt) {
    std::uint64_t moves = 0;
    forEachLine(apt, [&](std::string_view line) {
        moves += line.starts_with("GOTO/") || line.starts_with("TLON,GOFWD/") ? 1U : 0U;
    });
    return moves;
}

std::uint64_t countCanonicalMoves(const std::string& canon) {
    std::uint64_t moves = 0;
    forEachLine(canon, [&](std::string_view line) {
        for (const std::string_view call : {"STRAIGHT_FEED(", "STRAIGHT_TRAVERSE(", "ARC_FEED("}) {
            moves += line.find(call) != std::string_view::npos ? 1U : 0U;
        }
    });
    return moves;
}
