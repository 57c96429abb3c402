#include "cli/quillmark-param/ParamCheck.h"
#include "cli/quillmark-param/checkReport.h"
#include "cli/quillmark-param/oldFile.h"
#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "cli/shared/errorLine.h"
#include "cli/shared/printText.h"
#include "driver/returnCodes.h"
#include "paramfile/codingMarks.h"
#include "paramfile/fileLines.h"
#include "update/unconvertedKeyLines.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

namespace {

enum class Generation { kPlain, kCoded, kOld };

constexpr const char* kGenerationTexts[] = {
    "current format, plain",
    "current format, coded",
    "older generation, coded",
};

Generation generationOf(const ParamInput& in) {
    if (!in.IsCurrentFormat()) {
        return Generation::kOld;
    }
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    return !saysPlain(head) && hasSectionLine(head) ? Generation::kCoded : Generation::kPlain;
}

// A plain file that counts as coded gives itself away by its keys.
void explainUndecodable(const ParamInput& in, std::FILE* out) {
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    char* const* const body = lines.get() + head.size();
    const auto isKey = [](const char* line) { return ParamCheck::IsScannedKey(line); };
    if (std::none_of(body, body + sizeofCharFeld(body), isKey)) {
        return;
    }
    const auto mark = std::find_if(head.begin(), head.end(), isFileLine);
    Findings findings;
    findings.Add(FindingKind::kNotMarkedPlain, mark == head.end() ? 1 : mark - head.begin() + 1);
    printFindings(out, findings, "file's own");
}

void printLostKeys(const ParamInput& in, std::FILE* out) {
    const CharFeldOwner lines = readOldFile(in);
    const std::unique_ptr<bool[]> isLost =
        lines == nullptr ? nullptr : unconvertedKeyLines(lines.get());
    if (isLost == nullptr) {
        throw std::bad_alloc(); // the file was read before
    }
    std::vector<ParamCheck::Line> lost;
    for (std::size_t i = 0; lines.get()[i] != nullptr; ++i) {
        if (isLost[i]) {
            lost.push_back({static_cast<long>(i) + 1, lines.get()[i]});
        }
    }
    printKeyLines(out, "Old keys that are not converted (lines of the decoded text)", lost);
}

// Reads all lines and leaves the file at its beginning; null when it cannot be read again.
CharFeldOwner linesOf(std::FILE* file) {
    CharFeldOwner lines;
    if (std::fseek(file, 0, SEEK_SET) != 0) {
        return nullptr;
    }
    if (readFileLines(file, lines) != 0) {
        throw std::bad_alloc();
    }
    return std::fseek(file, 0, SEEK_SET) == 0 ? std::move(lines) : nullptr;
}

} // namespace

int checkCommand(const ParamInput& in, std::FILE* out) {
    const Generation generation = generationOf(in);
    printText(out, in.Name());
    std::fprintf(out, ": %s\n", kGenerationTexts[static_cast<std::size_t>(generation)]);
    NCScan model;
    model.SetNoOutput();
    RecordingScan scan(model);
    const FileOwner file = in.Open();
    if (file == nullptr) {
        return failWith(in.Name(), std::strerror(errno));
    }
    if (const int code = scan.SetParameterStream(file.get()); code != 0) {
        if (generation == Generation::kCoded) {
            explainUndecodable(in, out);
        }
        printErrorLine(stderr, "quillmark-param", code, {.parameter = in.Name()},
                       model.LastFailure());
        return kParamFailed;
    }
    const CharFeldOwner lines = linesOf(scan.PlainCopy());
    if (lines == nullptr) {
        return failWith(in.Name(), std::strerror(errno));
    }
    const int code = scan.run();
    const ParamCheck check(model, scan, lines.get(), code);
    printSettings(out, check, scan.IsLathe());
    printKeyLines(out, "Keys that the converter does not read", check.UnreadKeys());
    if (generation == Generation::kOld) {
        printLostKeys(in, out);
    }
    printFindings(out, check.Result(), generation == Generation::kOld ? "updated" : "decoded");
    return check.Result().Count(Severity::kError) == 0
               ? kParamDone
               : failWith(in.Name(), countsOf(check.Result()));
}
