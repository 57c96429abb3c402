#include "driver/ScanReport.h"

#include "driver/takeWord.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <new>

namespace {

// The list stays shorter when memory is exhausted; the counts beside it are what must be right.
template<class Entry>
void keepFirst(std::vector<Entry>& list, std::size_t limit, const auto& makeEntry) noexcept {
    if (list.size() >= limit) {
        return;
    }
    try {
        list.push_back(makeEntry());
    } catch (const std::bad_alloc&) {
        return;
    }
}

bool isGWord(std::string_view word) noexcept {
    return toLowerByte(word.front()) == 'g' && (word.size() == 1 || !isLetterByte(word[1]));
}

} // namespace

void ScanReport::NoteRest(long line, std::string_view text, std::string_view rest, char separator,
                          bool hasMoved) noexcept {
    std::string_view words = rest;
    std::string_view word = takeWord(words, separator);
    if (word.empty()) {
        return;
    }
    ++m_unrecognisedBlocks;
    keepFirst(m_firstRests, kMaxBlocks, [&] {
        const std::size_t end = rest.find_last_not_of(' ') + 1;
        return ReportedBlock{line, std::string(word.data(), rest.data() + end)};
    });
    for (; !word.empty(); word = takeWord(words, separator)) {
        m_words.Add(word, line);
    }
    if (hasMoved) {
        WarnOfGWord(line, text, rest, separator);
    }
}

void ScanReport::WarnOfGWord(long line, std::string_view text, std::string_view rest,
                             char separator) noexcept {
    while (true) {
        const std::string_view word = takeWord(rest, separator);
        if (word.empty()) {
            return;
        }
        if (isGWord(word)) {
            warn(Warning::Kind::kUnknownGWord, line, text, word);
            return;
        }
    }
}

void ScanReport::WarnOfArc(long line, std::string_view text) noexcept {
    warn(Warning::Kind::kArcWithoutCentre, line, text, "");
}

void ScanReport::warn(Warning::Kind kind, long line, std::string_view text,
                      std::string_view word) noexcept {
    ++m_warningCount;
    keepFirst(m_firstWarnings, kMaxWarnings, [&] {
        return Warning{kind, {line, std::string(text)}, std::string(word)};
    });
}

void ScanReport::NoteFurtherPiece(long line, bool isLineEnd) noexcept {
    ++m_furtherPieces;
    if (!isLineEnd && line != m_lastLongLine) {
        m_lastLongLine = line;
        Note(Oddity::kLongLine, line);
    }
}
