#pragma once

/// What a program that computes asks about the state of the machine, between its blocks.
class MachineView {
public:
    virtual ~MachineView() = default;

    /// Where the last block ended, in the coordinates and units of the program; `axis` is 0 to 2.
    [[nodiscard]] virtual double position(int axis) const = 0;
    [[nodiscard]] virtual int tool() const = 0;
    [[nodiscard]] virtual double feed() const = 0;  ///< as programmed
    [[nodiscard]] virtual double speed() const = 0; ///< as programmed
    [[nodiscard]] virtual bool isMetric() const = 0;
    [[nodiscard]] virtual bool isAbsolute() const = 0;
    /// The number of the active movement command, 0 to 3 in most dialects; -1 for none.
    [[nodiscard]] virtual int movementCode() const = 0;
    /// Whether the last block moved the tool.
    [[nodiscard]] virtual bool hasMoved() const = 0;
};
