#include "cli/quillmark-param/ParamCheck.h"
#include "cli/quillmark-param/checkReport.h"
#include "cli/quillmark-param/oldFile.h"
#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "cli/quillmark-param/writeJsonCheck.h"
#include "cli/shared/errorLine.h"
#include "cli/shared/fileKind.h"
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

CheckedKind kindOf(const ParamInput& in) {
    if (!in.IsCurrentFormat()) {
        return looksLikeProgram(in.Head()) ? CheckedKind::kProgram : CheckedKind::kOld;
    }
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    return !saysPlain(head) && hasSectionLine(head) ? CheckedKind::kCoded : CheckedKind::kPlain;
}

// A plain file that counts as coded gives itself away by its keys.
void explainUndecodable(const ParamInput& in, Findings& findings) {
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    char* const* const body = lines.get() + head.size();
    const auto isKey = [](const char* line) { return ParamCheck::IsScannedKey(line); };
    if (std::any_of(body, body + sizeofCharFeld(body), isKey)) {
        const auto mark = std::find_if(head.begin(), head.end(), isFileLine);
        findings.Add(FindingKind::kNotMarkedPlain,
                     mark == head.end() ? 1 : mark - head.begin() + 1);
    }
}

std::vector<ParamCheck::Line> lostKeysOf(const ParamInput& in) {
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
    return lost;
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

using Printer = void (*)(std::FILE* out, const CheckedFile& file);

int tellUnreadable(const ParamInput& in, std::FILE* out, Printer print, NCScan& model,
                   CheckedFile& file) {
    if (file.kind == CheckedKind::kCoded) {
        explainUndecodable(in, file.findings);
    }
    file.reason = model.LastFailure().text;
    print(out, file);
    printErrorLine(stderr, "quillmark-param", file.code, {.parameter = in.Name()},
                   model.LastFailure());
    return kParamFailed;
}

int check(const ParamInput& in, std::FILE* out, Printer print, CheckedFile& file) {
    NCScan model;
    model.SetNoOutput();
    RecordingScan scan(model);
    const FileOwner stream = in.Open();
    if (stream == nullptr) {
        return failWith(in.Name(), std::strerror(errno));
    }
    if (file.kind == CheckedKind::kProgram) {
        model.KeepFailureText("it looks like an NC program");
        file.code = kUpdateFailed;
    } else {
        file.code = scan.SetParameterStream(stream.get());
    }
    if (file.code != 0) {
        return tellUnreadable(in, out, print, model, file);
    }
    const CharFeldOwner lines = linesOf(scan.PlainCopy());
    if (lines == nullptr) {
        return failWith(in.Name(), std::strerror(errno));
    }
    const int code = scan.run();
    const ParamCheck check(model, scan, lines.get(), code);
    file.check = &check;
    file.isLathe = scan.IsLathe();
    file.findings = check.Result();
    if (file.kind == CheckedKind::kOld) {
        file.oldKeys = lostKeysOf(in);
    }
    print(out, file);
    return file.findings.Count(Severity::kError) == 0
               ? kParamDone
               : failWith(in.Name(), countsOf(file.findings));
}

} // namespace

int checkCommand(const ParamInput& in, std::FILE* out) {
    CheckedFile file{.name = in.Name(), .kind = kindOf(in)};
    printCheckHead(out, file); // first, as the process may end behind it
    return check(in, out, printCheck, file);
}

int checkAsJsonCommand(const ParamInput& in, std::FILE* out) {
    CheckedFile file{.name = in.Name(), .kind = kindOf(in)};
    return check(in, out, writeJsonCheck, file);
}
