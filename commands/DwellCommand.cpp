#include "commands/DwellCommand.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

DwellCommand::~DwellCommand() = default;

void DwellCommand::takeWords(char* line) {
    struct Unit {
        const WordList& words;
        double divisor;
        bool isTurn;
    };
    const ControlWords& words = control().words;
    m_times = 0;
    for (const auto& [list, divisor, isTurn] :
         {Unit{words.dwellSeconds, 1.0, false}, Unit{words.dwellMilliseconds, 1000.0, false},
          Unit{words.dwellTurns, 1.0, true}}) {
        while (const std::optional<double> number = list.Take(line, m_status)) {
            m_time = *number / divisor;
            m_isInTurns = isTurn;
            ++m_times;
        }
    }
    control().hasDwell = true;
}

int DwellCommand::Act() {
    if (m_times == 0) {
        return control().Refuse(kBlockRefused, "a dwell has no time");
    }
    if (m_times > 1) {
        return control().Refuse(kBlockRefused, "a dwell has more than one time");
    }
    if (m_time < 0.0) {
        return control().Refuse(kBlockRefused, "the time of a dwell is negative");
    }
    ResControl& writer = *control().writer;
    if (m_isInTurns) {
        writer.WriteDelayInTurns(m_time);
    } else {
        writer.WriteDelay(m_time);
    }
    return 0;
}
