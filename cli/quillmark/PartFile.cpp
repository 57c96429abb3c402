#include "cli/quillmark/PartFile.h"

#include "driver/fileIdentity.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

void PartFile::Choose(const char* name, std::span<const char* const> inputs) {
    m_isChosen = name != nullptr;
    if (!m_isChosen) {
        return;
    }
    std::error_code error;
    m_name = name;
    if (std::filesystem::is_symlink(m_name, error)) {
        const auto target = std::filesystem::canonical(m_name, error);
        m_name = error ? name : target.string();
    }
    const auto kind = std::filesystem::status(m_name, error).type();
    const bool isStream = m_name == "-";
    const bool isReplaced = !isStream &&
                            (kind == std::filesystem::file_type::regular ||
                             (kind == std::filesystem::file_type::not_found &&
                              !std::filesystem::is_symlink(m_name, error))) &&
                            std::ranges::none_of(inputs, [&](const char* input) {
                                return isSameRegularFile(name, input);
                            });
    m_part = isReplaced ? m_name + ".part" : m_name;
}

const char* PartFile::GiveName() const noexcept {
    if (m_part == m_name || std::rename(m_part.c_str(), m_name.c_str()) == 0) {
        return nullptr;
    }
    return std::strerror(errno);
}
