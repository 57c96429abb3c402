#pragma once

#include <string>
#include <vector>

/// The folder of the dialects that are ready to use: the one that the environment variable
/// QUILLMARK_DIALECTS names, else the one of the installation that the program belongs to. Each is
/// a parameter file NAME.pp. May throw std::bad_alloc.
class DialectFolder {
public:
    struct Dialect {
        std::string name;
        std::string text; ///< what it is for: the first comment of the file; may be empty
    };

    DialectFolder();

    /// The folder's own name, for messages; empty when nobody knows where it lies.
    [[nodiscard]] const std::string& Name() const noexcept { return m_name; }
    /// Whether the environment variable names it.
    [[nodiscard]] bool IsChosen() const noexcept { return m_isChosen; }
    /// The file that is meant by `name`: the file of that dialect when no file has the name as it
    /// stands, else `name`.
    [[nodiscard]] std::string Find(const char* name) const;
    /// All dialects by name; none, with errno in `error`, when the folder cannot be read.
    [[nodiscard]] std::vector<Dialect> List(int& error) const;

private:
    std::string m_name;
    bool m_isChosen = false;
};
