#include "commands/FeedRate.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

FeedRate::FeedRate(MachineStatus* status, Factory* factory)
    : WithWriter(factory->GetFeedRaCom(), status) {}

FeedRate::~FeedRate() = default;

void FeedRate::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                              CommandGroup* group, MachineStatus* status, Boolean perMinute) {
    InitSpeedSyntax(syntax, number, group, status);
    replaceWriter(factory->GetFeedRaCom());
    m_perMinute = perMinute;
}

void FeedRate::keepSpeed(double speed) noexcept { Status().InitFeedRateSpeed(speed); }

int FeedRate::Act() {
    writer().InitOutput(m_perMinute, Status().GetFeedRateSpeed());
    return 0;
}
