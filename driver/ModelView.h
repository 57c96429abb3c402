#pragma once

#include "driver/NCScan.h"
#include "program/MachineView.h"

/// The state of the machine as the command model has it.
class ModelView final : public MachineView {
public:
    /// `scan` must outlive the view.
    explicit ModelView(NCScan& scan) noexcept : m_scan(scan) {}

    [[nodiscard]] double position(int axis) const override;
    [[nodiscard]] int tool() const override;
    [[nodiscard]] double feed() const override;
    [[nodiscard]] double speed() const override;
    [[nodiscard]] bool isMetric() const override;
    [[nodiscard]] bool isAbsolute() const override;
    [[nodiscard]] int movementCode() const override;
    [[nodiscard]] bool hasMoved() const override;

private:
    NCScan& m_scan;
};
