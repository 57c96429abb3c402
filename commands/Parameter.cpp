#include "commands/Parameter.h"

#include "commands/MachineStatus.h"
#include "commands/ncNumber.h"
#include "commands/wordMatcher.h"

#include <cstring>
#include <utility>

namespace {

bool stepOver(char*& p, const char* text) noexcept {
    const std::size_t length = std::strlen(text);
    if (std::strncmp(p, text, length) != 0) {
        return false;
    }
    p += length;
    return true;
}

} // namespace

Parameter::Parameter(const char* syntax) noexcept : m_syntax(TextCopy(syntax)) {}

Parameter::~Parameter() = default;

void Parameter::SetSyntaxString(const char* syntax) noexcept { m_syntax = TextCopy(syntax); }

void Parameter::SetIncStatus(Boolean incremental) noexcept {
    if (m_explicitMode != TRUE) {
        m_incremental = incremental;
    }
}

char* Parameter::MoveAfterNumber(char* p) const noexcept { return skipDigits(p); }

int Parameter::scanNC(char* line, MachineStatus* status) {
    m_value = 0.0;
    m_incremental = m_standardIncremental;
    m_explicitMode = FALSE;
    m_ncLineStatus = FALSE;
    if (m_syntax.empty() || !status->MayHold(line, m_syntax.front())) {
        return 0;
    }
    return takeWord(line, *status->GetDecimalSeparator());
}

// Apart from scanNC, which finds no such letter on most blocks and then needs no registers.
[[gnu::noinline]] int Parameter::takeWord(char* line, char separator) noexcept {
    int sign = 1;
    bool hasBracket = false;
    if (m_readsWays) {
        m_way.reset();
    }

    const char* token = line;
    char* from = line;
    while (char* const word = findWordBy(m_rule, line, from, m_syntax, token)) {
        char* p = word + m_syntax.size();
        if (stepOver(p, "=")) {
            if (stepOver(p, "AC(")) {
                m_incremental = FALSE;
                m_explicitMode = TRUE;
                hasBracket = true;
            }
            if (stepOver(p, "IC(")) {
                m_incremental = TRUE;
                m_explicitMode = TRUE;
                hasBracket = true;
            }
            hasBracket = (m_readsWays && stepOverWay(p)) || hasBracket;
        }
        stepOver(p, "+");
        if (stepOver(p, "-")) {
            sign = -1;
        }
        const NCNumber number = readNumber(p, sign, separator);
        const bool isName = m_rule != WordRule::kPlain && *number.end == '=';
        const bool isNumber = number.end != p && !isName;
        if (isNumber) {
            m_value = implyDecimals(number.value, separator);
        }
        char* end = p + (number.end - p);
        if (hasBracket && *end == ')') {
            ++end;
        }
        if (isNumber) {
            m_isMinus = sign < 0;
            cutOut(word, end);
            m_ncLineStatus = TRUE;
            return 1;
        }
        from = end;
    }
    return 0;
}

// "=DC(", "=ACP(" and "=ACN(" of rotary axes.
bool Parameter::stepOverWay(char*& p) noexcept {
    constexpr std::pair<const char*, RotaryWay> kWays[] = {
        {"DC(", RotaryWay::kShortest},
        {"ACP(", RotaryWay::kPositive},
        {"ACN(", RotaryWay::kNegative},
    };
    for (const auto& [text, way] : kWays) {
        if (stepOver(p, text)) {
            m_way = way;
            m_incremental = FALSE;
            m_explicitMode = TRUE;
            return true;
        }
    }
    return false;
}

double Parameter::implyDecimals(double value, char separator) const noexcept {
    if (separator != '\0' || m_decimalPlaces == 0) {
        return value;
    }
    return value / powerOfTen(m_decimalPlaces);
}

int Parameter::ConvertIncremental(double& base) noexcept {
    if (m_incremental == TRUE) {
        m_value += base;
        m_incremental = FALSE;
        m_explicitMode = FALSE;
    }
    return 0;
}
