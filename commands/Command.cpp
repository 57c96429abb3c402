#include "commands/Command.h"

#include "commands/Control.h"
#include "commands/wordMatcher.h"

Command::~Command() = default;

int Command::GetStatus() { return 0; }

void Command::InitStatus(char* /*line*/) {}

int Command::Compute(char* /*line*/) { return 0; }

char* Command::MoveAfterNumber(char* p) { return skipDigits(p); }

int Command::Act() { return 0; }

bool Command::Claims(const char* /*line*/) const { return true; }

int Command::ClaimWords(char* /*line*/) { return 0; }

int Command::perform() { return m_control == nullptr ? Act() : m_control->Perform(*this); }

int Command::scanNC(char* line) {
    m_wasFound = false;
    const char* token = line;
    char* from = line;
    while (char* const word = m_word.Find(line, from, token)) {
        char* const digits = word + m_word.Text().size();
        char* const end = MoveAfterNumber(digits);
        if (m_word.HasDigits(digits, end) && Claims(line)) {
            cutOut(word, m_word.BehindFraction(end));
            m_ncLineStatus = TRUE;
            m_wasFound = true;
            m_code = 0;
            InitStatus(line);
            return m_code;
        }
        from = end;
    }
    return 0;
}
