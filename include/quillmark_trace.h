#pragma once

#include <cstdio>

/// The stream of all diagnostic output: the debug trace and the numbered messages. While it is
/// null, output goes to standard output. A host of libquillmark.a may set it; the library closes
/// only log files that it opened itself.
extern std::FILE* stddbg;
