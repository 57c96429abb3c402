#include "cli/quillmark-param/checkReport.h"

#include "cli/shared/printText.h"

namespace {

using Entry = RecordingScan::Entry;

constexpr struct {
    SettingKind kind;
    const char* heading;
} kGroups[] = {
    {SettingKind::kCommand, "Commands"},
    {SettingKind::kWord, "Address words"},
    {SettingKind::kOther, "Other settings"},
};

// As CheckedKind has them.
constexpr const char* kKindTexts[] = {
    "current format, plain",
    "current format, coded",
    "older generation, coded",
};

std::string counted(long count, const char* name) {
    return std::to_string(count) + ' ' + name + (count == 1 ? "" : "s");
}

void printSettings(std::FILE* out, const ParamCheck& check, bool isLathe) {
    std::fprintf(out, "Machine: %s\n", isLathe ? "lathe" : "mill");
    for (const auto& [kind, heading] : kGroups) {
        bool isFirst = true;
        for (const Entry* const entry : check.InForce()) {
            if (settingKindOf(*entry) == kind) {
                std::fprintf(out, "%s%s%s", isFirst ? "\n" : "", isFirst ? heading : "",
                             isFirst ? "\n" : "");
                std::fprintf(out, "  line %5ld  %-30s  %s\n", entry->line,
                             printableText(entry->text).c_str(),
                             printableText(settingOf(*entry)).c_str());
                isFirst = false;
            }
        }
    }
}

void printKeyLines(std::FILE* out, const char* heading,
                   const std::vector<ParamCheck::Line>& lines) {
    if (lines.empty()) {
        return;
    }
    std::fprintf(out, "\n%s\n", heading);
    for (const ParamCheck::Line& line : lines) {
        std::fprintf(out, "  line %5ld  %s\n", line.number, printableText(line.text).c_str());
    }
}

void printFindings(std::FILE* out, const CheckedFile& file) {
    const Findings& findings = file.findings;
    std::fprintf(out, "\nFindings: %s\n", countsOf(findings).c_str());
    const bool isOtherText = file.check != nullptr && file.kind != CheckedKind::kPlain;
    if (isOtherText && !findings.All().empty() && findings.All().front().line != 0) {
        std::fprintf(out, "  (lines of the %s text)\n", file.LinesOf());
    }
    for (const Finding& finding : findings.All()) {
        if (finding.line != 0) {
            std::fprintf(out, "  line %5ld", finding.line);
        } else {
            std::fprintf(out, "%12s", "");
        }
        std::fprintf(out, "  %s: %s\n", nameOf(severityOf(finding.kind)),
                     printableText(finding.text).c_str());
    }
}

} // namespace

SettingKind settingKindOf(const Entry& entry) noexcept {
    if (entry.command != nullptr) {
        return SettingKind::kCommand;
    }
    return entry.word != nullptr ? SettingKind::kWord : SettingKind::kOther;
}

std::string settingOf(const Entry& entry) {
    if (entry.command != nullptr) {
        return ParamCheck::CodeOf(*entry.command);
    }
    if (entry.word != nullptr) {
        const long places = entry.word->GetDecimalPlace();
        return entry.word->GetSyntaxString() +
               (places > 0 ? ", " + std::to_string(places) +
                                 (places == 1 ? " decimal place" : " decimal places")
                           : std::string());
    }
    return entry.value;
}

void printCheckHead(std::FILE* out, const CheckedFile& file) {
    if (file.kind != CheckedKind::kProgram) {
        printText(out, file.name);
        std::fprintf(out, ": %s\n", kKindTexts[static_cast<std::size_t>(file.kind)]);
    }
}

void printCheck(std::FILE* out, const CheckedFile& file) {
    if (file.check != nullptr) {
        printSettings(out, *file.check, file.isLathe);
        printKeyLines(out, "Keys that the converter does not read", file.check->UnreadKeys());
        printKeyLines(out, "Old keys that are not converted (lines of the decoded text)",
                      file.oldKeys);
    }
    if (file.check != nullptr || !file.findings.All().empty()) {
        printFindings(out, file);
    }
}

std::string countsOf(const Findings& findings) {
    return counted(findings.Count(Severity::kError), "error") + ", " +
           counted(findings.Count(Severity::kWarning), "warning") + ", " +
           counted(findings.Count(Severity::kNote), "note");
}
