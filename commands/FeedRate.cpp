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

// On some controls a feed belongs to its mode.
void FeedRate::InitStatus(char* line) {
    const Control* const control = status().GetControl();
    if (control != nullptr && control->forgetsFeed &&
        status().GetFeedRateCom()->GetActiveCommand() != this) {
        status().InitFeedRateSpeed(0.0);
    }
    TechnologyCommand::InitStatus(line);
}

void FeedRate::keepValue(double value) noexcept {
    status().InitFeedRateSpeed(value);
    if (Control* const control = status().GetControl()) {
        control->pitch.reset();
    }
}

int FeedRate::Act() {
    const double feed = status().GetFeedRateSpeed();
    const Control* const control = status().GetControl();
    if (control != nullptr && control->units.IsOutputInch()) {
        writer().WriteFine(m_perMinute == TRUE, feed * control->units.ToOutput(), true);
    } else {
        writer().InitOutput(m_perMinute,
                            control == nullptr ? feed : feed * control->units.ToOutput());
    }
    return 0;
}
