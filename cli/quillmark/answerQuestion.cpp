#include "cli/quillmark/answerQuestion.h"

#include "cli/quillmark/helpText.h"
#include "cli/shared/flushStandardOutput.h"
#include "cli/shared/printDialects.h"
#include "cli/shared/versionText.h"
#include "driver/Controller.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

// Whether there is an answer.
bool answerHelp() {
    printHelp(stdout, Controller().CmdLineParamsDesc());
    return true;
}

bool answerVersion() {
    printVersion(stdout, "quillmark");
    return true;
}

bool answerDialects() { return printDialects(stdout, "quillmark"); }

struct Question {
    const char* text;
    bool (*answer)();
};

constexpr Question kQuestions[] = {
    {"--help", answerHelp},
    {"-h", answerHelp},
    {"--version", answerVersion},
    {"--dialects", answerDialects},
};

} // namespace

int answerQuestion(const char* argument) {
    const auto* const question = std::ranges::find_if(
        kQuestions, [&](const Question& row) { return std::strcmp(argument, row.text) == 0; });
    if (question == std::end(kQuestions)) {
        return -1;
    }
    const bool isAnswered = question->answer();
    return flushStandardOutput("quillmark") && isAnswered ? 0 : 1;
}
