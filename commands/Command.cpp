#include "commands/Command.h"

#include "commands/wordMatcher.h"
#include "softCommon/CStringUtil/numberText.h"

#include <cstring>

Command::~Command() = default;

int Command::GetStatus() { return 0; }

void Command::InitStatus(char* /*line*/) {}

int Command::Compute(char* /*line*/) { return 0; }

char* Command::MoveAfterNumber(char* p) { return skipDigits(p); }

void Command::InitSyntax(const char* syntax, const int& number) noexcept {
    if (syntax != nullptr) {
        m_syntax = copyText(syntax);
    }
    m_number = number;
}

int Command::scanNC(char* line) {
    char* from = line;
    while (char* const word = findWord(line, from, m_syntax.get())) {
        char* const digits = word + std::strlen(m_syntax.get());
        char* const end = MoveAfterNumber(digits);
        if (m_number == -1 || (end != digits && readInteger(digits) == m_number)) {
            cutOut(word, end);
            m_ncLineStatus = TRUE;
            InitStatus(line);
            return 0;
        }
        from = end;
    }
    return 0;
}
