#include "softCommon/CMathUtil/gmAssert.h"

#include "softCommon/CErrorUtil/processEnd.h"

void gmAssertFailed(const char* expression, const char* file, unsigned line, const char* function) {
    ProcessEnd end;
    end.kind = ProcessEnd::Kind::kAssertion;
    end.expression = expression;
    end.file = file;
    end.line = line;
    end.function = function;
    endProcess(end);
}
