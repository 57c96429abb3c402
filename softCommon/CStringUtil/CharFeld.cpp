#include "softCommon/CStringUtil/CharFeld.h"

#include "softCommon/CStringUtil/arrayGrowth.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kFirstIncrement = 256;
constexpr std::size_t kFirstLineBuffer = 256;

// A growable line of bytes; `add` is false when memory is exhausted.
class LineBuffer {
public:
    LineBuffer() noexcept = default;
    LineBuffer(const LineBuffer&) = delete;
    LineBuffer& operator=(const LineBuffer&) = delete;
    ~LineBuffer() { std::free(m_bytes); }

    [[nodiscard]] bool allocate() noexcept { return grow(kFirstLineBuffer); }
    [[nodiscard]] bool add(char c) noexcept {
        if (m_length + 1 == m_capacity && !grow(2 * m_capacity)) {
            return false;
        }
        m_bytes[m_length++] = c;
        return true;
    }
    [[nodiscard]] bool empty() const noexcept { return m_length == 0; }
    [[nodiscard]] char* takeCopy() noexcept {
        m_bytes[m_length] = '\0';
        m_length = 0;
        return strdup(m_bytes);
    }

private:
    [[nodiscard]] bool grow(std::size_t capacity) noexcept {
        auto* const bytes = static_cast<char*>(std::realloc(m_bytes, capacity));
        if (bytes == nullptr) {
            return false;
        }
        m_bytes = bytes;
        m_capacity = capacity;
        return true;
    }

    char* m_bytes = nullptr;
    std::size_t m_length = 0;
    std::size_t m_capacity = 0;
};

void reportFailedRead(const char* call) noexcept {
    std::fprintf(stderr, "file2CharFeld: FATAL - %s failed!\n", call);
    errno = ENOMEM;
}

} // namespace

char** addCharFeld_internal(char** array, int* count, const char* string, int increment) noexcept {
    const bool countIsKnown = count != nullptr && *count >= 0 && array != nullptr;
    const int entries = countIsKnown ? *count : sizeofCharFeld(array);

    char* const copy = strdup(string);
    char** const grown = copy == nullptr ? nullptr
                                         : withRoomForOne(entries == 0 ? nullptr : array,
                                                          static_cast<std::size_t>(entries),
                                                          static_cast<std::size_t>(increment));
    if (grown == nullptr) {
        std::fprintf(stderr, "addCharFeld: FATAL - %s failed!\n",
                     copy == nullptr || entries == 0 ? "malloc" : "realloc");
        std::free(copy);
        if (entries > 0) {
            freeCharFeld(array);
        }
        return nullptr;
    }
    grown[entries] = copy;
    grown[entries + 1] = nullptr;
    if (count != nullptr) {
        *count = entries + 1;
    }
    return grown;
}

char** addCharFeld(char** array, int* count, const char* string) noexcept {
    return addCharFeld_internal(array, count, string, 1);
}

char** addCharFeld20(char** array, int* count, const char* string) noexcept {
    return addCharFeld_internal(array, count, string, 20);
}

char** addCharFeld200(char** array, int* count, const char* string) noexcept {
    return addCharFeld_internal(array, count, string, 200);
}

char** fp2CharFeld(std::FILE* file) noexcept {
    std::size_t increment = kFirstIncrement;
    char** array = withRoomForOne(nullptr, 0, increment);
    if (array == nullptr) {
        reportFailedRead("malloc");
        return nullptr;
    }
    array[0] = nullptr;
    LineBuffer line;
    if (!line.allocate()) {
        reportFailedRead("malloc");
        return array;
    }
    std::size_t lines = 0;
    for (;;) {
        const int byte = std::getc(file);
        if (byte != EOF && byte != '\n') {
            if (!line.add(static_cast<char>(byte))) {
                reportFailedRead("realloc");
                return array;
            }
            continue;
        }
        if (byte == EOF && line.empty()) {
            return array;
        }
        char** const roomy = withRoomForOne(array, lines, increment);
        if (roomy == nullptr) {
            freeCharFeld(array);
            reportFailedRead("realloc");
            return nullptr;
        }
        array = roomy;
        if (lines + 1 == increment) {
            increment *= 2; // keeps the reading of long files linear
        }
        char* const copy = line.takeCopy();
        if (copy == nullptr) {
            reportFailedRead("malloc");
            return array;
        }
        array[lines++] = copy;
        array[lines] = nullptr;
        if (byte == EOF) {
            return array;
        }
    }
}

char** file2CharFeld(const char* name) noexcept {
    std::FILE* const file = std::fopen(name, "r");
    if (file == nullptr) {
        const int reason = errno;
        std::fprintf(stderr, "file2CharFeld: FATAL - cannot open %s!\n", name);
        errno = reason;
        std::perror("file2CharFeld");
        return nullptr;
    }
    char** const lines = fp2CharFeld(file);
    const int reason = errno;
    (void)std::fclose(file);
    errno = reason;
    return lines;
}

char** freeCharFeld(char** array) noexcept {
    if (array != nullptr) {
        for (char** entry = array; *entry != nullptr; ++entry) {
            std::free(*entry);
        }
        std::free(array);
    }
    return nullptr;
}

int sizeofCharFeld(char* const* array) noexcept {
    int entries = 0;
    if (array != nullptr) {
        while (array[entries] != nullptr) {
            ++entries;
        }
    }
    return entries;
}

int debugCharFeld(const char* caller, char* const* array) noexcept {
    const int entries = sizeofCharFeld(array);
    std::fprintf(stderr, "### debugCharFeld Anfang (Aufruf aus %s) %p ###\n", caller,
                 static_cast<const void*>(array));
    for (int i = 0; i < entries; ++i) {
        std::fprintf(stderr, ">>%s<<\n", array[i]);
    }
    std::fprintf(stderr, "### debugCharFeld Ende Anz=%ld ###\n", static_cast<long>(entries));
    return entries;
}
