#include "softCommon/CDebugUtil/dbtrace.h"

#include <cstdlib>
#include <cstring>
#include <limits>

std::FILE* stddbg = nullptr;
std::int16_t db_initialized = 0;
DebugNode* db_root = nullptr;
DebugNode* db_actual = nullptr;
std::array<char*, db_levelList.size()> db_spLevel{};

namespace {

constexpr char kRule[] = "===================================================\n";

// The log file opened here, so that the next change of the stream closes it. Streams that belong
// to the host or to the process are never closed.
std::FILE* g_logFile = nullptr;

std::FILE* openLogFile(const char* name) noexcept {
    g_logFile = std::fopen(name, "a");
    if (g_logFile == nullptr) {
        std::perror("open Debug logfile");
        return stdout;
    }
    return g_logFile;
}

void chooseStream() noexcept {
    const char* const name = std::getenv("DEBUG_LOGFILE");
    if (name == nullptr) {
        stddbg = debugStream();
        return;
    }
    if (g_logFile != nullptr) {
        (void)std::fclose(g_logFile);
        g_logFile = nullptr;
    }
    if (std::strcmp(name, "stdout") == 0) {
        stddbg = stdout;
    } else if (std::strcmp(name, "stderr") == 0) {
        stddbg = stderr;
    } else {
        stddbg = openLogFile(name);
    }
}

int levelFromEnvironment() noexcept {
    const char* const keyword = std::getenv("DEBUGLEVEL");
    if (keyword != nullptr) {
        for (const DebugLevel& row : db_levelList) {
            if (std::strcmp(keyword, row.keyword) == 0) {
                return row.level;
            }
        }
    }
    return 0;
}

char* copyOfVariable(const char* name) noexcept {
    const char* const value = std::getenv(name);
    return value == nullptr ? nullptr : strdup(value);
}

DebugNode* newRoot(int level) noexcept {
    auto* const root = static_cast<DebugNode*>(std::malloc(sizeof(DebugNode)));
    char* const name = strdup("dbinit");
    if (root == nullptr || name == nullptr) {
        std::perror("dbinit (malloc db_root)");
        std::free(name);
        std::free(root);
        return nullptr;
    }
    *root = DebugNode{};
    root->name = name;
    root->level = level;
    return root;
}

void releaseSettings() noexcept {
    if (db_root != nullptr) {
        std::free(db_root->name);
        std::free(db_root);
    }
    db_root = db_actual = nullptr;
    for (char*& list : db_spLevel) {
        std::free(list);
        list = nullptr;
    }
    db_initialized = 0;
}

// Returns 0, or 1 without memory for the root node.
int readSettings() noexcept {
    releaseSettings();
    chooseStream();
    const int level = levelFromEnvironment();
    for (std::size_t row = 0; row < db_levelList.size(); ++row) {
        db_spLevel[row] = copyOfVariable(db_levelList[row].listVariable);
    }
    db_root = db_actual = newRoot(level);
    if (db_root == nullptr) {
        releaseSettings();
        return 1;
    }
    return 0;
}

void warnWithCounter(const char* format) noexcept {
    if (db_root->level > 0) {
        std::FILE* const stream = debugStream();
        (void)std::fputs(kRule, stream);
        (void)std::fprintf(stream, format, static_cast<int>(db_initialized));
        (void)std::fputs(kRule, stream);
    }
}

int refuseUninitialized() noexcept {
    (void)std::fputs("Debugging nicht initialisiert!\n"
                     "Bitte zuerst dbinit aufrufen!\n",
                     debugStream());
    return -1;
}

void reportError(const char* routine, int code) noexcept {
    (void)std::fprintf(debugStream(), "Error in %s. Rc=%d\n", routine, code);
}

} // namespace

std::FILE* debugStream() noexcept { return stddbg != nullptr ? stddbg : stdout; }

int dbinit() noexcept { return dbinit_internal(1); }

int dbinit_no() noexcept { return dbinit_internal(0); }

int dbinit_internal(int print) noexcept {
    int code = 0;
    if (db_initialized != 0) {
        warnWithCounter("Warning: Debug already initialized (initcounter=%d)\n");
    } else {
        code = readSettings();
    }
    if (code == 0 && db_initialized < std::numeric_limits<std::int16_t>::max()) {
        ++db_initialized;
    }
    if (print == 1) {
        dboutpr();
    }
    if (code != 0) {
        reportError("dbinit", code);
    }
    return code;
}

void dbexit() noexcept {
    if (db_initialized == 0) {
        reportError("dbexit", refuseUninitialized());
    } else if (db_initialized == 1) {
        releaseSettings();
    } else {
        warnWithCounter("Warning: Debug not freed yet, initcounter=%d\n");
        --db_initialized;
    }
    (void)std::fflush(debugStream());
}

int dboutpr() noexcept {
    if (db_initialized == 0) {
        return refuseUninitialized();
    }
    if (db_root->level > 0) {
        std::FILE* const stream = debugStream();
        (void)std::fputs(kRule, stream);
        (void)std::fprintf(stream, "%s=%d (Default)\n", "DEBUGLEVEL", db_root->level);
        for (std::size_t row = 0; row < db_levelList.size(); ++row) {
            const char* const list = db_spLevel[row];
            (void)std::fprintf(stream, "(%d) %-18s=%s\n", db_levelList[row].level,
                               db_levelList[row].listVariable, list != nullptr ? list : "<NULL>");
        }
        (void)std::fputs(kRule, stream);
        (void)std::fflush(stream);
    }
    return 0;
}
