#pragma once

#include <optional>

/// The unit in which the program gives lengths, and the one of the output, which is settled once.
class LengthUnits {
public:
    static constexpr double kMillimetresPerInch = 25.4;

    [[nodiscard]] bool IsInch() const noexcept { return m_isInch; }
    /// The unit of the program from now on. Tells by how much its numbers grow.
    double Switch(bool isInch) noexcept;

    /// Settles the unit of the output, unless that is done: the program's. Tells whether it did.
    bool SettleOutput() noexcept;
    /// Whether the output is in inches; as long as it is not settled, the program's unit counts.
    [[nodiscard]] bool IsOutputInch() const noexcept { return m_outputIsInch.value_or(m_isInch); }
    /// Turns a length of the program into one of the output.
    [[nodiscard]] double ToOutput() const noexcept;
    /// Turns a cutting speed of the program, in m/min or ft/min, into one of the output.
    [[nodiscard]] double CuttingSpeedToOutput() const noexcept {
        return CuttingSpeedFactor(m_isInch, IsOutputInch());
    }
    /// What a cutting speed in one unit has to be multiplied by to become one in the other.
    [[nodiscard]] static double CuttingSpeedFactor(bool fromInch, bool toInch) noexcept;
    /// How many mm a length of 1 of the program has.
    [[nodiscard]] double Millimetres() const noexcept {
        return m_isInch ? kMillimetresPerInch : 1.0;
    }
    /// Turns a length in mm into one of the output.
    [[nodiscard]] double FromMillimetres() const noexcept {
        return IsOutputInch() ? 1.0 / kMillimetresPerInch : 1.0;
    }

private:
    bool m_isInch = false;
    std::optional<bool> m_outputIsInch;
};
