#pragma once

/// Which rotary axes the control moves the linear ones along with, so that its positions are those
/// of the tip in the part's frame.
struct Compensation {
    bool table = false;
    bool head = false;

    bool operator==(const Compensation&) const = default;
};
