#include "cli/quillmark/printStoppedBlock.h"

#include "cli/quillmark/printLine.h"
#include "cli/shared/printText.h"
#include "commands/Movement.h"
#include "driver/takeWord.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <cstring>

namespace {

void printBlock(std::FILE* stream, const Block& block) noexcept {
    const Block::Place& place = block.GetPlace();
    printLine(stream, place.line, place.file == nullptr ? "" : place.file);
    std::fputs(": ", stream);
    printBeginning(stream, block.Text());
}

// What may be wrong with an arc that has no direction.
struct ArcCause {
    bool (*isLikely)(const NCScan& scan, std::string_view rest) noexcept;
    const char* text;
};

// Whether one of the words is letters of that kind with a value.
bool holdsAddress(std::string_view rest, bool (*isMeant)(std::string_view letters)) noexcept {
    for (std::string_view word = takeWord(rest, '\0'); !word.empty(); word = takeWord(rest, '\0')) {
        const auto* const end = std::ranges::find_if_not(word, isLetterByte);
        const auto length = static_cast<std::size_t>(end - word.begin());
        if (length > 0 && length < word.size() && isMeant(word.substr(0, length))) {
            return true;
        }
    }
    return false;
}

bool hasRadius(const NCScan& /*scan*/, std::string_view rest) noexcept {
    return holdsAddress(rest, [](std::string_view letters) {
        return std::ranges::equal(letters, std::string_view("R"), {}, toUpperByte) ||
               std::ranges::equal(letters, std::string_view("CR"), {}, toUpperByte);
    });
}

bool hasUnreadCentre(const NCScan& /*scan*/, std::string_view rest) noexcept {
    return holdsAddress(rest, [](std::string_view letters) {
        const char letter = toUpperByte(letters[0]);
        return letters.size() == 1 && letter >= 'I' && letter <= 'K';
    });
}

bool metPlane(const NCScan& scan, std::string_view /*rest*/) noexcept {
    return scan.Report().CountOf(Warning::Kind::kPlane) > 0;
}

// The likeliest first.
constexpr ArcCause kArcCauses[] = {
    {hasRadius, "it is given by its radius (R, CR=), which the dialect does not read"},
    {hasUnreadCentre, "its centre word (I, J, K) is one that the dialect lacks"},
    {metPlane, "it lies in another plane, whose code the dialect lacks"},
};

const char* otherArcCause(const NCScan& scan) noexcept {
    const Movement* const movement = scan.Machinestatus().GetMovement();
    const bool hasCentre = movement != nullptr && movement->arc && movement->arc->hasCentreWord;
    return hasCentre ? "its centre words name its start, as those of another plane do"
                     : "it has no word of a centre or a radius";
}

void printArcCauses(std::FILE* stream, const NCScan& scan) noexcept {
    const char* separator = "quillmark: likely cause: ";
    bool isExplained = false;
    for (const ArcCause& cause : kArcCauses) {
        if (cause.isLikely(scan, scan.CurrentBlock().Rest())) {
            std::fprintf(stream, "%s%s", separator, cause.text);
            separator = "; or ";
            isExplained = true;
        }
    }
    if (!isExplained) {
        std::fprintf(stream, "%s%s", separator, otherArcCause(scan));
    }
    (void)std::fputc('\n', stream);
}

} // namespace

void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept {
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        return;
    }
    std::fputs("quillmark: stopped at block ", stream);
    printBlock(stream, block);
    std::fputs("\nquillmark: the output written so far stays in '", stream);
    printText(stream, outputName);
    std::fputs("'\n", stream);
}

void printStopSignal(std::FILE* stream, const NCScan& scan, int signal,
                     const char* outputName) noexcept {
    std::fprintf(stream, "quillmark: stopped by SIG%s ", sigabbrev_np(signal));
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        std::fputs("before the first block\n", stream);
        return;
    }
    std::fputs("behind block ", stream);
    printBlock(stream, block);
    std::fputs("; '", stream);
    printText(stream, outputName);
    std::fputs("' holds what was converted until then\n", stream);
}

void printFatalArc(std::FILE* stream, const NCScan& scan) noexcept {
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        return;
    }
    std::fputs("quillmark: this arc has no direction, since its centre is its start: ", stream);
    printBlock(stream, block);
    (void)std::fputc('\n', stream);
    printArcCauses(stream, scan);
}
