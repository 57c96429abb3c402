#pragma once

#include <string>
#include <string_view>

/// A new, empty folder that goes with the object, contents and all.
class TempFolder {
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] std::string path(std::string_view name) const;
    /// Writes the bytes as a file of the folder and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const;
    /// The bytes of a file of the folder; "(missing)" when there is none.
    [[nodiscard]] std::string read(std::string_view name) const;

private:
    std::string m_path;
};

/// The bytes of the file; "(missing)" when it cannot be read.
[[nodiscard]] std::string readFile(const std::string& path);
