#pragma once

#include "apt/Result.h"
#include "softCommon/Boolean.h"

/// Writes the result of a feed command in the output language.
class ResFeedRate : public Result {
public:
    using Result::Result;
    ResFeedRate(const ResFeedRate&) = delete;
    ResFeedRate& operator=(const ResFeedRate&) = delete;

    /// Writes the feed, in mm/min when `perMinute` is 1, else in mm/rev.
    virtual void InitOutput(Boolean perMinute, const double& feed) = 0;
    virtual ~ResFeedRate() = default;
    /// The same with more decimals, and in inches where they say so.
    virtual void WriteFine(bool perMinute, double feed, bool isInch) {
        (void)isInch;
        InitOutput(perMinute ? TRUE : FALSE, feed);
    }
};
