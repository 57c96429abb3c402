#include "cli/quillmark-view/readPath.h"

#include "cli/shared/fileError.h"
#include "cli/shared/printText.h"
#include "path/AptReader.h"
#include "softCommon/FileOwner.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <sys/stat.h>

namespace {

bool fail(const char* name, const std::string& reason) {
    printFileError(kProgramName, name, reason);
    return false;
}

// A folder can be opened, but not read.
FileOwner openFile(const char* name) {
    FileOwner file(std::fopen(name, "rb"));
    struct stat status {};
    if (file != nullptr && fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) {
        file.reset();
        errno = EISDIR;
    }
    if (file == nullptr) {
        (void)fail(name, std::string("cannot be read: ") + std::strerror(errno));
    }
    return file;
}

void beginWarning(const char* name) {
    std::fprintf(stderr, "%s: warning: '", kProgramName);
    printText(stderr, name);
    std::fputs("': ", stderr);
}

void tellUnknown(const char* name, const UnknownStatements& unknown) {
    for (const UnknownStatements::Row& row : unknown.Rows()) {
        beginWarning(name);
        printText(stderr, row.name);
        std::fprintf(stderr,
                     " is not known in this form: passed over %zu time%s, first in line %u\n",
                     row.count, row.count == 1 ? "" : "s", row.line);
    }
    if (unknown.Others() > 0) {
        beginWarning(name);
        std::fprintf(stderr, "%zu further statements are not known\n", unknown.Others());
    }
}

bool readBlocks(const char* apt, const char* log, ToolPath& path) {
    const FileOwner logFile = openFile(log);
    const FileOwner aptFile = logFile == nullptr ? nullptr : openFile(apt);
    if (aptFile == nullptr) {
        return false;
    }
    const std::string reason = path.blocks.Read(logFile.get(), aptFile.get());
    return reason.empty() || fail(log, reason);
}

} // namespace

bool readPath(const char* apt, const char* log, ToolPath& path) {
    const FileOwner file = openFile(apt);
    if (file == nullptr) {
        return false;
    }
    AptReader reader;
    const bool isRead = reader.Read(file.get(), path);
    tellUnknown(apt, path.unknown);
    if (!isRead) {
        return fail(apt, "line " + std::to_string(reader.Line()) + ": " + reader.Reason());
    }
    if (path.movements.empty()) {
        return fail(apt, path.lines == 0 ? "the file is empty" : "no statement moves the tool");
    }
    if (path.endsWithinLine) {
        beginWarning(apt);
        std::fputs("the last line has no end, so the file may have been cut off\n", stderr);
    }
    return log == nullptr || readBlocks(apt, log, path);
}
