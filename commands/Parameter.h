#pragma once

#include "commands/RotaryWay.h"
#include "commands/TextCopy.h"
#include "commands/WordRule.h"
#include "softCommon/Boolean.h"

#include <optional>

class MachineStatus;

/// Recognises one address word with a number ("X-12.5", "X=IC(3)") and cuts it out of the block.
/// The value is valid while GetNCLineStatus() is TRUE: from a successful scanNC until the command
/// that uses it clears the status.
class Parameter {
public:
    /// Copies `syntax`; a null one leaves the parameter without text, so that it never matches.
    explicit Parameter(const char* syntax) noexcept;
    Parameter(const Parameter&) = delete;
    Parameter& operator=(const Parameter&) = delete;
    virtual ~Parameter();

    void SetSyntaxString(const char* syntax) noexcept;
    [[nodiscard]] char* GetSyntaxString() const noexcept { return m_syntax.get(); }
    /// The number of the word, in the unit of the address (mm, mm/min, rev/min, tool number).
    [[nodiscard]] double& GetValue() noexcept { return m_value; }
    [[nodiscard]] Boolean GetIncStatus() const noexcept { return m_incremental; }
    /// Whether the word carried "=AC(" or "=IC(".
    [[nodiscard]] bool IsExplicit() const noexcept { return m_explicitMode == TRUE; }
    /// Whether the number was written with a minus, also in front of 0.
    [[nodiscard]] bool IsMinus() const noexcept { return m_isMinus; }
    /// The way round that the word itself tells; none without "=DC(", "=ACP(" or "=ACN(".
    [[nodiscard]] std::optional<RotaryWay> Way() const noexcept { return m_way; }
    [[nodiscard]] Boolean GetNCLineStatus() const noexcept { return m_ncLineStatus; }
    [[nodiscard]] long GetDecimalPlace() const noexcept { return m_decimalPlaces; }

    /// Says whether values of this address are incremental by definition.
    void InitStandardInc(Boolean standard) noexcept { m_standardIncremental = standard; }
    /// Sets the incremental status of the word just read, unless it carried "=AC(" or "=IC(".
    void SetIncStatus(Boolean incremental) noexcept;
    void SetNCLineStatus(Boolean status) noexcept { m_ncLineStatus = status; }
    /// How the word is told from other text of a block; WordRule::kPlain at first.
    void SetWordRule(WordRule rule) noexcept { m_rule = rule; }
    /// The word is that of a rotary axis and may tell its way round.
    void ReadWays() noexcept { m_readsWays = true; }
    /// Number of implied decimal places, used while the dialect has no decimal separator.
    void SetDecimalPlace(const long& places) noexcept { m_decimalPlaces = places; }

    /// Finds the word, converts its number, removes the word from `line` and returns 1; returns 0
    /// when there is none. A sign, "=AC(" or "=IC(" found before a word without digits carries over
    /// to the next occurrence within the same call: "X- Y1 X5" gives -5. That is wanted.
    int scanNC(char* line, MachineStatus* status);
    /// Makes an incremental value absolute by adding `base`, and ends the explicit mode. An
    /// absolute value stays as it is. Always returns 0.
    int ConvertIncremental(double& base) noexcept;
    /// The first position at or after `p` that is not a decimal digit.
    [[nodiscard]] char* MoveAfterNumber(char* p) const noexcept;

private:
    int takeWord(char* line, char separator) noexcept;
    bool stepOverWay(char*& p) noexcept;
    [[nodiscard]] double implyDecimals(double value, char separator) const noexcept;

    TextCopy m_syntax;
    double m_value = 0.0;
    Boolean m_standardIncremental = FALSE;
    Boolean m_incremental = FALSE;
    Boolean m_ncLineStatus = FALSE;
    Boolean m_explicitMode = FALSE; // the word carried "=AC(" or "=IC("
    bool m_isMinus = false;
    bool m_readsWays = false;
    std::optional<RotaryWay> m_way;
    WordRule m_rule = WordRule::kPlain;
    long m_decimalPlaces = 0;
};
