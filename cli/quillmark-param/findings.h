#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// What check may find in a parameter file.
enum class FindingKind : std::size_t {
    kScanFails,
    kNotMarkedPlain,
    kValueIsKey,
    kFormatMissing,
    kWrongVariant,
    kBeforeLatheClass,
    kCentreModeLost,
    kSameCode,
    kNoLetters,
    kEntryTooLong,
    kMarkMissing,
    kSectionMissing,
    kBeforeClass,
    kWrongOptionalVariant,
    kValueLikeKey,
    kCentreModeEarly,
    kSameEndCode,
    kPassedCode,
    kSameLetters,
    kShortDivisor,
    kReadAsOther,
    kReplaced,
    kLineTooLong,
    kUnknownKey,
    kMisspelledKey,
    kTextBehindCode,
    kNoSuchAxis,
    kCrossedAxes,
    kNoMovement,
    kEmptyValue,
    kAbsent,
    kCount
};

enum class Severity {
    kError,   ///< the converter fails on the file or misreads programs
    kWarning, ///< the file works otherwise than its author may expect
    kNote     ///< a key is absent
};

struct Finding {
    FindingKind kind;
    long line;        ///< of the text that the scan reads, from 1; 0 when it belongs to no line
    std::string text; ///< for people
};

[[nodiscard]] Severity severityOf(FindingKind kind) noexcept;
/// By which programs know it: "same_code", "error".
[[nodiscard]] const char* nameOf(FindingKind kind) noexcept;
[[nodiscard]] const char* nameOf(Severity severity) noexcept;

/// The findings of one file, which take their texts from one table.
class Findings {
public:
    /// `first` and `second` go where the text of the kind names them.
    void Add(FindingKind kind, long line, const std::string& first = {},
             const std::string& second = {});
    /// By line, those without one last; within a line by severity.
    void Sort();
    [[nodiscard]] const std::vector<Finding>& All() const noexcept { return m_findings; }
    [[nodiscard]] long Count(Severity severity) const noexcept;

private:
    std::vector<Finding> m_findings;
};
