#include "cli/quillmark-param/findings.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <utility>

namespace {

struct Row {
    FindingKind kind;
    Severity severity;
    const char* name;
    const char* text; // "%1" and "%2" stand for what the finding speaks of
};

using enum FindingKind;
using enum Severity;

constexpr Row kRows[] = {
    {kScanFails, kError, "scan_fails", "the converter stops here: %1"},
    {kNotMarkedPlain, kError, "not_marked_plain",
     "the file counts as coded, since no #FILE: line above \"##### Toolmachine Section\" says "
     "UNCODED, but its lines are plain"},
    {kValueIsKey, kError, "value_is_key", "the value line of %1 is missing: '%2' is taken for it"},
    {kFormatMissing, kError, "format_missing",
     "the lines behind the address of %1 are missing: '%2' is taken for one"},
    {kWrongVariant, kError, "wrong_variant",
     "%1 is not read on this machine, and %2, which is, is missing"},
    {kBeforeLatheClass, kError, "before_lathe_class",
     "%1 stands before MFG_CLASS_NAME and is judged as for a mill, but the machine is a lathe"},
    {kCentreModeLost, kError, "centre_mode_lost",
     "CIRCLE_CENTER_ABS has no effect on %1, which comes after it: incremental centres are read as "
     "absolute"},
    {kSameCode, kError, "same_code", "%1 has the code of %2: only one of the two is ever found"},
    {kNoLetters, kError, "no_letters", "the code '%2' of %1 has no letters: it is never found"},
    {kEntryTooLong, kError, "entry_too_long",
     "%1 has a line of more than 254 characters, which is read in pieces"},
    {kMarkMissing, kWarning, "mark_missing",
     "no #FILE: line says UNCODED: with a line \"##### Toolmachine Section\" the file would count "
     "as coded"},
    {kSectionMissing, kWarning, "section_missing",
     "the line \"##### Toolmachine Section\" is missing: the file cannot be coded"},
    {kBeforeClass, kWarning, "before_class",
     "%1 stands before MFG_CLASS_NAME: this works for a mill, and would not for a lathe"},
    {kWrongOptionalVariant, kWarning, "wrong_optional_variant",
     "%1 is not read on this machine, and %2, which is, is absent"},
    {kValueLikeKey, kWarning, "value_like_key",
     "the value '%2' of %1 looks like a key: is the value line missing?"},
    {kCentreModeEarly, kWarning, "centre_mode_early",
     "CIRCLE_CENTER_ABS has no effect on %1, which comes after it"},
    {kSameEndCode, kWarning, "same_end_code", "%1 has the code of %2, which does the same"},
    {kPassedCode, kWarning, "passed_code", "%1 has the code of %2: only one of the two holds"},
    {kSameLetters, kWarning, "same_letters",
     "%1 has the address of %2: a block is searched for one before the other"},
    {kShortDivisor, kWarning, "short_divisor",
     "the one character '%2' of %1 sets the sign of the axis and nothing else"},
    {kReadAsOther, kWarning, "read_as_other", "%1 is read as %2"},
    {kReplaced, kWarning, "replaced", "%1 replaces the value of line %2"},
    {kLineTooLong, kWarning, "line_too_long",
     "the line has more than 254 characters and is read in pieces"},
    {kUnknownKey, kWarning, "unknown_key", "%1 is no key, and nothing comes of it"},
    {kMisspelledKey, kWarning, "misspelled_key",
     "%1 is no key, and nothing comes of it; is %2 meant?"},
    {kTextBehindCode, kWarning, "text_behind_code",
     "the text behind the code of %1 counts as part of it: '%2'"},
    {kNoSuchAxis, kWarning, "no_such_axis",
     "the machine has no rotary axis for %1: blocks with its word end with code 508"},
    {kCrossedAxes, kWarning, "crossed_axes",
     "%1 has the letter of the machine's other axis, %2: are they exchanged?"},
    {kNoMovement, kWarning, "no_movement", "%1"},
    {kEmptyValue, kNote, "empty_value", "%1 is empty and counts as absent"},
    {kAbsent, kNote, "absent", "%1 is absent%2"},
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

const char* nameOf(FindingKind kind) noexcept { return rowOf(kind).name; }

const char* nameOf(Severity severity) noexcept {
    static constexpr const char* kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
}

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
