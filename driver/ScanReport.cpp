#include "driver/ScanReport.h"

#include "driver/looksComputed.h"
#include "driver/takeWord.h"
#include "driver/usualCodes.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <new>
#include <utility>

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

ReportedBlock blockAt(const Block::Place& place, std::string text) {
    return {place.line, std::move(text), place.file == nullptr ? "" : place.file};
}

bool isGWord(std::string_view word) noexcept {
    return toLowerByte(word.front()) == 'g' && (word.size() == 1 || !isLetterByte(word[1]));
}

} // namespace

void ScanReport::NotePlace(const Block& block) noexcept {
    const Block::Place& place = block.GetPlace();
    if (place.isCutAtNul) {
        Note(Oddity::kNulByte, block);
    }
    if (place.restartsProgram) {
        Note(Oddity::kRestart, block);
    }
    if (place.continuesLine && !place.isLineEnd && place.line != m_lastLongLine) {
        m_lastLongLine = place.line;
        Note(Oddity::kLongLine, block);
    }
}

void ScanReport::NoteRest(const Block& block, const RestContext& context) noexcept {
    const char separator = context.separator;
    const std::string_view rest = block.Rest();
    std::string_view words = rest;
    std::string_view word = takeWord(words, separator);
    if (word.empty()) {
        return;
    }
    const Block::Place& place = block.GetPlace();
    ++m_unrecognisedBlocks;
    keepFirst(m_firstRests, kMaxBlocks, [&] {
        const std::size_t end = rest.find_last_not_of(' ') + 1;
        return blockAt(place, std::string(word.data(), rest.data() + end));
    });
    for (; !word.empty(); word = takeWord(words, separator)) {
        m_words.Add(word, place);
    }
    if (looksComputed(rest)) {
        Note(Oddity::kComputes, block);
    }
    if (context.hasMoved) {
        WarnOfGWord(block, context);
    }
}

void ScanReport::WarnOfRest(const Block& block, const RestScan& scan) noexcept {
    for (std::size_t i = 0; i < static_cast<std::size_t>(Warning::Kind::kCount); ++i) {
        const auto kind = static_cast<Warning::Kind>(i);
        if (const std::string_view word = scan.WordOf(kind); !word.empty()) {
            Warn(kind, block, word);
        }
    }
}

void ScanReport::WarnOfGWord(const Block& block, const RestContext& context) noexcept {
    std::string_view rest = block.Rest();
    while (true) {
        const std::string_view word = takeWord(rest, context.separator);
        if (word.empty()) {
            return;
        }
        if (isGWord(word) && !usualDangerOf(word, context.isLathe) &&
            !isUsuallyHarmless(word, context.isLathe)) {
            Warn(Warning::Kind::kUnknownGWord, block, word);
            return;
        }
    }
}

void ScanReport::Warn(Warning::Kind kind, const Block& block, std::string_view word) noexcept {
    ++m_warningCount;
    keepFirst(m_firstWarnings, kMaxWarnings, [&] {
        return Warning{kind, blockAt(block.GetPlace(), std::string(block.Text())),
                       std::string(word)};
    });
}
