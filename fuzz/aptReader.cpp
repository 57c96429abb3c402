// The reader of APT, and what is computed from its path: figures, distances. The part of the input
// behind the first NUL is a second source, and a log of the first.

#include "path/AptReader.h"
#include "fuzz/MemoryFile.h"
#include "path/PathDifference.h"
#include "path/PathMeasure.h"
#include "softCommon/FileOwner.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool isFinite(const gmVector3& v) {
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

FileOwner openMemory(const MemoryFile& file) { return FileOwner(std::fopen(file.path(), "rb")); }

// What every path keeps that comes out of the reader, also where it ended early.
void check(const ToolPath& path) {
    std::uint32_t line = 0;
    for (std::size_t i = 0; i < path.movements.size(); ++i) {
        const ToolMovement& movement = path.movements[i];
        require(movement.line > line && movement.state < path.states.size() &&
                movement.axis < path.axes.size());
        line = movement.line;
        require(isFinite(movement.end) && std::isfinite(path.LengthOf(i)));
        require(isFinite(path.PointAt(i, 0.0)) && isFinite(path.PointAt(i, 0.5)));
        if (movement.IsArc()) {
            const Sweep sweep = path.SweepOf(i);
            const double size = sweep.from.length() + movement.end.length();
            require(sweep.angle > 0.0 && sweep.angle < 6.2832);
            require((sweep.PointAt(sweep.angle) - movement.end).length() <
                    1e-3 * (1.0 + size * (1.0 + sweep.growth)));
        }
    }
    const PathMeasure measure = measurePath(path, 1000.0);
    require(measure.rapid.count + measure.feed.count + measure.arcs.count == path.movements.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t parting = input.find('\0');
    static MemoryFile first;
    static MemoryFile second;
    first.write(input.substr(0, parting));
    second.write(parting == std::string_view::npos ? std::string_view()
                                                   : input.substr(parting + 1));
    ToolPath path;
    ToolPath other;
    AptReader reader;
    const FileOwner file = openMemory(first);
    const bool isRead = reader.Read(file.get(), path);
    require(isRead == reader.Reason().empty());
    check(path);
    const FileOwner otherFile = openMemory(second);
    (void)reader.Read(otherFile.get(), other);
    if (!path.movements.empty() && !other.movements.empty()) {
        (void)comparePaths(path, other);
        require(comparePaths(path, path).what == nullptr);
    }
    const FileOwner log = openMemory(second);
    const FileOwner apt = openMemory(first);
    if (path.blocks.Read(log.get(), apt.get()).empty()) {
        for (const ToolMovement& movement : path.movements) {
            if (const std::uint32_t block = path.BlockOf(movement); block != BlockTable::kNone) {
                require(block < path.blocks.Count());
                (void)path.blocks.Text(block);
            }
        }
    }
    return 0;
}
