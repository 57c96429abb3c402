#include "cli/shared/JsonWriter.h"

#include "cli/shared/utf8.h"

#include <charconv>

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
        std::size_t length = utf8SequenceLength(text);
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
