#pragma once

#include "commands/ByteSet.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// One block of a program on its way from its source through cleaners and recognisers: its text,
/// the bytes that the text holds, the place where it stands, and the rest that nobody recognised
/// yet. A source fills it with Begin; cleaners and recognisers cut their words out of the rest;
/// driver, report and front end read it.
class Block {
public:
    /// Where a block stands.
    struct Place {
        const char* file = nullptr; ///< null for the main program; not owned
        long line = 0;              ///< in that file, from 1; 0 before the first block
        long number = 0;            ///< of the block in the conversion, from 1
        bool continuesLine = false; ///< the line was too long: this is a further piece of it
        bool isLineEnd = false;     ///< that piece holds nothing but the end of the line
        bool isCutAtNul = false;    ///< a NUL byte ended the reading of it
    };

    Block() noexcept = default;
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() = default;

    /// Starts a new block, of which nothing is recognised yet. `text` is trimmed and holds no NUL.
    /// Throws std::bad_alloc when the buffers must grow and cannot; the block is then unchanged.
    void Begin(std::string_view text, const Place& place);
    /// No block, as at first. Keeps the buffers.
    void Clear() noexcept;

    /// The block as it stands in its file, trimmed; ends with a NUL.
    [[nodiscard]] std::string_view Text() const noexcept {
        return {m_text.empty() ? "" : m_text.data(), m_textLength};
    }
    [[nodiscard]] const Place& GetPlace() const noexcept { return m_place; }

    /// What is left to be recognised, NUL-terminated, in a buffer of at least the text's length.
    /// Whoever does more to it than removing bytes calls RefreshBytes. Not before the first Begin.
    [[nodiscard]] char* Rest() noexcept { return m_rest.data(); }
    [[nodiscard]] const char* Rest() const noexcept { return m_rest.empty() ? "" : m_rest.data(); }
    /// Whether `line` is the rest of this block, from its start.
    [[nodiscard]] bool IsRest(const char* line) const noexcept { return line == m_rest.data(); }
    /// Removes the blanks at both ends of the rest.
    void TrimRest() noexcept;

    /// The bytes of the rest, perhaps with others: it tells which words cannot stand there.
    [[nodiscard]] const ByteSet& Bytes() const noexcept { return m_bytes; }
    /// Takes them from the rest anew, or lets every word be possible.
    void RefreshBytes() noexcept { m_bytes = ByteSet::Of(Rest()); }
    void ForgetBytes() noexcept { m_bytes = ByteSet::All(); }

private:
    // Of one size, which only grows.
    std::vector<char> m_text;
    std::vector<char> m_rest;
    std::size_t m_textLength = 0;
    ByteSet m_bytes = ByteSet::All();
    Place m_place;
};
