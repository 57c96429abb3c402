#pragma once

#include "apt/ResFeedRate.h"

/// The feed in APT.
class AResFeedRate final : public ResFeedRate {
public:
    using ResFeedRate::ResFeedRate;

    void InitOutput(Boolean perMinute, const double& feed) override;
    void WriteFine(bool perMinute, double feed, bool isInch) override;
};
