#pragma once

/// Whether the coordinates of X are diameters. At first it is as the parameter file says by the
/// number of the axis; codes of a program change it.
class DiameterMode {
public:
    enum class Kind {
        kAsFile,
        kOn,
        kOff,
        kAbsoluteOnly ///< positions are diameters, and increments are lengths
    };

    void Set(Kind kind) noexcept { m_kind = kind; }
    /// What a coordinate of X has to be multiplied by to become a length, where the file says
    /// `factor`. A diameter that the file does not know of is twice the length.
    [[nodiscard]] double LengthFactor(double factor) const noexcept {
        switch (m_kind) {
        case Kind::kOff:
            return 1.0;
        case Kind::kOn:
        case Kind::kAbsoluteOnly:
            return factor == 1.0 ? 0.5 : factor;
        case Kind::kAsFile:
            break;
        }
        return factor;
    }
    [[nodiscard]] bool AreIncrementsLengths() const noexcept {
        return m_kind == Kind::kAbsoluteOnly;
    }

private:
    Kind m_kind = Kind::kAsFile;
};
