#include "cli/shared/printText.h"

#include "cli/shared/utf8.h"

#include <algorithm>
#include <limits>

namespace {

struct Range {
    std::string_view first;
    std::string_view last;
};

// Characters of several bytes that a terminal acts on, in the order of their bytes.
constexpr Range kActingCharacters[] = {
    {"\xC2\x80", "\xC2\x9F"},         // control characters
    {"\xD8\x9C", "\xD8\x9C"},         // a mark of direction
    {"\xE2\x80\x8E", "\xE2\x80\x8F"}, // the same
    {"\xE2\x80\xA8", "\xE2\x80\xAE"}, // ends of lines and paragraphs, embedded directions
    {"\xE2\x81\xA6", "\xE2\x81\xA9"}, // isolated directions
};

bool isActing(std::string_view character) noexcept {
    const auto first = static_cast<unsigned char>(character[0]);
    return first < 0x20 || first == 0x7F ||
           std::ranges::any_of(kActingCharacters, [character](const Range& range) {
               return character >= range.first && character <= range.last;
           });
}

// A character as it is shown. Needs no memory.
class ShownCharacter {
public:
    /// Takes the first character out of the text, which is not empty and outlives the object.
    explicit ShownCharacter(std::string_view& text) noexcept {
        const std::size_t length = utf8SequenceLength(text);
        m_shown = text.substr(0, std::max<std::size_t>(length, 1));
        text.remove_prefix(m_shown.size());
        if (length == 0 || isActing(m_shown)) {
            escape();
        }
    }
    ShownCharacter(const ShownCharacter&) = delete;
    ShownCharacter& operator=(const ShownCharacter&) = delete;
    ~ShownCharacter() = default;

    [[nodiscard]] std::string_view Text() const noexcept { return m_shown; }

private:
    void escape() noexcept {
        constexpr std::string_view kDigits = "0123456789ABCDEF";
        char* end = m_escaped;
        for (const char c : m_shown) {
            const auto byte = static_cast<unsigned char>(c);
            for (const char shown : {'\\', 'x', kDigits[byte / 16U], kDigits[byte % 16U]}) {
                *end++ = shown;
            }
        }
        m_shown = std::string_view(m_escaped, static_cast<std::size_t>(end - m_escaped));
    }

    char m_escaped[16]{}; // a character has at most four bytes
    std::string_view m_shown;
};

// Prints at most that many characters and returns what is left.
std::string_view printCharacters(std::FILE* stream, std::string_view text,
                                 std::size_t most) noexcept {
    for (; !text.empty() && most > 0; --most) {
        const ShownCharacter character(text);
        (void)std::fwrite(character.Text().data(), 1, character.Text().size(), stream);
    }
    return text;
}

} // namespace

void printText(std::FILE* stream, std::string_view text) noexcept {
    (void)printCharacters(stream, text, std::numeric_limits<std::size_t>::max());
}

void printBeginning(std::FILE* stream, std::string_view text) noexcept {
    constexpr std::size_t kMostCharacters = 200;
    if (!printCharacters(stream, text, kMostCharacters).empty()) {
        std::fputs("...", stream);
    }
}

std::string printableText(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        shown += ShownCharacter(text).Text();
    }
    return shown;
}
