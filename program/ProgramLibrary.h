#pragma once

#include "program/ProgramFile.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Finds subprograms: in the file of the caller, in that of the main program, as files beside it,
/// and in further folders. Owns all files of a program. Neither a name nor a link leads out of
/// those folders.
class ProgramLibrary {
public:
    /// Where a subprogram stands.
    struct Place {
        ProgramFile* file = nullptr;
        long first = 0; ///< line that is executed first
        long end = 0;   ///< behind its last line
    };
    /// What is looked for.
    struct Query {
        std::string name;           ///< as the family writes it; for a number its digits
        std::optional<long> number; ///< where the name is a number
        bool isDefinition = false;  ///< an o-word call; else a program or an "O100" of M98
    };

    /// `mainName` is the name of the main program's file; `parser` must outlive the library.
    ProgramLibrary(LineParser& parser, std::string mainText, const std::string& mainName,
                   std::vector<std::string> folders);

    [[nodiscard]] ProgramFile& mainFile() noexcept { return *m_files.front(); }
    /// None when there is no such subprogram. A file that cannot be read counts as missing.
    [[nodiscard]] std::optional<Place> find(const Query& query, ProgramFile& caller,
                                            long callingLine);

private:
    struct Entry {
        std::string small; ///< the file name in small letters
        std::string path;
    };

    [[nodiscard]] std::optional<Place> findInside(const Query& query, ProgramFile& file,
                                                  long callingLine) const;
    [[nodiscard]] std::optional<Place> findDefinition(std::string_view name, ProgramFile& file,
                                                      long callingLine, bool isAnywhere) const;
    [[nodiscard]] ProgramFile* fileFor(const Query& query); ///< null when there is none
    [[nodiscard]] ProgramFile* openFor(const Query& query);
    [[nodiscard]] bool isFileOf(const Query& query, std::string_view stem) const;
    [[nodiscard]] const std::vector<Entry>& entriesOf(const std::string& folder);
    [[nodiscard]] bool leadsOut(const std::string& path) const;
    [[nodiscard]] ProgramFile* open(const std::string& path);

    LineParser& m_parser;
    std::vector<std::string> m_folders;
    std::map<std::string, std::vector<Entry>> m_entries;
    std::map<std::string, ProgramFile*> m_byPath;
    std::map<std::string, ProgramFile*> m_byName;      // what was looked for among the folders
    std::vector<std::unique_ptr<ProgramFile>> m_files; // the main program first
};
