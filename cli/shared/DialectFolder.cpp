#include "cli/shared/DialectFolder.h"

#include "driver/LineReader.h"
#include "softCommon/FileOwner.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace {

constexpr const char* kSuffix = ".pp";

bool isMissing(const char* name) noexcept { return access(name, F_OK) != 0 && errno == ENOENT; }

// The installation is found from the program's own place, so an installed tree can be moved.
std::filesystem::path installedFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        return {};
    }
    return (program.parent_path() / QUILLMARK_DIALECTS_FROM_PROGRAM).lexically_normal();
}

// The comment may begin with the name of its dialect, which is told anyway.
std::string withoutName(std::string_view comment, const std::string& name) {
    const std::string head = name + ": ";
    return std::string(comment.substr(comment.starts_with(head) ? head.size() : 0));
}

std::string firstComment(const std::string& file, const std::string& name) {
    constexpr std::string_view kMark = "# ";
    const FileOwner stream(std::fopen(file.c_str(), "r"));
    if (stream == nullptr) {
        return {};
    }
    LineReader lines(stream.get());
    for (std::string_view line; lines.Next(line);) {
        if (line.starts_with(kMark)) {
            line.remove_prefix(kMark.size());
            return withoutName(line.substr(0, line.find_last_not_of(" \r\n") + 1), name);
        }
    }
    return {};
}

} // namespace

DialectFolder::DialectFolder() {
    const char* const chosen = std::getenv("QUILLMARK_DIALECTS");
    m_isChosen = chosen != nullptr && *chosen != '\0';
    m_name = m_isChosen ? chosen : installedFolder().string();
}

std::string DialectFolder::Find(const char* name) const {
    const bool mayBeDialect = *name != '\0' && std::strchr(name, '/') == nullptr;
    if (mayBeDialect && !m_name.empty() && isMissing(name)) {
        std::string file = m_name + "/" + name + kSuffix;
        if (!isMissing(file.c_str())) {
            return file;
        }
    }
    return name;
}

std::vector<DialectFolder::Dialect> DialectFolder::List(int& error) const {
    std::vector<Dialect> dialects;
    std::error_code code;
    std::filesystem::directory_iterator entry(m_name, code);
    for (; !code && entry != std::filesystem::directory_iterator(); entry.increment(code)) {
        if (const std::filesystem::path& file = entry->path(); file.extension() == kSuffix) {
            const std::string name = file.stem().string();
            dialects.push_back({name, firstComment(file.string(), name)});
        }
    }
    error = code.value();
    std::ranges::sort(dialects, {}, &Dialect::name);
    return dialects;
}
