#include "cli/quillmark-view/writeJsonMeasure.h"

namespace {

long numberOf(std::size_t count) noexcept { return static_cast<long>(count); }

void writeDecimal(JsonWriter& json, const char* key, double value) {
    json.Key(key);
    json.Decimal(value);
}

void writePoint(JsonWriter& json, const char* key, const gmVector3& point) {
    json.Key(key);
    json.BeginList();
    for (int axis = 0; axis < 3; ++axis) {
        json.Decimal(point[axis]);
    }
    json.EndList();
}

void writeBox(JsonWriter& json, const char* key, const PathBox& box) {
    json.Key(key);
    if (box.isEmpty) {
        json.Null();
        return;
    }
    json.BeginObject();
    writePoint(json, "low", box.low);
    writePoint(json, "high", box.high);
    json.EndObject();
}

void writeRange(JsonWriter& json, const char* key, const Range& range) {
    json.Key(key);
    if (range.isEmpty) {
        json.Null();
        return;
    }
    json.BeginObject();
    writeDecimal(json, "low", range.low);
    writeDecimal(json, "high", range.high);
    json.EndObject();
}

void writeSum(JsonWriter& json, const char* key, const MovementSum& sum, bool isTimed) {
    json.Key(key);
    json.BeginObject();
    json.Entry("movements", numberOf(sum.count));
    writeDecimal(json, "length", sum.length);
    json.Key("seconds");
    if (isTimed) {
        json.Decimal(sum.seconds);
    } else {
        json.Null();
    }
    json.Entry("untimed", numberOf(sum.untimed));
    json.EndObject();
}

void writeLowestZ(JsonWriter& json, const char* key, const Range& z) {
    json.Key(key);
    if (z.isEmpty) {
        json.Null();
    } else {
        json.Decimal(z.low);
    }
}

void writeTool(JsonWriter& json, const ToolMeasure& tool, bool hasRapid) {
    json.BeginObject();
    json.Key("tool");
    if (tool.tool) {
        json.Number(*tool.tool);
    } else {
        json.Null();
    }
    writeSum(json, "rapid", tool.rapid, hasRapid);
    writeSum(json, "cutting", tool.cutting, true);
    writeDecimal(json, "dwell_seconds", tool.dwellSeconds);
    writeLowestZ(json, "lowest_z", tool.z);
    writeLowestZ(json, "lowest_cutting_z", tool.cuttingZ);
    json.EndObject();
}

void writeUnknown(JsonWriter& json, const UnknownStatements& unknown) {
    json.Key("unknown_statements");
    json.BeginList();
    for (const UnknownStatements::Row& row : unknown.Rows()) {
        json.BeginObject();
        json.Entry("statement", row.name);
        json.Entry("count", numberOf(row.count));
        json.Entry("line", long{row.line});
        json.EndObject();
    }
    json.EndList();
}

void writeRapidsBelow(JsonWriter& json, const PathMeasure& measure) {
    json.Key("rapid_below_cutting");
    json.BeginObject();
    json.Entry("movements", numberOf(measure.rapidsBelow));
    json.Entry("not_along_z", numberOf(measure.rapidsBelowAcross));
    json.Key("first_line");
    if (measure.firstBelowAcross != 0) {
        json.Number(measure.firstBelowAcross);
    } else {
        json.Null();
    }
    json.EndObject();
}

} // namespace

void writeJsonMeasure(JsonWriter& json, const char* name, const ToolPath& path,
                      const PathMeasure& measure, double rapid) {
    const bool hasRapid = rapid > 0.0;
    json.BeginObject();
    json.Entry("file", name);
    json.Entry("unit_of_file", path.isInch ? "inch" : "mm");
    json.Entry("movements", numberOf(path.movements.size()));
    writeBox(json, "box", measure.box);
    writeBox(json, "cutting_box", measure.cuttingBox);
    writeSum(json, "rapid", measure.rapid, hasRapid);
    writeSum(json, "feed", measure.feed, true);
    writeSum(json, "arcs", measure.arcs, true);
    writeDecimal(json, "dwell_seconds", measure.dwellSeconds);
    json.Entry("untimed_dwells", numberOf(measure.untimedDwells));
    json.Entry("tool_changes", numberOf(measure.toolChanges));
    json.Entry("stops", numberOf(measure.stops));
    writeRange(json, "feed_per_minute", measure.feedPerMinute);
    writeRange(json, "feed_per_turn", measure.feedPerTurn);
    writeRange(json, "spindle_speed", measure.speed);
    writeRange(json, "cutting_speed", measure.cuttingSpeed);
    json.Key("tools");
    json.BeginList();
    for (const ToolMeasure& tool : measure.tools) {
        writeTool(json, tool, hasRapid);
    }
    json.EndList();
    writeRapidsBelow(json, measure);
    writeUnknown(json, path.unknown);
    json.EndObject();
}
