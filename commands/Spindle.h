#pragma once

#include "apt/ResSpindle.h"
#include "commands/SpeedCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The spindle mode: one instance each for stop (0), clockwise (1) and counter-clockwise (-1). Its
/// word writes the spindle statement; a speed word alone writes it again unless the spindle stops.
class Spindle : public WithWriter<SpeedCommand, ResSpindle> {
public:
    Spindle(MachineStatus* status, Factory* factory);
    ~Spindle() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, int mode);

    int Act() override;

private:
    void keepSpeed(double speed) noexcept override;
    [[nodiscard]] bool actsOnWordsAlone() const noexcept override { return m_mode != 0; }

    int m_mode = 0;
};
