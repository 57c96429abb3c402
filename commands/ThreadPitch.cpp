#include "commands/ThreadPitch.h"

#include "apt/Factory.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <string_view>

ThreadPitch::ThreadPitch(MachineStatus& status, Factory* factory)
    : m_status(status), m_feedWriter(factory->GetFeedRaCom()) {}

void ThreadPitch::Take(char* line) {
    m_pitch.reset();
    Control& control = *m_status.GetControl();
    Parameter* const word = control.words.threadPitch.TakeWord(line, m_status);
    if (word == nullptr) {
        return;
    }
    m_pitch = word->GetValue();
    const Parameter* const feed = control.words.feed;
    if (feed != nullptr && std::string_view(word->GetSyntaxString()) == feed->GetSyntaxString()) {
        control.pitch = m_pitch;
        control.pitchIsOfBlock = true;
    }
}

int ThreadPitch::Begin() {
    Control& control = *m_status.GetControl();
    const std::optional<double> pitch = m_pitch ? m_pitch : control.pitch;
    if (!pitch) {
        return control.Refuse(kBlockRefused, "a thread has no pitch");
    }
    if (!(*pitch > 0.0)) {
        return control.Refuse(kBlockRefused, "the pitch of a thread is not above 0");
    }
    const LengthUnits& units = control.units;
    m_feedWriter->WriteFine(false, *pitch * units.ToOutput(), units.IsOutputInch());
    return 0;
}

void ThreadPitch::End() {
    if (Command* const feed = m_status.GetFeedRateCom()->GetActiveCommand();
        feed != nullptr && m_status.GetFeedRateSpeed() != 0.0) {
        (void)feed->Act();
    }
}
