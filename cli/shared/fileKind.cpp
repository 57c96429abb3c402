#include "cli/shared/fileKind.h"

#include "softCommon/FileOwner.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <sys/stat.h>

namespace {

constexpr std::size_t kHeadSize = 4096;
constexpr std::size_t kOldLineSize = 80; // of a parameter file of the older generation

// Takes the first line out of `text`, without its end.
std::string_view takeLine(std::string_view& text) noexcept {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line.substr(0, line.find_last_not_of('\r') + 1);
}

std::string_view withoutLeading(std::string_view text, const char* bytes) noexcept {
    return text.substr(std::min(text.find_first_not_of(bytes), text.size()));
}

bool isOneOf(char c, std::string_view bytes) noexcept { return bytes.find(c) != bytes.npos; }

// An address with its value ("G01", "X-5", "R1=2", "o<drill>").
bool beginsWithWord(std::string_view line) noexcept {
    if (line.empty() || std::isalpha(static_cast<unsigned char>(line[0])) == 0) {
        return false;
    }
    const std::string_view value = withoutLeading(line.substr(1), " \t");
    return !value.empty() && isOneOf(value[0], "0123456789+-.=#[<");
}

// A call with its arguments ("CYCLE81(5)").
bool beginsWithCall(std::string_view line) noexcept {
    const auto* const end = std::ranges::find_if_not(
        line, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; });
    return end != line.begin() && end != line.end() && *end == '(';
}

// A block number without a letter and a word behind it ("12 G1").
bool beginsWithNumber(std::string_view line) noexcept {
    const std::string_view behind = withoutLeading(line, "0123456789");
    const std::string_view word = withoutLeading(behind, " \t");
    return behind.size() < line.size() && word.size() < behind.size() && !word.empty() &&
           std::isalpha(static_cast<unsigned char>(word[0])) != 0;
}

bool isAside(std::string_view line) noexcept { return isOneOf(line[0], "%(;"); }

} // namespace

std::string headOf(const char* fileName) {
    struct stat file {};
    if (stat(fileName, &file) != 0 || !S_ISREG(file.st_mode)) {
        return {};
    }
    const FileOwner stream(std::fopen(fileName, "rb"));
    std::string head(stream == nullptr ? 0 : kHeadSize, '\0');
    head.resize(stream == nullptr ? 0 : std::fread(head.data(), 1, head.size(), stream.get()));
    return head;
}

bool looksLikeParameterFile(std::string_view head) noexcept {
    const std::string_view line = takeLine(head);
    return line.starts_with("##") && line.find("Header") != line.npos;
}

bool looksLikeProgram(std::string_view head) noexcept {
    std::string_view rest = head;
    if (takeLine(rest).find("Header") != head.npos) {
        return false;
    }
    long lines = 0;
    long blocks = 0;
    long words = 0;
    while (!head.empty()) {
        const std::string_view whole = takeLine(head);
        const std::string_view line = withoutLeading(whole, " \t/:");
        if (line.empty()) {
            continue;
        }
        if (++lines == 1 && whole.size() == kOldLineSize) {
            return false;
        }
        const bool isWord = beginsWithWord(line) || beginsWithNumber(line);
        words += isWord ? 1 : 0;
        blocks += isWord || beginsWithCall(line) || isAside(line) ? 1 : 0;
    }
    // Of a parameter file without its first line, half the lines are values and look so.
    return words > 0 && 3 * blocks > 2 * lines;
}
