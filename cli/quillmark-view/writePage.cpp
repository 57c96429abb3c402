#include "cli/quillmark-view/writePage.h"

#include "cli/quillmark-view/PathBytes.h"
#include "cli/quillmark-view/pageParts.h"
#include "cli/shared/utf8.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

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

// One line of text of the page. A byte that belongs to no character is one of Latin-1.
void writeLine(std::FILE* out, std::string_view text) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.front());
        const std::size_t length = std::max<std::size_t>(utf8SequenceLength(text), 1);
        if (byte == '<') {
            write(out, "&lt;");
        } else if (byte == '&') {
            write(out, "&amp;");
        } else if (byte < ' ') {
            write(out, " ");
        } else if (length == 1 && byte > 0x7F) {
            (void)std::fputc(0xC0 | byte >> 6, out);
            (void)std::fputc(0x80 | (byte & 0x3F), out);
        } else {
            write(out, text.substr(0, length));
        }
        text.remove_prefix(length);
    }
    write(out, "\n");
}

} // namespace

bool makesPages() noexcept { return true; }

// The stream tells whether all was written.
std::string writePage(const PictureContent& content, std::FILE* out) {
    const PictureContent::Shown& shown = content.paths.front();
    const BlockTable& blocks = shown.path->blocks;
    write(out, kPageHead);
    write(out, "<script type=\"text/plain\" id=\"path\">");
    writeBase64(out, PathBytes(*shown.path).Bytes());
    write(out, "</script>\n<pre hidden id=\"texts\">");
    writeLine(out, shown.name);
    for (std::uint32_t block = 0; block < blocks.Count(); ++block) {
        writeLine(out, blocks.Text(block));
    }
    write(out, "</pre>\n");
    write(out, kPageTail);
    return {};
}
