#pragma once

#include "commands/CoordinateMark.h"
#include "commands/CycleMovement.h"

/// The single passes of lathes: turning cuts along Z, facing along X.
enum class LathePassKind { kTurn, kFace };

/// The places of a pass, in coordinates of the program.
struct PassPoints {
    gmVector3 begin; ///< of the cut
    gmVector3 end;   ///< of the cut
    gmVector3 out;   ///< at the depth of the start
    gmVector3 start; ///< of the pass
};

/// One pass of a lathe and the way back to its start: rapid to the depth of the pass, the cut, out
/// to the depth of the start, rapid back. Every block with a position, in which it is the active
/// movement, makes one. A taper is by how much the pass begins further out than it ends, a length
/// along the axis of its depth (a radius on X); it counts until the code comes again.
class LathePass : public CycleMovement {
public:
    /// All must outlive the command.
    LathePass(Control& control, MachineStatus& status, LathePassKind kind) noexcept
        : CycleMovement(control, status), m_kind(kind) {}
    ~LathePass() override;

    void InitStatus(char* line) override;
    bool TakeWords(char* line) override;
    int Act() override;

private:
    /// Walks the pass, from its start and back there. Returns 0 or the code of a refusal.
    virtual int makePass(const PassPoints& points);
    int cut(const gmVector3& end);
    int refuse(const char* reason) const;

    LathePassKind m_kind;
    bool m_hasPosition = false; // of the block at hand
    gmVector3 m_end;            // of the pass before: an axis left out stays there
    CoordinateMark m_mark;      // of that place
    double m_taper = 0.0;       // since the code
    bool m_isFresh = true;      // no pass has been made since the code became active
};
