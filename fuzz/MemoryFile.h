#pragma once

#include <string>
#include <string_view>

/// A file in memory that other code opens by name, thousands of times a second.
class MemoryFile {
public:
    MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile();

    [[nodiscard]] const char* path() const noexcept { return m_path.c_str(); }
    void write(std::string_view bytes);
    [[nodiscard]] std::string read() const;

private:
    int m_descriptor;
    std::string m_path;
};
