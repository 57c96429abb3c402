#pragma once

#include "apt/ResSpindle.h"
#include "commands/ModalCommand.h"
#include "commands/Parameter.h"

#include <memory>

class Factory;
class MachineStatus;

/// The spindle mode: one instance each for stop (0), clockwise (1) and counter-clockwise (-1). Its
/// word writes the spindle statement; a speed word alone writes it again unless the spindle stops.
class Spindle : public ModalCommand {
public:
    Spindle(MachineStatus* status, Factory* factory);
    ~Spindle() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, int mode);
    /// The speed word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { m_speedWord = word; }
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    bool consumeSpeed(char* line);

    MachineStatus* m_status;
    std::unique_ptr<ResSpindle> m_writer;
    int m_mode = 0;
    Parameter* m_speedWord = nullptr;
};
