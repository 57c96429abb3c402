#pragma once

#include "commands/ByteSet.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

/// One block of a program on its way from its source through cleaners and recognisers: its text,
/// the bytes that the text holds, the place where it stands, and the rest that nobody recognised
/// yet. A source fills it with Begin; cleaners and recognisers cut their words out of the rest;
/// driver, report and front end read it.
class Block {
public:
    /// Where a block stands.
    struct Place {
        const char* file = nullptr;   ///< null for the main program; not owned
        long line = 0;                ///< in that file, from 1; 0 before the first block
        long number = 0;              ///< of the block in the conversion, from 1
        bool continuesLine = false;   ///< the line was too long: this is a further piece of it
        bool isLineEnd = false;       ///< that piece holds nothing but the end of the line
        bool isCutAtNul = false;      ///< a NUL byte ended the reading of it
        bool isComputed = false;      ///< its words are the values of expressions, and not its text
        bool restartsProgram = false; ///< a control would begin the program again behind it
    };

    Block() noexcept = default;
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() = default;

    /// Starts a new block, of which nothing is recognised yet. `text` is trimmed and holds no NUL.
    /// Throws std::bad_alloc when the buffers must grow and cannot; the block is then unchanged.
    void Begin(std::string_view text, const Place& place) { Begin(text, ByteSet::Of(text), place); }
    /// The same for a text of known bytes, perhaps with others.
    void Begin(std::string_view text, const ByteSet& bytes, const Place& place) {
        begin(text, text, bytes, place);
    }
    /// A block whose words were made out of its text, and are trimmed and without NUL as well.
    void Begin(std::string_view text, std::string_view words, const Place& place) {
        begin(text, words, ByteSet::Of(words), place);
    }

    /// The block as it stands in its file, trimmed.
    [[nodiscard]] std::string_view Text() const noexcept {
        return m_echo == nullptr ? std::string_view() : std::string_view(m_echo + 1, m_textLength);
    }
    /// The same as the log shows it, with a line end on either side. Not before the first Begin.
    [[nodiscard]] std::string_view Echo() const noexcept { return {m_echo, m_textLength + 2}; }
    [[nodiscard]] const Place& GetPlace() const noexcept { return m_place; }

    /// What is left to be recognised, NUL-terminated, in a buffer of at least the text's length.
    /// Whoever does more to it than removing bytes does so between BeginForeign and EndForeign. Not
    /// before the first Begin.
    [[nodiscard]] char* Rest() noexcept { return m_rest; }
    [[nodiscard]] const char* Rest() const noexcept { return m_rest == nullptr ? "" : m_rest; }
    /// Whether `line` is the rest of this block, from its start.
    [[nodiscard]] bool IsRest(const char* line) const noexcept { return line == m_rest; }
    /// Removes the blanks at both ends of the rest, and all from a line end on.
    void TrimRest() noexcept;

    /// The bytes of the rest, perhaps with others: it tells which words cannot stand there.
    [[nodiscard]] const ByteSet& Bytes() const noexcept { return m_bytes; }
    /// Around a call that may do to the rest what it likes: meanwhile every byte is possible, also
    /// within such a call inside of it. Behind the outermost one they are taken from the rest anew.
    void BeginForeign() noexcept {
        ++m_foreignCalls;
        m_mayHoldLineEnd = true;
        m_bytes = ByteSet::All();
    }
    void EndForeign() noexcept {
        if (--m_foreignCalls == 0) {
            m_bytes = ByteSet::Of(std::as_const(*this).Rest());
        }
    }

private:
    void begin(std::string_view text, std::string_view words, const ByteSet& bytes,
               const Place& place) {
        const std::size_t length = text.size() < words.size() ? words.size() : text.size();
        if (m_size <= length) {
            grow(length);
        }
        std::copy(words.begin(), words.end(), m_rest);
        m_rest[words.size()] = '\0';
        m_echo[0] = '\n';
        std::copy(text.begin(), text.end(), m_echo + 1);
        m_echo[text.size() + 1] = '\n';
        m_textLength = text.size();
        m_bytes = bytes;
        m_place = place;
        m_mayHoldLineEnd = false;
    }
    void grow(std::size_t length);

    ByteSet m_bytes = ByteSet::All();
    char* m_rest = nullptr;
    char* m_echo = nullptr;
    std::size_t m_textLength = 0;
    Place m_place;
    int m_foreignCalls = 0;
    bool m_mayHoldLineEnd = false; // put there by such a call
    std::size_t m_size = 0;        // of the rest with its end; only grows
    std::vector<char> m_buffers;   // of the rest, then of the echo
};
