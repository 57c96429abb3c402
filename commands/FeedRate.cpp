#include "commands/FeedRate.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

FeedRate::FeedRate(MachineStatus* status, Factory* factory)
    : SpeedCommand(status), m_writer(factory->GetFeedRaCom()) {}

FeedRate::~FeedRate() = default;

void FeedRate::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                              CommandGroup* group, MachineStatus* status, Boolean perMinute) {
    InitSpeedSyntax(syntax, number, group, status);
    m_writer.reset(factory->GetFeedRaCom());
    m_perMinute = perMinute;
}

void FeedRate::keepSpeed(double speed) noexcept { Status().InitFeedRateSpeed(speed); }

void FeedRate::writeSpeed() { m_writer->InitOutput(m_perMinute, Status().GetFeedRateSpeed()); }
