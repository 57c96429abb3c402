#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>

/// Writes one JSON value to a stream, indented, in the order of the calls. The caller opens and
/// closes in pairs, gives a key before each value of an object and none in a list. Needs no memory
/// and does not depend on the locale; the state of the stream tells whether it was written.
class JsonWriter {
public:
    explicit JsonWriter(std::FILE* stream) noexcept : m_stream(stream) {}

    void BeginObject() noexcept { open('{'); }
    void EndObject() noexcept { close('}'); }
    void BeginList() noexcept { open('['); }
    void EndList() noexcept { close(']'); }
    void Key(std::string_view key) noexcept;

    /// A text of any bytes. A byte that belongs to no valid UTF-8 sequence is written as the
    /// character of its code in Latin-1, so the result always is valid UTF-8.
    void Text(std::string_view text) noexcept;
    /// The text, or null for a null pointer.
    void TextOrNull(const char* text) noexcept;
    void Number(long value) noexcept;
    /// With six decimals; finite.
    void Decimal(double value) noexcept;
    void Null() noexcept;

    /// Key and value at once.
    void Entry(std::string_view key, long value) noexcept;
    void Entry(std::string_view key, std::string_view text) noexcept;

private:
    void open(char bracket) noexcept;
    void close(char bracket) noexcept;
    void beginValue() noexcept;
    void newLine() noexcept;
    void quoted(std::string_view text) noexcept;

    std::FILE* m_stream;
    int m_depth = 0;
    bool m_isFirst = true; // of its object or list
    bool m_hasKey = false; // the key of the next value is written
};
