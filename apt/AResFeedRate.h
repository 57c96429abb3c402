#pragma once

#include "apt/ResFeedRate.h"

/// The feed in APT.
class AResFeedRate final : public ResFeedRate {
public:
    AResFeedRate(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : ResFeedRate(output, log, counts) {}

    void InitOutput(Boolean perMinute, const double& feed) override;
};
