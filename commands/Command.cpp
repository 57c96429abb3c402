#include "commands/Command.h"

#include "commands/ncNumber.h"
#include "commands/wordMatcher.h"

Command::~Command() = default;

int Command::GetStatus() { return 0; }

void Command::InitStatus(char* /*line*/) {}

int Command::Compute(char* /*line*/) { return 0; }

char* Command::MoveAfterNumber(char* p) { return skipDigits(p); }

void Command::InitSyntax(const char* syntax, const int& number) noexcept {
    if (syntax != nullptr) {
        m_syntax = TextCopy(syntax);
    }
    m_number = number;
}

int Command::scanNC(char* line) {
    char* from = line;
    while (char* const word = findWord(line, from, m_syntax)) {
        char* const digits = word + m_syntax.size();
        char* const end = MoveAfterNumber(digits);
        if (m_number == -1 || (end != digits && readCommandNumber(digits) == m_number)) {
            cutOut(word, end);
            m_ncLineStatus = TRUE;
            InitStatus(line);
            return 0;
        }
        from = end;
    }
    return 0;
}
