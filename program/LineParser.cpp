#include "program/LineParser.h"

#include "driver/returnCodes.h"

void LineParser::read(std::string_view text, ProgramLine& line) {
    if (text.size() > kMostBytes) {
        line = {};
        line.code = kBlockUnreadable;
        line.error.set(kExpressionUnreadable, "LineParser", {"the block is too long"}, kMostBytes);
        return;
    }
    m_reader.read(text, line.text);
    line.isLeftOut = line.text.hasSkipMark && m_rules.skipsBlocks;
    if (line.text.isProgramName || line.isLeftOut) {
        line.text.words.clear();
    }
    m_grammar->read(line);
}
