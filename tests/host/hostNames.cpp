// A host whose names happen to be those of the library: functions, variables of other types, and a
// class with another layout.

#include "tests/host/hostNames.h"

int g_hostCalls = 0;

#define HOST_FUNCTION(declaration, result)                                                         \
    declaration;                                                                                   \
    declaration {                                                                                  \
        ++g_hostCalls;                                                                             \
        return result;                                                                             \
    }

HOST_FUNCTION(int stricmp(const char* /*left*/, const char* /*right*/), 1)
HOST_FUNCTION(int dbinit(), 1)
HOST_FUNCTION(void fehler(int /*number*/), )
HOST_FUNCTION(char** freeCharFeld(char** /*array*/), nullptr)

char errorFile[3] = "no";
double severityLevel = 99.5;

class Controller {
public:
    Controller() noexcept { ++g_hostCalls; }
    virtual ~Controller();
};
Controller::~Controller() { ++g_hostCalls; }
