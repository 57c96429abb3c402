#include "cli/shared/JsonWriter.h"

#include <charconv>

namespace {

// The length of the valid UTF-8 sequence at the start of `text`, which is not empty; 0 for none.
// Overlong forms, surrogates and codes beyond U+10FFFF are not valid.
std::size_t sequenceLength(std::string_view text) noexcept {
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    struct Row {
        unsigned char firstLow, firstHigh, secondLow, secondHigh;
        std::size_t length;
    };
    static constexpr Row kRows[] = {
        {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
        {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
        {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
    };
    if (byteAt(0) < 0x80) {
        return 1;
    }
    for (const Row& row : kRows) {
        if (byteAt(0) < row.firstLow || byteAt(0) > row.firstHigh) {
            continue;
        }
        if (text.size() < row.length || byteAt(1) < row.secondLow || byteAt(1) > row.secondHigh) {
            return 0;
        }
        for (std::size_t i = 2; i < row.length; ++i) {
            if ((byteAt(i) & 0xC0U) != 0x80U) {
                return 0;
            }
        }
        return row.length;
    }
    return 0;
}

} // namespace

void JsonWriter::Key(std::string_view key) noexcept {
    beginValue();
    quoted(key);
    (void)std::fputs(": ", m_stream);
    m_hasKey = true;
}

void JsonWriter::Text(std::string_view text) noexcept {
    beginValue();
    quoted(text);
}

void JsonWriter::TextOrNull(const char* text) noexcept {
    if (text == nullptr) {
        Null();
    } else {
        Text(text);
    }
}

void JsonWriter::Number(long value) noexcept {
    beginValue();
    std::fprintf(m_stream, "%ld", value);
}

void JsonWriter::Decimal(double value) noexcept {
    beginValue();
    char text[512];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6);
    (void)std::fwrite(text, 1, static_cast<std::size_t>(result.ptr - text), m_stream);
}

void JsonWriter::Null() noexcept {
    beginValue();
    (void)std::fputs("null", m_stream);
}

void JsonWriter::Entry(std::string_view key, long value) noexcept {
    Key(key);
    Number(value);
}

void JsonWriter::Entry(std::string_view key, std::string_view text) noexcept {
    Key(key);
    Text(text);
}

void JsonWriter::open(char bracket) noexcept {
    beginValue();
    (void)std::fputc(bracket, m_stream);
    ++m_depth;
    m_isFirst = true;
}

void JsonWriter::close(char bracket) noexcept {
    --m_depth;
    if (!m_isFirst) {
        newLine();
    }
    (void)std::fputc(bracket, m_stream);
    m_isFirst = false;
    if (m_depth == 0) {
        (void)std::fputc('\n', m_stream);
    }
}

void JsonWriter::beginValue() noexcept {
    if (m_hasKey) {
        m_hasKey = false;
        return;
    }
    if (!m_isFirst) {
        (void)std::fputc(',', m_stream);
    }
    m_isFirst = false;
    if (m_depth > 0) {
        newLine();
    }
}

void JsonWriter::newLine() noexcept { std::fprintf(m_stream, "\n%*s", 2 * m_depth, ""); }

void JsonWriter::quoted(std::string_view text) noexcept {
    (void)std::fputc('"', m_stream);
    while (!text.empty()) {
        const char c = text.front();
        const auto byte = static_cast<unsigned char>(c);
        std::size_t length = sequenceLength(text);
        if (c == '"' || c == '\\') {
            std::fprintf(m_stream, "\\%c", c);
        } else if (length == 0 || byte < 0x20) {
            std::fprintf(m_stream, "\\u%04X", unsigned{byte});
            length = 1;
        } else {
            (void)std::fwrite(text.data(), 1, length, m_stream);
        }
        text.remove_prefix(length);
    }
    (void)std::fputc('"', m_stream);
}
