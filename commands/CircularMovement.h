#pragma once

#include "commands/ArcWords.h"
#include "commands/PathMovement.h"

#include <array>

class Factory;

/// The circular arc: one instance clockwise, one counter-clockwise. It collects and scales start,
/// end and centre, and the writer judges the arc; where the dialect has planes, it is computed here
/// as controls do.
class CircularMovement : public PathMovement {
public:
    CircularMovement(MachineStatus* status, Factory* factory);
    ~CircularMovement() override;

    /// `clockwise` goes to the writer as it is. The writer is replaced by a new one of `factory`.
    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean clockwise);
    [[nodiscard]] bool HasWriter() const noexcept { return writer().HasArc(); }

    void InitXCirParm(Parameter* word) noexcept { m_centreWords[0] = word; }
    void InitYCirParm(Parameter* word) noexcept { m_centreWords[1] = word; }
    void InitZCirParm(Parameter* word) noexcept { m_centreWords[2] = word; }
    /// Normal of the plane of the arc, pointing at the viewer; (0, 0, 1) unless set.
    void SetNormVector(double x, double y, double z) { m_normal.assign(x, y, z); }

    /// Takes the coordinate words, then the centre words, radius and turns.
    bool TakeWords(char* line) override;

private:
    int makeMovement(Movement& movement) override;
    int makeSweep(Control& control, Movement& movement) const;
    void resolveCentre(Arc& arc) const;

    Boolean m_clockwise = TRUE;
    std::array<Parameter*, 3> m_centreWords = {}; // not owned, may be null
    gmVector3 m_normal = gmVector3(0.0, 0.0, 1.0);
    ArcWords m_arcWords; // of the block at hand, where arcs are computed
};
