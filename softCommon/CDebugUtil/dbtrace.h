#pragma once

#include "include/quillmark_trace.h" // stddbg

#include <array>
#include <cstdint>
#include <cstdio>

/// The debug trace: one stream, one level and six per-level lists for the whole process, all taken
/// from the environment by the first dbinit. Each conversion initialises and releases it; nested
/// users are counted. Single-threaded: plain globals without a lock.

/// The number of successful initialisations not yet matched by dbexit; stays at its maximum.
extern std::int16_t db_initialized;

/// One traced call.
struct DebugNode {
    char* name = nullptr;        ///< heap string of the node
    DebugNode* parent = nullptr; ///< the calling node; null for the root
    int level = 0;               ///< 0 (silent) to 5, see db_levelList
    DebugNode* child = nullptr;  ///< reserved for nested traced calls
    DebugNode* next = nullptr;   ///< reserved for nested traced calls
};

extern DebugNode* db_root;   ///< made by the first initialisation, released by the last dbexit
extern DebugNode* db_actual; ///< the current node; the root after initialisation

struct DebugLevel {
    int level;
    const char* keyword;      ///< value of DEBUGLEVEL, compared with case
    const char* listVariable; ///< environment variable with the list of this level
};

inline constexpr std::array<DebugLevel, 6> db_levelList{{
    {0, "OFF", "DEBUG_LIST_OFF"},
    {1, "LSKIP", "DEBUG_LIST_LSKIP"},
    {2, "ON", "DEBUG_LIST_ON"},
    {3, "TRACE", "DEBUG_LIST_TRACE"},
    {4, "ALL", "DEBUG_LIST_ALL"},
    {5, "LSHOW", "DEBUG_LIST_LSHOW"},
}};

/// Heap copies of the six list variables, in the order of db_levelList; null when unset.
extern std::array<char*, db_levelList.size()> db_spLevel;

/// The stream of all diagnostic output: stddbg, or standard output while that is null, as it is
/// until the first initialisation. Asking does not set stddbg.
[[nodiscard]] std::FILE* debugStream() noexcept;

/// Initialises the trace, or counts one more user of it, and prints the settings at a level above
/// 0. Returns 0, or 1 when memory is exhausted; the trace then stays as uninitialised as it was.
int dbinit() noexcept;
/// The same without printing the settings.
int dbinit_no() noexcept;
/// The worker of both; `print` is 1 or 0.
int dbinit_internal(int print) noexcept;

/// Releases one initialisation, the last one with everything but the stream, which is flushed and
/// stays open: a later dbinit without DEBUG_LOGFILE goes on writing to it.
void dbexit() noexcept;

/// Prints the settings at a level above 0. Returns 0, or -1 when not initialised.
int dboutpr() noexcept;
