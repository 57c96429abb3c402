#include "cli/quillmark-param/checkReport.h"

#include <algorithm>
#include <cctype>

namespace {

using Entry = RecordingScan::Entry;

enum class Group { kCommands, kWords, kOthers };

constexpr struct {
    Group group;
    const char* heading;
} kGroups[] = {
    {Group::kCommands, "Commands"},
    {Group::kWords, "Address words"},
    {Group::kOthers, "Other settings"},
};

constexpr const char* kSeverityNames[] = {"error", "warning", "note"};

Group groupOf(const Entry& entry) noexcept {
    if (entry.command != nullptr) {
        return Group::kCommands;
    }
    return entry.word != nullptr ? Group::kWords : Group::kOthers;
}

std::string printable(std::string text) {
    for (char& byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x20 || value == 0x7F) {
            byte = '?';
        }
    }
    return text;
}

// What the model holds, not what the file says.
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

std::string counted(long count, const char* name) {
    return std::to_string(count) + ' ' + name + (count == 1 ? "" : "s");
}

} // namespace

void printSettings(std::FILE* out, const ParamCheck& check, bool isLathe) {
    std::fprintf(out, "Machine: %s\n", isLathe ? "lathe" : "mill");
    for (const auto& [group, heading] : kGroups) {
        bool isFirst = true;
        for (const Entry* const entry : check.InForce()) {
            if (groupOf(*entry) == group) {
                std::fprintf(out, "%s%s%s", isFirst ? "\n" : "", isFirst ? heading : "",
                             isFirst ? "\n" : "");
                std::fprintf(out, "  line %5ld  %-30s  %s\n", entry->line,
                             printable(entry->text).c_str(), printable(settingOf(*entry)).c_str());
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
        std::fprintf(out, "  line %5ld  %s\n", line.number, printable(line.text).c_str());
    }
}

void printFindings(std::FILE* out, const Findings& findings, const char* counted) {
    std::fprintf(out, "\nFindings: %s\n", countsOf(findings).c_str());
    if (!findings.All().empty() && findings.All().front().line != 0) {
        std::fprintf(out, "  (lines of the %s text)\n", counted);
    }
    for (const Finding& finding : findings.All()) {
        const char* const severity =
            kSeverityNames[static_cast<std::size_t>(severityOf(finding.kind))];
        if (finding.line != 0) {
            std::fprintf(out, "  line %5ld  %s: ", finding.line, severity);
        } else {
            std::fprintf(out, "              %s: ", severity);
        }
        std::fprintf(out, "%s\n", printable(finding.text).c_str());
    }
}

std::string countsOf(const Findings& findings) {
    return counted(findings.Count(Severity::kError), "error") + ", " +
           counted(findings.Count(Severity::kWarning), "warning") + ", " +
           counted(findings.Count(Severity::kNote), "note");
}
