#include "cli/quillmark-view/tellDifference.h"

#include "cli/shared/printText.h"

namespace {

constexpr const char* kKinds[] = {"rapid", "feed", "arc"};

// One side of the first difference: "  part.apt: line 12, feed to 1.00000 2.00000 3.00000".
void printSide(std::FILE* stream, const char* name, const ToolPath& path, std::size_t movement) {
    std::fputs("  ", stream);
    printText(stream, name);
    if (movement >= path.movements.size()) {
        std::fprintf(stream, ": ends behind line %u\n", path.movements.back().line);
        return;
    }
    const ToolMovement& move = path.movements[movement];
    std::fprintf(stream, ": line %u, %s to %.5f %.5f %.5f", move.line,
                 kKinds[static_cast<std::size_t>(move.kind)], move.end[0], move.end[1],
                 move.end[2]);
    if (const std::uint32_t block = path.BlockOf(move); block != BlockTable::kNone) {
        std::fputs(", block ", stream);
        printText(stream, path.blocks.Text(block));
    }
    (void)std::fputc('\n', stream);
}

void writeSide(JsonWriter& json, const char* name, const ToolPath& path, std::size_t movement) {
    json.BeginObject();
    json.Entry("file", name);
    json.Key("line");
    if (movement < path.movements.size()) {
        json.Number(path.movements[movement].line);
    } else {
        json.Null();
    }
    json.EndObject();
}

void writeFarthest(JsonWriter& json, const ComparedPaths& compared,
                   const PathDifference& difference) {
    if (difference.distance == 0.0) {
        json.Null();
        return;
    }
    const std::size_t side = difference.isOfSecond ? 1 : 0;
    json.BeginObject();
    json.Entry("file", compared.names[side]);
    json.Entry("line", long{compared.paths[side]->movements[difference.farthest].line});
    json.Key("at");
    json.BeginList();
    for (int axis = 0; axis < 3; ++axis) {
        json.Decimal(difference.point[axis]);
    }
    json.EndList();
    json.EndObject();
}

} // namespace

void printDifference(std::FILE* stream, const ComparedPaths& compared,
                     const PathDifference& difference) {
    if (difference.what == nullptr) {
        std::fprintf(stream, "the paths are the same: %zu movement%s\n",
                     compared.paths[0]->movements.size(),
                     compared.paths[0]->movements.size() == 1 ? "" : "s");
        return;
    }
    std::fprintf(stream, "the paths differ from movement %zu on: %s\n", difference.movement + 1,
                 difference.what);
    for (std::size_t side = 0; side < 2; ++side) {
        printSide(stream, compared.names[side], *compared.paths[side], difference.movement);
    }
    if (difference.distance == 0.0) {
        std::fputs("the tool goes the same way in both\n", stream);
        return;
    }
    const std::size_t side = difference.isOfSecond ? 1 : 0;
    std::fprintf(stream, "largest distance %.5f mm, from %.5f %.5f %.5f in line %u of ",
                 difference.distance, difference.point[0], difference.point[1], difference.point[2],
                 compared.paths[side]->movements[difference.farthest].line);
    printText(stream, compared.names[side]);
    (void)std::fputc('\n', stream);
}

void writeJsonDifference(JsonWriter& json, const ComparedPaths& compared,
                         const PathDifference& difference) {
    json.BeginObject();
    json.Key("differs_in");
    json.TextOrNull(difference.what);
    if (difference.what != nullptr) {
        json.Entry("movement", static_cast<long>(difference.movement + 1));
        json.Key("first");
        json.BeginList();
        for (std::size_t side = 0; side < 2; ++side) {
            writeSide(json, compared.names[side], *compared.paths[side], difference.movement);
        }
        json.EndList();
        json.Key("largest_distance");
        json.Decimal(difference.distance);
        json.Key("farthest");
        writeFarthest(json, compared, difference);
    }
    json.EndObject();
}
