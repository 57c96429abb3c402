#include "commands/ThreadMovement.h"

#include "apt/Factory.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <string_view>

ThreadMovement::ThreadMovement(MachineStatus* status, Factory* factory)
    : PathMovement(status), m_feedWriter(factory->GetFeedRaCom()) {
    writer().SetStraight(factory->GetLinearCom());
    setRank(CommandRank::kTakesWords);
}

ThreadMovement::~ThreadMovement() = default;

void ThreadMovement::InitStatus(char* line) {
    takePitch(line);
    PathMovement::InitStatus(line);
}

// A block with the command's own word has given its pitch already.
int ThreadMovement::ClaimWords(char* line) {
    if (GetNCLineStatus() != TRUE) {
        takePitch(line);
    }
    return 0;
}

// A strict control wants to see the block of its code also when no position stands on it.
bool ThreadMovement::TakeWords(char* line) {
    m_hasPosition = PathMovement::TakeWords(line);
    return m_hasPosition || (GetNCLineStatus() == TRUE && status().GetControl()->isStrict);
}

void ThreadMovement::takePitch(char* line) {
    m_pitch.reset();
    Control& control = *status().GetControl();
    Parameter* const word = control.words.threadPitch.TakeWord(line, status());
    if (word == nullptr) {
        return;
    }
    m_pitch = word->GetValue();
    const Parameter* const feed = control.words.feed;
    if (feed != nullptr && std::string_view(word->GetSyntaxString()) == feed->GetSyntaxString()) {
        control.pitch = m_pitch;
    }
}

int ThreadMovement::makeMovement(Movement& movement) {
    movement.rapid = FALSE;
    movement.arc.reset();
    movement.needsFeed = false;
    return resolveEndPoint(movement.end);
}

int ThreadMovement::Act() {
    Control& control = *status().GetControl();
    if (control.isStrict && !m_hasPosition) {
        return control.Refuse(kBlockRefused, "a thread code has no position");
    }
    const std::optional<double> pitch = m_pitch ? m_pitch : control.pitch;
    if (!pitch) {
        return control.Refuse(kBlockRefused, "a thread has no pitch");
    }
    if (!(*pitch > 0.0)) {
        return control.Refuse(kBlockRefused, "the pitch of a thread is not above 0");
    }
    writePitch(*pitch);
    const int code = PathMovement::Act();
    if (code == 0) {
        writeFeed();
    }
    return code;
}

void ThreadMovement::writePitch(double pitch) const {
    const LengthUnits& units = status().GetControl()->units;
    m_feedWriter->WriteFine(false, pitch * units.ToOutput(), units.IsOutputInch());
}

// Before the first feed there is none to come back to.
void ThreadMovement::writeFeed() {
    if (Command* const feed = status().GetFeedRateCom()->GetActiveCommand();
        feed != nullptr && status().GetFeedRateSpeed() != 0.0) {
        (void)feed->Act();
    }
}
