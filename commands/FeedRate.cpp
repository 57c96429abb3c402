#include "commands/FeedRate.h"

#include "apt/Factory.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"

FeedRate::FeedRate(MachineStatus* status, Factory* factory)
    : WithWriter(factory->GetFeedRaCom(), status) {}

FeedRate::~FeedRate() = default;

void FeedRate::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                              CommandGroup* group, MachineStatus* status, Boolean perMinute) {
    InitModalSyntax(syntax, number, group);
    initStatus(status);
    replaceWriter(factory->GetFeedRaCom());
    m_perMinute = perMinute;
}

// On some controls the feed ends with its mode, even where the same one begins.
void FeedRate::InitStatus(char* line) {
    const Control* const control = status().GetControl();
    if (control != nullptr && control->isStrict) {
        status().InitFeedRateSpeed(0.0);
    }
    TechnologyCommand::InitStatus(line);
}

// The unit in which it counts may change before the command acts.
void FeedRate::keepValue(double value) noexcept { m_newFeed = value; }

int FeedRate::Act() {
    Control* const control = status().GetControl();
    if (m_newFeed) {
        status().InitFeedRateSpeed(*m_newFeed);
        m_newFeed.reset();
        if (control != nullptr) {
            control->pitch.reset();
        }
    }
    const double feed = status().GetFeedRateSpeed();
    if (control != nullptr && control->units.IsOutputInch()) {
        writer().WriteFine(m_perMinute == TRUE, feed * control->units.ToOutput(), true);
    } else {
        writer().InitOutput(m_perMinute,
                            control == nullptr ? feed : feed * control->units.ToOutput());
    }
    return 0;
}
