#include "commands/FeedRate.h"

#include "apt/Factory.h"
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

void FeedRate::keepValue(double value) noexcept { status().InitFeedRateSpeed(value); }

int FeedRate::Act() {
    writer().InitOutput(m_perMinute, status().GetFeedRateSpeed());
    return 0;
}
