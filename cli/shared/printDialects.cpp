#include "cli/shared/printDialects.h"

#include "cli/shared/DialectFolder.h"
#include "cli/shared/nearestName.h"
#include "cli/shared/printText.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

bool printDialects(std::FILE* stream, const char* program) {
    const DialectFolder folder;
    int error = 0;
    const std::vector<DialectFolder::Dialect> dialects = folder.List(error);
    if (dialects.empty()) {
        std::fprintf(stderr, "%s: no dialects in '", program);
        printText(stderr, folder.Name());
        std::fprintf(stderr, "'%s%s; QUILLMARK_DIALECTS names another folder\n",
                     error != 0 ? ": " : "", error != 0 ? std::strerror(error) : "");
        return false;
    }
    std::size_t width = 0;
    for (const DialectFolder::Dialect& dialect : dialects) {
        width = std::max(width, dialect.name.size());
    }
    for (const DialectFolder::Dialect& dialect : dialects) {
        printText(stream, dialect.name);
        if (!dialect.text.empty()) {
            std::fprintf(stream, "%*s", static_cast<int>(width - dialect.name.size()) + 2, "");
            printText(stream, dialect.text);
        }
        (void)std::fputc('\n', stream);
    }
    return true;
}

void printNearestDialect(std::FILE* stream, const char* program, const char* name) {
    const DialectFolder folder;
    int error = 0;
    const std::vector<DialectFolder::Dialect> dialects = folder.List(error);
    std::vector<std::string_view> names;
    names.reserve(dialects.size());
    for (const DialectFolder::Dialect& dialect : dialects) {
        names.push_back(dialect.name);
    }
    const std::string_view nearest = nearestName(name, names);
    // A name with a folder or an ending is meant as that of a file.
    const bool isFolderTold = folder.IsChosen() && std::strpbrk(name, "/.") == nullptr;
    if (nearest.empty() && !isFolderTold) {
        return;
    }
    std::fprintf(stream, "%s: no dialect", program);
    if (isFolderTold) {
        std::fputs(" of QUILLMARK_DIALECTS, '", stream);
        printText(stream, folder.Name());
        std::fputs("',", stream);
    }
    std::fputs(" has the name '", stream);
    printText(stream, name);
    (void)std::fputc('\'', stream);
    if (!nearest.empty()) {
        std::fputs("; the nearest is '", stream);
        printText(stream, nearest);
        std::fputs("' (quillmark --dialects lists them)", stream);
    }
    (void)std::fputc('\n', stream);
}
