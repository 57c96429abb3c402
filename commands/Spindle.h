#pragma once

#include "apt/ResSpindle.h"
#include "commands/SpeedCommand.h"

#include <memory>

class Factory;

/// The spindle mode: one instance each for stop (0), clockwise (1) and counter-clockwise (-1). Its
/// word writes the spindle statement; a speed word alone writes it again unless the spindle stops.
class Spindle : public SpeedCommand {
public:
    Spindle(MachineStatus* status, Factory* factory);
    ~Spindle() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, int mode);
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

private:
    void keepSpeed(double speed) noexcept override;
    void writeSpeed() override;
    [[nodiscard]] bool repeatsItself() const noexcept override { return m_mode != 0; }

    std::unique_ptr<ResSpindle> m_writer;
    int m_mode = 0;
};
