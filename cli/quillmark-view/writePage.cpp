#include "cli/quillmark-view/writePage.h"

#include "cli/quillmark-view/PathBytes.h"
#include "cli/quillmark-view/pageParts.h"
#include "cli/shared/utf8.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <zlib.h>

namespace {

void write(std::FILE* out, std::string_view text) noexcept {
    (void)std::fwrite(text.data(), 1, text.size(), out);
}

void writeBase64(std::FILE* out, std::string_view bytes) noexcept {
    constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const auto at = [bytes](std::size_t i) {
        return i < bytes.size() ? std::uint32_t{static_cast<unsigned char>(bytes[i])} : 0U;
    };
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::uint32_t group = at(i) << 16 | at(i + 1) << 8 | at(i + 2);
        const std::size_t digits = std::min<std::size_t>(bytes.size() - i, 3) + 1;
        for (std::size_t digit = 0; digit < 4; ++digit) {
            (void)std::fputc(digit < digits ? kDigits[group >> (18 - 6 * digit) & 63] : '=', out);
        }
    }
}

// A text as the page can hold it. A byte that belongs to no character is one of Latin-1.
std::string utf8Of(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.front());
        const std::size_t length = std::max<std::size_t>(utf8SequenceLength(text), 1);
        if (byte < ' ') {
            result += ' ';
        } else if (length == 1 && byte > 0x7F) {
            result += static_cast<char>(0xC0 | byte >> 6);
            result += static_cast<char>(0x80 | (byte & 0x3F));
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return result;
}

void writeName(std::FILE* out, std::string_view name) {
    for (const char c : utf8Of(name)) {
        write(out, c == '<' ? "&lt;" : c == '&' ? "&amp;" : std::string_view(&c, 1));
    }
}

// Returns false without the memory to pack it.
bool writePacked(std::FILE* out, std::string_view text, int level) {
    uLongf size = compressBound(text.size());
    std::string packed(size, '\0');
    const int code = compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                               reinterpret_cast<const Bytef*>(text.data()), text.size(), level);
    writeBase64(out, std::string_view(packed).substr(0, size));
    return code == Z_OK;
}

// The blocks, a line each.
std::string textOf(const BlockTable& blocks) {
    std::string text;
    for (std::uint32_t block = 0; block < blocks.Count(); ++block) {
        text += block == 0 ? "" : "\n";
        text += utf8Of(blocks.Text(block));
    }
    return text;
}

} // namespace

bool makesPages() noexcept { return true; }

// The stream tells whether all was written.
std::string writePage(const PictureContent& content, std::FILE* out) {
    const PictureContent::Shown& shown = content.paths.front();
    const BlockTable& blocks = shown.path->blocks;
    write(out, kPageHead);
    write(out, "<script type=\"text/plain\" id=\"path\">");
    // Its numbers hardly get shorter at a higher level.
    if (!writePacked(out, PathBytes(*shown.path).Bytes(), Z_BEST_SPEED)) {
        return "its path cannot be packed";
    }
    write(out, "</script>\n<script type=\"text/plain\" id=\"blocks\">");
    if (!blocks.IsEmpty() && !writePacked(out, textOf(blocks), Z_DEFAULT_COMPRESSION)) {
        return "its blocks cannot be packed";
    }
    write(out, "</script>\n<pre hidden id=\"source\">");
    writeName(out, shown.name);
    write(out, "</pre>\n");
    write(out, kPageTail);
    return {};
}
