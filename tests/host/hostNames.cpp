// A host whose names happen to be those of the library: plain functions, C functions, variables of
// other types, and classes with other layouts.

#include "tests/host/hostNames.h"

int g_hostCalls = 0;

#define HOST_FUNCTION(declaration, result)                                                         \
    declaration;                                                                                   \
    declaration {                                                                                  \
        ++g_hostCalls;                                                                             \
        return result;                                                                             \
    }

HOST_FUNCTION(int stricmp(const char* /*left*/, const char* /*right*/), 1)
HOST_FUNCTION(void string_mani(int /*code*/, char* /*string*/), )
HOST_FUNCTION(int dbinit(), 1)
HOST_FUNCTION(void fehler(int /*number*/), )
HOST_FUNCTION(double powerOfTen(long /*exponent*/), 2.0)
HOST_FUNCTION(char** freeCharFeld(char** /*array*/), nullptr)

char errorFile[3] = "no";
char stddbg[3] = "no";
double severityLevel = 99.5;

class Command {
public:
    Command() noexcept { ++g_hostCalls; }
    virtual ~Command();
    virtual int scanNC(char* line);
};
Command::~Command() { ++g_hostCalls; }
int Command::scanNC(char* /*line*/) { return ++g_hostCalls; }

class Controller : public Command {
public:
    Controller() noexcept;
    ~Controller() override;
};
Controller::Controller() noexcept { ++g_hostCalls; }
Controller::~Controller() { ++g_hostCalls; }
