#include "commands/InverseTime.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"

InverseTime::InverseTime(MachineStatus* status, Control& control) : TechnologyCommand(status) {
    control.inverseTimeCodes.push_back(this);
}

InverseTime::~InverseTime() = default;

// As with the other feed modes, a strict control forgets the feed.
void InverseTime::InitStatus(char* line) {
    if (status().GetControl()->isStrict) {
        status().InitFeedRateSpeed(0.0);
    }
    TechnologyCommand::InitStatus(line);
}

void InverseTime::keepValue(double value) noexcept { status().GetControl()->inverseFeed = value; }

int InverseTime::Act() { return 0; }
