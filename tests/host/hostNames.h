#pragma once

/// How often the host's own functions and classes of hostNames.cpp were called.
extern int g_hostCalls;
