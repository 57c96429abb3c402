#pragma once

#include <cstdio>
#include <string_view>

/// Appends `text` to an output of the conversion, unless an earlier write to it failed: what a full
/// disk leaves is then the beginning of the right file. One conversion runs in one thread and owns
/// its streams, so the stream's lock is not taken. Whether all was written is asked at the end.
inline void appendText(std::FILE* stream, std::string_view text) noexcept {
    if (ferror_unlocked(stream) == 0) {
        (void)fwrite_unlocked(text.data(), 1, text.size(), stream);
    }
}
