#include "cli/quillmark-param/RecordingScan.h"

// The first search that sees a line: the value lines of an entry are read by the searches
// themselves and come to none of them.
int RecordingScan::CheckForLatheMachine(const char* line) {
    m_text = line;
    m_line = LineNumber();
    return ParamScan::CheckForLatheMachine(line);
}

int RecordingScan::Act(const Key& key, char* value) {
    m_entries.push_back({&key, m_line, LineNumber(), m_text, value});
    const int code = ParamScan::Act(key, value);
    Entry& entry = m_entries.back();
    entry.lastLine = LineNumber();
    if (code == 0) {
        entry.command = Builder().ConfiguredCommand();
        entry.word = Builder().AddedWord();
    }
    return code;
}
