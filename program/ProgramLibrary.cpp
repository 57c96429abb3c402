#include "program/ProgramLibrary.h"

#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/FileOwner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>

namespace {

namespace fs = std::filesystem;

// In the order of preference; an empty one is a name without extension.
constexpr std::string_view kOWordExtensions[] = {".ngc", ".nc", ""};
constexpr std::string_view kHashExtensions[] = {"",     ".nc",  ".ngc", ".txt", ".tap", ".cnc",
                                                ".min", ".prg", ".eia", ".sub", ".mpf", ".spf"};
constexpr std::string_view kRParameterExtensions[] = {".spf", ".mpf", ""};

std::span<const std::string_view> extensionsOf(ProgramLanguage language) noexcept {
    switch (language) {
    case ProgramLanguage::kHash:
        return kHashExtensions;
    case ProgramLanguage::kRParameter:
        return kRParameterExtensions;
    default:
        return kOWordExtensions;
    }
}

std::string smallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), toLowerByte);
    return small;
}

// The number of a program that is named "O0010", ":10" or "10".
std::optional<long> programNumber(std::string_view name) noexcept {
    if (!name.empty() && (toLowerByte(name[0]) == 'o' || name[0] == ':')) {
        name.remove_prefix(1);
    }
    long number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isNumber = !name.empty() && isDigitByte(name[0]) && error == std::errc{} &&
                          end == name.data() + name.size();
    return isNumber ? std::optional(number) : std::nullopt;
}

// "DRILL" of "%_N_DRILL_SPF", "_N_DRILL_MPF" and "DRILL".
std::string_view bareName(std::string_view small) noexcept {
    for (const std::string_view before : {"%_n_", "_n_"}) {
        if (small.starts_with(before)) {
            small.remove_prefix(before.size());
            break;
        }
    }
    for (const std::string_view behind : {"_spf", "_mpf"}) {
        if (small.ends_with(behind)) {
            small.remove_suffix(behind.size());
            break;
        }
    }
    return small;
}

} // namespace

ProgramLibrary::ProgramLibrary(LineParser& parser, std::string mainText,
                               const std::string& mainName, std::vector<std::string> folders)
    : m_parser(parser) {
    m_files.push_back(std::make_unique<ProgramFile>(std::move(mainText), "", parser));
    m_byPath.emplace(mainName, m_files.back().get());
    const std::string own = fs::path(mainName).parent_path().string();
    m_folders.push_back(own.empty() ? "." : own);
    std::ranges::move(folders, std::back_inserter(m_folders));
}

std::optional<ProgramLibrary::Place> ProgramLibrary::find(const Query& query, ProgramFile& caller,
                                                          long callingLine) {
    if (auto place = findInside(query, caller, callingLine)) {
        return place;
    }
    if (&caller != &mainFile()) {
        if (auto place = findInside(query, mainFile(), mainFile().lineCount())) {
            return place;
        }
    }
    if (ProgramFile* const file = fileFor(query)) {
        if (auto place = findInside(query, *file, file->lineCount())) {
            return place;
        }
        // A file with one name less text in it: its own name is what counts.
        const bool needsDefinition =
            query.isDefinition && m_parser.rules().language == ProgramLanguage::kOWord;
        if (!needsDefinition) {
            const ProgramFile::Part& part = file->parts().front();
            return Place{file, part.first, part.end};
        }
    }
    return findDefinition(query.name, caller, callingLine, true);
}

std::optional<ProgramLibrary::Place>
ProgramLibrary::findInside(const Query& query, ProgramFile& file, long callingLine) const {
    const ProgramLanguage language = m_parser.rules().language;
    if (language == ProgramLanguage::kOWord) {
        if (auto place = findDefinition(query.name, file, callingLine, !query.isDefinition)) {
            return place;
        }
    }
    if (language != ProgramLanguage::kHash) {
        const auto& lines = file.index().beginnings(query.name);
        if (!lines.empty() && !(query.isDefinition && language == ProgramLanguage::kOWord)) {
            return Place{&file, lines.front(), file.partOf(lines.front()).end};
        }
    }
    for (const ProgramFile::Part& part : file.parts()) {
        if (!part.name.empty() && isFileOf(query, smallLetters(part.name))) {
            return Place{&file, part.first, part.end};
        }
    }
    return std::nullopt;
}

// One that stands before the call comes first, then a file, then one behind the call.
std::optional<ProgramLibrary::Place> ProgramLibrary::findDefinition(std::string_view name,
                                                                    ProgramFile& file,
                                                                    long callingLine,
                                                                    bool isAnywhere) const {
    const auto& definitions = file.index().definitions(name);
    const auto behind = std::ranges::find_if(
        definitions, [&](const auto& definition) { return definition.first > callingLine; });
    if (behind == definitions.begin() && (!isAnywhere || definitions.empty())) {
        return std::nullopt;
    }
    const auto& found = behind == definitions.begin() ? *behind : *std::prev(behind);
    return Place{&file, found.first + 1, found.last + 1};
}

bool ProgramLibrary::isFileOf(const Query& query, std::string_view stem) const {
    switch (m_parser.rules().language) {
    case ProgramLanguage::kHash:
        return query.number && programNumber(stem) == query.number;
    case ProgramLanguage::kRParameter:
        return bareName(stem) == bareName(smallLetters(query.name));
    default:
        return stem == query.name;
    }
}

ProgramFile* ProgramLibrary::fileFor(const Query& query) {
    const auto [found, isNew] = m_byName.try_emplace(query.name, nullptr);
    if (isNew) {
        found->second = openFor(query);
    }
    return found->second;
}

ProgramFile* ProgramLibrary::openFor(const Query& query) {
    for (const std::string& folder : m_folders) {
        const std::vector<Entry>& entries = entriesOf(folder);
        for (const std::string_view extension : extensionsOf(m_parser.rules().language)) {
            for (const Entry& entry : entries) {
                const std::string_view small = entry.small;
                const bool hasExtension = extension.empty()
                                              ? small.find('.') == std::string_view::npos
                                              : small.ends_with(extension);
                if (!hasExtension ||
                    !isFileOf(query, small.substr(0, small.size() - extension.size()))) {
                    continue;
                }
                if (ProgramFile* const file = open(entry.path)) {
                    return file;
                }
            }
        }
    }
    return nullptr;
}

const std::vector<ProgramLibrary::Entry>& ProgramLibrary::entriesOf(const std::string& folder) {
    const auto [found, isNew] = m_entries.try_emplace(folder);
    std::vector<Entry>& entries = found->second;
    if (isNew) {
        std::error_code error;
        for (fs::directory_iterator i(folder, error), end; !error && i != end; i.increment(error)) {
            const std::string name = i->path().filename().string();
            entries.push_back({smallLetters(name), i->path().string()});
        }
        std::ranges::sort(entries, {}, &Entry::path);
    }
    return entries;
}

// A link may point anywhere.
bool ProgramLibrary::leadsOut(const std::string& path) const {
    std::error_code error;
    if (!fs::is_symlink(path, error)) {
        return false;
    }
    const fs::path folder = fs::canonical(path, error).parent_path();
    return error || std::ranges::none_of(m_folders, [&](const std::string& known) {
               return folder == fs::canonical(known, error);
           });
}

ProgramFile* ProgramLibrary::open(const std::string& path) {
    const auto known = m_byPath.find(path);
    if (known != m_byPath.end()) {
        return known->second;
    }
    std::error_code error;
    if (!fs::is_regular_file(path, error) || leadsOut(path)) {
        return nullptr;
    }
    const FileOwner file(std::fopen(path.c_str(), "rb"));
    std::string text;
    if (file == nullptr || readStream(file.get(), text) != 0) {
        return nullptr;
    }
    m_files.push_back(std::make_unique<ProgramFile>(std::move(text), path, m_parser));
    m_byPath.emplace(path, m_files.back().get());
    return m_files.back().get();
}
