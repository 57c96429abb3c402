#include "softCommon/CStringUtil/splitString.h"

#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/arrayGrowth.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/HeapText.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t kBlock = 20;

char* trimmedField(const char* first, std::size_t length) noexcept {
    char* const field = strndup(first, length);
    if (field == nullptr) {
        std::perror("lokString");
        return nullptr;
    }
    string_mani(3, field);
    return field;
}

// The fields found so far; every operation leaves a valid, null-ended array.
class Fields {
public:
    Fields() noexcept = default;
    Fields(const Fields&) = delete;
    Fields& operator=(const Fields&) = delete;
    ~Fields() { freeCharFeld(m_array); }

    [[nodiscard]] bool allocate() noexcept {
        m_array = withRoomForOne(nullptr, 0, kBlock);
        if (m_array == nullptr) {
            std::perror("splitString");
            return false;
        }
        m_array[0] = nullptr;
        return true;
    }
    [[nodiscard]] bool add(char* field) noexcept {
        if (field == nullptr) {
            return false;
        }
        char** const roomy = withRoomForOne(m_array, m_count, kBlock);
        if (roomy == nullptr) {
            std::perror("splitString");
            std::free(field);
            return false;
        }
        m_array = roomy;
        m_array[m_count++] = field;
        m_array[m_count] = nullptr;
        return true;
    }
    [[nodiscard]] char** release(int& count) noexcept {
        count = static_cast<int>(m_count);
        return std::exchange(m_array, nullptr);
    }

private:
    char** m_array = nullptr;
    std::size_t m_count = 0;
};

} // namespace

char** splitString(const char* string, const char* separators, int separatorCount,
                   int* count) noexcept {
    *count = 0;
    if (string == nullptr || *string == '\0' || separatorCount < 0) {
        return nullptr;
    }
    Fields fields;
    if (!fields.allocate()) {
        return nullptr;
    }
    const std::size_t length = std::strlen(string);
    const HeapText work(static_cast<char*>(std::malloc(length + 4)));
    if (work == nullptr) {
        std::perror("splitString");
        return nullptr;
    }
    char* const text = work.get();
    std::memcpy(text, string, length + 1);
    string_mani(3, text);
    if (*text == '\0') {
        return nullptr;
    }
    if (separatorCount > 0) {
        // The last field is ended like the others.
        const std::size_t trimmed = std::strlen(text);
        text[trimmed] = separators[0];
        text[trimmed + 1] = '\0';
    }
    const char* fieldStart = text;
    for (const char* c = text; *c != '\0'; ++c) {
        for (int s = 0; s < separatorCount; ++s) {
            if (*c != separators[s]) {
                continue;
            }
            const std::size_t fieldLength =
                c > fieldStart ? static_cast<std::size_t>(c - fieldStart) : 0;
            if (!fields.add(trimmedField(fieldStart, fieldLength))) {
                return nullptr;
            }
            fieldStart = c + 1;
        }
    }
    return fields.release(*count);
}

char** add_splitStringArray(char** array, const char* string, int* count) noexcept {
    char* const copy = strdup(string);
    char** const grown =
        copy == nullptr ? nullptr : withRoomForOne(array, static_cast<std::size_t>(*count), kBlock);
    if (grown == nullptr) {
        std::perror("lokString");
        std::free(copy);
        free_splitStringArray(array, *count);
        *count = 0;
        return nullptr;
    }
    grown[(*count)++] = copy;
    grown[*count] = nullptr;
    return grown;
}

void free_splitStringArray(char** array, int count) noexcept {
    if (array == nullptr) {
        return;
    }
    const int entries = count > 0 ? count : sizeofCharFeld(array);
    for (int i = 0; i < entries; ++i) {
        std::free(array[i]);
    }
    std::free(array);
}
