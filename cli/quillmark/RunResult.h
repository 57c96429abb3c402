#pragma once

#include "cli/shared/errorLine.h"
#include "softCommon/CErrorUtil/processEnd.h"

#include <optional>

/// How a run of the front end ended, for its reports.
struct RunResult {
    ConversionFiles files;
    std::optional<int> code;         ///< of the conversion; none when it was not brought to its end
    std::optional<int> exitStatus;   ///< none when a signal ends the process
    int signal = 0;                  ///< that stopped the conversion between two blocks; 0 for none
    const ProcessEnd* end = nullptr; ///< the end of the process within the conversion, if there is
    double seconds = 0.0;            ///< the time that the conversion took
};
