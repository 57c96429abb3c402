#include "commands/ThreadPass.h"

ThreadPass::ThreadPass(Control& control, MachineStatus& status, Factory* factory)
    : LathePass(control, status, LathePassKind::kTurn), m_pitch(status, factory) {
    setRank(CommandRank::kTakesWords);
}

ThreadPass::~ThreadPass() = default;

void ThreadPass::InitStatus(char* line) {
    m_pitch.Take(line);
    LathePass::InitStatus(line);
}

// A block with the command's own word has given its pitch already.
int ThreadPass::ClaimWords(char* line) {
    if (GetNCLineStatus() != TRUE) {
        m_pitch.Take(line);
    }
    return 0;
}

int ThreadPass::makePass(const PassPoints& points) {
    int code = goTo(TRUE, points.begin);
    code = code != 0 ? code : m_pitch.Begin();
    code = code != 0 ? code : moveTo(FALSE, points.end, false);
    code = code != 0 ? code : goTo(TRUE, points.out);
    code = code != 0 ? code : goTo(TRUE, points.start);
    if (code == 0) {
        m_pitch.End();
    }
    return code;
}
