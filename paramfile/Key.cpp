#include "paramfile/Key.h"

#include <cstring>

namespace {

// The character two behind the key (behind the key and "_LATHE" on a lathe) decides: it must be
// missing or a blank. So KEY stands for a mill and KEY_LATHE for a lathe, KEY_2ND for neither, and
// one stray character behind the key does no harm. What lies behind the text counts as missing,
// except that a lathe wants the whole suffix.
bool isVariant(const char* line, std::size_t keyLength, bool isLathe) noexcept {
    constexpr std::size_t kSuffixLength = sizeof("_LATHE") - 1;
    const std::size_t length = std::strlen(line);
    const std::size_t keyEnd = keyLength + (isLathe ? kSuffixLength : 0);
    if (isLathe && length < keyEnd) {
        return false;
    }
    return length <= keyEnd + 1 || line[keyEnd + 1] == ' ';
}

} // namespace

bool Key::Matches(const char* line, bool isLathe) const noexcept {
    const std::size_t length = std::strlen(text);
    if (std::strncmp(line, text, length) != 0) {
        return false;
    }
    switch (kind) {
    case KeyKind::kPrefix:
        return true;
    case KeyKind::kVariant:
        return isVariant(line, length, isLathe);
    case KeyKind::kWhole:
    case KeyKind::kPassing:
        return line[length] == '\0';
    }
    return false;
}
