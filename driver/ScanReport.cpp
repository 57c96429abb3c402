#include "driver/ScanReport.h"

#include "commands/PassedWords.h"
#include "driver/looksComputed.h"
#include "driver/takeWord.h"
#include "driver/usualCodes.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
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

// What is the same in all warnings of one cause: a value is that of its block alone.
std::string_view causeWord(Warning::Kind kind, std::string_view word) noexcept {
    if (kind != Warning::Kind::kUnreadAxis && kind != Warning::Kind::kTextBehindNumber) {
        return word;
    }
    const auto* const end = std::ranges::find_if_not(word, isLetterByte);
    return word.substr(0, static_cast<std::size_t>(end - word.begin()));
}

bool isCodeWord(std::string_view word) noexcept {
    const char letter = toLowerByte(word.front());
    return word.size() > 1 && (letter == 'g' || letter == 'm') && isDigitByte(word[1]);
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

bool ScanReport::KnowsOfMovement() const noexcept {
    constexpr StatementKind kMovements[] = {StatementKind::kRapidMove, StatementKind::kFeedMove,
                                            StatementKind::kArc, StatementKind::kDroppedArc,
                                            StatementKind::kHome};
    constexpr Oddity kTold[] = {Oddity::kComputes, Oddity::kUnknownPlace, Oddity::kHeldRapid};
    return std::ranges::any_of(kMovements, [this](auto k) { return m_statements.Of(k) > 0; }) ||
           std::ranges::any_of(kTold, [this](auto oddity) { return Of(oddity).count > 0; });
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
    if (looksComputed(rest)) {
        Note(Oddity::kComputes, block); // which is the cause of all that is left
    } else {
        tallyWords(word, words, context, place);
    }
}

// The words behind a code belong to it, but for a harmless one, which has none of its own.
void ScanReport::tallyWords(std::string_view word, std::string_view words,
                            const RestContext& context, const Block::Place& place) noexcept {
    bool isOfCode = false;
    for (; !word.empty(); word = takeWord(words, context.separator)) {
        const bool isCode = isCodeWord(word);
        if (isCode || !isOfCode) {
            m_words.Add(word, place);
        }
        isOfCode = isCode ? !isUsuallyHarmless(word, context.isLathe) : isOfCode;
    }
}

void ScanReport::WarnOfRest(const Block& block, const RestScan& scan) noexcept {
    for (std::size_t i = 0; i < static_cast<std::size_t>(Warning::Kind::kCount); ++i) {
        const auto kind = static_cast<Warning::Kind>(i);
        if (const std::string_view word = scan.WordOf(kind); !word.empty()) {
            Warn(kind, block, word);
            keepWarnedWord(scan.RestOf(kind));
        }
    }
}

void ScanReport::WarnOfGWord(const Block& block, const RestContext& context) noexcept {
    const char separator = context.separator;
    std::string_view rest = block.Rest();
    while (true) {
        const std::string_view word = takeWord(rest, separator);
        if (word.empty()) {
            return;
        }
        if (isGWord(word) && !usualDangerOf(word, context.isLathe) &&
            !isUsuallyHarmless(word, context.isLathe) &&
            !context.passed.HasNoEffect(word, separator)) {
            Warn(Warning::Kind::kUnknownGWord, block, word);
            keepWarnedWord(word);
            return;
        }
    }
}

void ScanReport::Warn(Warning::Kind kind, const Block& block, std::string_view word) noexcept {
    ++m_warningCount;
    ++m_warningCounts[static_cast<std::size_t>(kind)];
    addCause(kind, block, word);
    keepFirst(m_firstWarnings, kMaxWarnings, [&] {
        return Warning{kind, blockAt(block.GetPlace(), std::string(block.Text())),
                       std::string(word)};
    });
}

void ScanReport::addCause(Warning::Kind kind, const Block& block, std::string_view word) noexcept {
    const auto same = std::ranges::find_if(m_causes, [&](const WarningCause& cause) {
        return cause.first.kind == kind &&
               causeWord(kind, cause.first.word) == causeWord(kind, word);
    });
    if (same != m_causes.end()) {
        ++same->count;
        return;
    }
    keepFirst(m_causes, kMaxCauses, [&] {
        return WarningCause{
            {kind, blockAt(block.GetPlace(), std::string(block.Text())), std::string(word)}, 1};
    });
}

// A word that is missing here is told twice.
void ScanReport::keepWarnedWord(std::string_view word) noexcept {
    if (m_warnedWords.size() >= WordTally::kMaxWords) {
        return;
    }
    try {
        m_warnedWords.emplace(word);
    } catch (const std::bad_alloc&) {
        return;
    }
}
