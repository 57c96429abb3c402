#include "cli/quillmark-param/findings.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <utility>

namespace {

struct Row {
    FindingKind kind;
    Severity severity;
    const char* text; // "%1" and "%2" stand for what the finding speaks of
};

using enum FindingKind;
using enum Severity;

constexpr Row kRows[] = {
    {kScanFails, kError, "the converter stops here: %1"},
    {kNotMarkedPlain, kError,
     "the file counts as coded, since no #FILE: line above \"##### Toolmachine Section\" says "
     "UNCODED, but its lines are plain"},
    {kValueIsKey, kError, "the value line of %1 is missing: '%2' is taken for it"},
    {kFormatMissing, kError,
     "the lines behind the address of %1 are missing: '%2' is taken for one"},
    {kWrongVariant, kError, "%1 is not read on this machine, and %2, which is, is missing"},
    {kBeforeLatheClass, kError,
     "%1 stands before MFG_CLASS_NAME and is judged as for a mill, but the machine is a lathe"},
    {kCentreModeLost, kError,
     "CIRCLE_CENTER_ABS has no effect on %1, which comes after it: incremental centres are read as "
     "absolute"},
    {kSameCode, kError, "%1 has the code of %2: only one of the two is ever found"},
    {kNoLetters, kError, "the code '%2' of %1 has no letters: it is never found"},
    {kEntryTooLong, kError, "%1 has a line of more than 254 characters, which is read in pieces"},
    {kMarkMissing, kWarning,
     "no #FILE: line says UNCODED: with a line \"##### Toolmachine Section\" the file would count "
     "as coded"},
    {kSectionMissing, kWarning,
     "the line \"##### Toolmachine Section\" is missing: the file cannot be coded"},
    {kBeforeClass, kWarning,
     "%1 stands before MFG_CLASS_NAME: this works for a mill, and would not for a lathe"},
    {kWrongOptionalVariant, kWarning,
     "%1 is not read on this machine, and %2, which is, is absent"},
    {kValueLikeKey, kWarning, "the value '%2' of %1 looks like a key: is the value line missing?"},
    {kCentreModeEarly, kWarning, "CIRCLE_CENTER_ABS has no effect on %1, which comes after it"},
    {kSameEndCode, kWarning, "%1 has the code of %2, which does the same"},
    {kPassedCode, kWarning, "%1 has the code of %2: only one of the two holds"},
    {kSameLetters, kWarning,
     "%1 has the address of %2: a block is searched for one before the other"},
    {kShortDivisor, kWarning,
     "the one character '%2' of %1 sets the sign of the axis and nothing else"},
    {kReadAsOther, kWarning, "%1 is read as %2"},
    {kReplaced, kWarning, "%1 replaces the value of line %2"},
    {kLineTooLong, kWarning, "the line has more than 254 characters and is read in pieces"},
    {kUnknownKey, kWarning, "%1 is no key, and nothing comes of it"},
    {kNoMovement, kWarning, "%1"},
    {kEmptyValue, kNote, "%1 is empty and counts as absent"},
    {kAbsent, kNote, "%1 is absent%2"},
};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        if (kRows[i].kind != static_cast<FindingKind>(i)) {
            return false;
        }
    }
    return std::size(kRows) == static_cast<std::size_t>(kCount);
}
static_assert(isInOrder());

const Row& rowOf(FindingKind kind) noexcept { return kRows[static_cast<std::size_t>(kind)]; }

} // namespace

Severity severityOf(FindingKind kind) noexcept { return rowOf(kind).severity; }

void Findings::Add(FindingKind kind, long line, const std::string& first,
                   const std::string& second) {
    std::string text;
    for (const char* c = rowOf(kind).text; *c != '\0'; ++c) {
        if (*c == '%') {
            text += *++c == '1' ? first : second;
        } else {
            text += *c;
        }
    }
    m_findings.push_back({kind, line, std::move(text)});
}

void Findings::Sort() {
    const auto place = [](const Finding& finding) {
        return std::pair(finding.line == 0 ? LONG_MAX : finding.line, severityOf(finding.kind));
    };
    std::ranges::stable_sort(m_findings, {}, place);
}

long Findings::Count(Severity severity) const noexcept {
    return std::ranges::count(m_findings, severity,
                              [](const Finding& finding) { return severityOf(finding.kind); });
}
