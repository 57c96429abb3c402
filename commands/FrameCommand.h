#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
#include "commands/FramePart.h"
#include "commands/RotaryWord.h"

#include <optional>

/// A code of the frame of a program. There are two ways of writing it. A name ("ROT") takes the
/// axis words for shifts, angles, factors or names of axes; its plain form replaces the whole
/// frame, and without words it clears it. A code with a number ("G68") takes them for the centre of
/// rotation or scaling, where a word left out is the present point, and replaces its own kind
/// alone. The adding form of either lies within what is there.
class FrameCommand final : public ControlCommand {
public:
    FrameCommand(Control& control, FrameKind kind, bool isAdding) noexcept
        : ControlCommand(control), m_kind(kind), m_isAdding(isAdding) {}
    ~FrameCommand() override;

    int Act() override;

private:
    void takeWords(char* line) override;
    void takeFactor(char* line);
    [[nodiscard]] bool hasCentre() const noexcept { return Word().Number() >= 0; }
    int refuse(const char* reason);
    int makeRotation();
    int makeScaling();
    void add(const gmMatrix4& matrix, const gmMatrix4& inverse, int axis = 0);
    void addAbout(const gmVector3& centre, const gmMatrix4& matrix, const gmMatrix4& inverse);
    void shiftAngles(gmVector3& shift) const;
    int addParts();
    void addMirrors();
    [[nodiscard]] gmVector3 centre() const;

    FrameKind m_kind;
    bool m_isAdding;
    RotaryValues m_rotary; // of the block at hand
    AxisValues m_values;   // of the block at hand, as all of these
    bool m_hasWords = false;
    std::optional<double> m_angle;
    std::optional<double> m_factor;
};
