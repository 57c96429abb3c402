#include "cli/quillmark-view/printMeasure.h"

#include "cli/quillmark-view/duration.h"
#include "cli/shared/printText.h"

#include <cmath>
#include <string>

namespace {

void printBox(std::FILE* stream, const char* title, const PathBox& box) {
    if (box.isEmpty) {
        std::fprintf(stream, "%-22snone\n", title);
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        std::fprintf(stream, "%-22s%c %12.5f to %12.5f  (%.5f)\n", axis == 0 ? title : "",
                     "XYZ"[axis], box.low[axis], box.high[axis], box.high[axis] - box.low[axis]);
    }
}

void printSum(std::FILE* stream, const char* title, const MovementSum& sum, bool isTimed) {
    std::fprintf(stream, "%-22s%12.3f mm in %zu movement%s", title, sum.length, sum.count,
                 sum.count == 1 ? "" : "s");
    if (isTimed) {
        std::fprintf(stream, ", %s", durationText(sum.seconds).c_str());
    }
    if (sum.untimed > 0) {
        std::fprintf(stream, ", and %zu of unknown time", sum.untimed);
    }
    (void)std::fputc('\n', stream);
}

void printRange(std::FILE* stream, const char* title, const Range& range, const char* unit) {
    if (range.isEmpty) {
        return;
    }
    std::fprintf(stream, "%-22s%.4f", title, range.low);
    if (range.high > range.low) {
        std::fprintf(stream, " to %.4f", range.high);
    }
    std::fprintf(stream, " %s\n", unit);
}

std::string toolName(const ToolMeasure& tool) {
    return tool.tool ? "T" + std::to_string(*tool.tool) : "before the first tool";
}

void printTool(std::FILE* stream, const ToolMeasure& tool, bool hasRapid) {
    std::fprintf(stream, "%-22s%12.3f mm rapid, %12.3f mm cutting, %s", toolName(tool).c_str(),
                 tool.rapid.length, tool.cutting.length,
                 durationText(tool.cutting.seconds + tool.dwellSeconds +
                              (hasRapid ? tool.rapid.seconds : 0.0))
                     .c_str());
    if (!tool.z.isEmpty) {
        std::fprintf(stream, ", lowest Z %.5f", tool.z.low);
    }
    (void)std::fputc('\n', stream);
}

void printRapidsBelow(std::FILE* stream, const ToolPath& path, const PathMeasure& measure) {
    if (measure.cuttingBox.isEmpty) {
        return;
    }
    std::fprintf(stream, "%-22s%zu, %zu of them not straight along Z", "rapid below cutting",
                 measure.rapidsBelow, measure.rapidsBelowAcross);
    if (measure.firstBelowAcross != 0) {
        std::fprintf(stream, ", the first in line %u", measure.firstBelowAcross);
        if (const std::uint32_t block = path.blocks.At(measure.firstBelowAcross);
            block != BlockTable::kNone) {
            std::fputs(", block ", stream);
            printText(stream, path.blocks.Text(block));
        }
    }
    (void)std::fputc('\n', stream);
}

double knownSeconds(const PathMeasure& measure) noexcept {
    return measure.feed.seconds + measure.arcs.seconds + measure.rapid.seconds +
           measure.dwellSeconds;
}

} // namespace

void printMeasure(std::FILE* stream, const char* name, const ToolPath& path,
                  const PathMeasure& measure, double rapid) {
    printText(stream, name);
    std::fprintf(stream, ": %zu movement%s, lengths in mm%s\n", path.movements.size(),
                 path.movements.size() == 1 ? "" : "s",
                 path.isInch ? " (the file has inches)" : "");
    printBox(stream, "all movements", measure.box);
    printBox(stream, "cutting movements", measure.cuttingBox);
    printSum(stream, "rapid", measure.rapid, rapid > 0.0);
    printSum(stream, "straight at feed", measure.feed, true);
    printSum(stream, "arcs", measure.arcs, true);
    std::fprintf(stream, "%-22s%s%s\n", "time", durationText(knownSeconds(measure)).c_str(),
                 rapid > 0.0 ? "" : ", without the rapid movements");
    if (measure.dwellSeconds > 0.0 || measure.untimedDwells > 0) {
        std::fprintf(stream, "%-22s%s", "of it dwell", durationText(measure.dwellSeconds).c_str());
        if (measure.untimedDwells > 0) {
            std::fprintf(stream, ", and %zu of unknown time", measure.untimedDwells);
        }
        (void)std::fputc('\n', stream);
    }
    printRange(stream, "feed per minute", measure.feedPerMinute, "mm/min");
    printRange(stream, "feed per turn", measure.feedPerTurn, "mm/rev");
    printRange(stream, "spindle", measure.speed, "rev/min");
    printRange(stream, "cutting speed", measure.cuttingSpeed, "m/min");
    for (const ToolMeasure& tool : measure.tools) {
        printTool(stream, tool, rapid > 0.0);
    }
    std::fprintf(stream, "%-22s%zu, and %zu stop%s\n", "tool changes", measure.toolChanges,
                 measure.stops, measure.stops == 1 ? "" : "s");
    printRapidsBelow(stream, path, measure);
}
