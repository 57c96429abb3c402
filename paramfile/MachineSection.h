#pragma once

#include "commands/RotaryAxes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

/// What a parameter file says of the machine: older entries, which count only where a newer key
/// asks for rotary axes. They are kept as texts until all keys are read.
class MachineSection {
public:
    /// The properties of one rotary axis.
    enum Property : std::size_t { kLetter, kLow, kHigh, kStart, kX, kY, kZ, kWay, kPropertyCount };
    /// The places that the section has for axes.
    enum Place : std::size_t { kTable1, kTable2, kHead1, kHead2, kPlaceCount };

    void SetClass(std::string name) { m_class = std::move(name); }
    void Set(Place place, Property property, std::string text) {
        m_texts.at(place).at(property) = std::move(text);
    }
    void SetToolAxis(const gmVector3& direction) { m_toolAxis = direction; }
    void SetOldNutator(std::string text) { m_oldNutator = std::move(text); }
    void SetNutator(double angle) noexcept { m_nutator = angle; }
    void SetCarrier(std::size_t index) noexcept { m_carrier = index; }

    /// Gives the axes what the section says. On a failure, `key` and `value` name the entry that is
    /// not understood. Throws std::bad_alloc.
    [[nodiscard]] bool Settle(RotaryAxes& axes, std::string& key, std::string& value) const;

    /// The key of every entry.
    static constexpr const char* kKeys[kPlaceCount][kPropertyCount] = {
        {"MFG_ROTARY_AXIS", "MFG_MIN_ROT_POS", "MFG_MAX_ROT_POS", "MFG_INIT_ROT_POS",
         "MFG_X_ROT_CENTER", "MFG_Y_ROT_CENTER", "MFG_Z_ROT_CENTER", "MFG_ROT_POS_WAY"},
        {"MFG_ROTARY_AXIS_2", "MFG_MIN_ROT_POS_2", "MFG_MAX_ROT_POS_2", "MFG_INIT_ROT_POS_2",
         "MFG_X_ROT_CNTR_2", "MFG_Y_ROT_CNTR_2", "MFG_Z_ROT_CNTR_2", "MFG_ROT_POS_WAY_2"},
        {"MFG_SPNDL_AXIS", "MFG_SPNDL_MINPOS", "MFG_SPNDL_MAXPOS", "N3C_SPNDL_INITPOS",
         "MFG_X_SPNDL_CTR", "MFG_Y_SPNDL_CTR", "MFG_Z_SPNDL_CTR", "MFG_SPN_POS_WAY"},
        {"MFG_SPNDL_AXIS_2", "MFG_SPNDL_MINPS2", "MFG_SPNDL_MAXPS2", "N3C_SPNDL_INITPS2",
         "MFG_X_SPNDL_CTR_2", "MFG_Y_SPNDL_CTR_2", "MFG_Z_SPNDL_CTR_2", "MFG_SPN_POS_WAY_2"},
    };

private:
    using Texts = std::array<std::string, kPropertyCount>;
    struct Reading;

    std::string m_class;
    std::array<Texts, kPlaceCount> m_texts;
    gmVector3 m_toolAxis = gmVector3(0.0, 0.0, 1.0);
    std::string m_oldNutator;
    std::optional<double> m_nutator; // none: not inclined
    std::size_t m_carrier = 0;
};
