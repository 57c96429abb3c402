#pragma once

#include "apt/ResCircularMovement.h"
#include "commands/MovementCommand.h"

#include <array>
#include <memory>

class Factory;

/// The circular arc: one instance clockwise, one counter-clockwise. It collects and scales start,
/// end and centre; the writer judges the arc.
class CircularMovement : public MovementCommand {
public:
    CircularMovement(MachineStatus* status, Factory* factory);
    ~CircularMovement() override;

    /// `clockwise` goes to the writer as it is. The writer is replaced by a new one of `factory`.
    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean clockwise);
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitXCirParm(Parameter* word) noexcept { m_centreWords[0] = word; }
    void InitYCirParm(Parameter* word) noexcept { m_centreWords[1] = word; }
    void InitZCirParm(Parameter* word) noexcept { m_centreWords[2] = word; }
    /// Normal of the plane of the arc, pointing at the viewer; (0, 0, 1) unless set.
    void SetNormVector(double x, double y, double z) { m_normal.assign(x, y, z); }

    /// Whether the arc that was computed last had a centre word.
    [[nodiscard]] bool HasCentreWord() const noexcept { return m_hasCentreWord; }

    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    bool scanWords(char* line) const;
    [[nodiscard]] gmVector3 resolveCentre();

    std::unique_ptr<ResCircularMovement> m_writer;
    Boolean m_clockwise = TRUE;
    std::array<Parameter*, 3> m_centreWords = {}; // not owned, may be null
    bool m_hasCentreWord = false;
    gmVector3 m_normal = gmVector3(0.0, 0.0, 1.0);
};
