#include "commands/FeedRate.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"
#include "commands/consumeWord.h"

FeedRate::FeedRate(MachineStatus* status, Factory* factory)
    : m_status(status), m_writer(factory->GetFeedRaCom()) {}

FeedRate::~FeedRate() = default;

void FeedRate::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                              CommandGroup* group, MachineStatus* status, Boolean perMinute) {
    InitModalSyntax(syntax, number, group);
    m_status = status;
    m_writer.reset(factory->GetFeedRaCom());
    m_perMinute = perMinute;
}

bool FeedRate::consumeSpeed(char* line) {
    const std::optional<double> speed = consumeWord(m_speedWord, line, m_status);
    if (speed) {
        m_status->InitFeedRateSpeed(*speed);
    }
    return speed.has_value();
}

void FeedRate::InitStatus(char* line) {
    consumeSpeed(line);
    m_writer->InitOutput(m_perMinute, m_status->GetFeedRateSpeed());
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int FeedRate::Compute(char* line) {
    if (consumeSpeed(line)) {
        m_writer->InitOutput(m_perMinute, m_status->GetFeedRateSpeed());
    }
    return 0;
}
