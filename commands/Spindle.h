#pragma once

#include "apt/ResSpindle.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

#include <optional>

class Factory;

/// The spindle mode: one instance each for stop (0), clockwise (1) and counter-clockwise (-1). Its
/// word writes the spindle statement; a speed word or a change of what its number means writes it
/// again unless the spindle stops.
class Spindle : public WithWriter<TechnologyCommand, ResSpindle> {
public:
    Spindle(MachineStatus* status, Factory* factory);
    ~Spindle() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, int mode);

    /// The value word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { initValueWord(word); }

    [[nodiscard]] Parameter* GetSpeedParm() const noexcept { return valueWord(); }

    void InitStatus(char* line) override;
    int Compute(char* line) override;
    int Act() override;

private:
    void keepValue(double value) noexcept override;
    [[nodiscard]] bool actsOnValueAlone() const noexcept override { return m_mode != 0; }

    std::optional<double> m_newSpeed; // of the block at hand
    bool m_starts = false;            // a code has been met
    int m_mode = 0;
};
