#include "paramfile/MachineSection.h"

#include "paramfile/readReals.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <cmath>
#include <string_view>
#include <vector>

namespace {

using Section = MachineSection;

struct MachineClass {
    std::string_view name;
    Section::Place axes[2];
};

constexpr MachineClass kClasses[] = {
    {"NC_TWO_AXIS_ON_TABLE_MACHINES", {Section::kTable1, Section::kTable2}},
    {"NC_TWO_AXIS_ON_HEAD_MACHINES", {Section::kHead1, Section::kHead2}},
    {"NC_AXIS_ON_TABLE_HEAD_MACHINES", {Section::kTable1, Section::kHead1}},
};

bool isParallel(const gmVector3& a, const gmVector3& b) {
    constexpr double kSameDirection = 1e-9;
    return cross(a, b).length() < kSameDirection;
}

} // namespace

/// One settling: the axes become those of the machine one after the other.
struct MachineSection::Reading {
    const MachineSection& section;
    RotaryAxes& axes;
    std::string& key;
    std::string& value;
    std::vector<RotaryAxis> found;
    MachineChain::Angles start = {};

    bool Refuse(const char* badKey, const std::string& badValue) const {
        key = badKey;
        value = badValue;
        return false;
    }

    [[nodiscard]] bool Has(Place place) const { return !section.m_texts[place][kLetter].empty(); }

    /// A number that is not given stays.
    bool ReadNumber(Place place, Property property, double& number) const {
        const std::string& text = section.m_texts[place][property];
        if (text.empty()) {
            return true;
        }
        const std::optional<double> read = readOneReal(text);
        number = read.value_or(0.0);
        return read || Refuse(kKeys[place][property], text);
    }

    bool ReadAxis(Place place) {
        const Texts& texts = section.m_texts[place];
        const std::string& letter = texts[kLetter];
        if (letter.size() != 1 || letter[0] < 'A' || letter[0] > 'C') {
            return Refuse(kKeys[place][kLetter], letter);
        }
        const char way = texts[kWay].empty() ? '1' : texts[kWay][0];
        if (way != '1' && way != '2') {
            return Refuse(kKeys[place][kWay], texts[kWay]);
        }
        RotaryAxis axis;
        axis.direction[letter[0] - 'A'] = 1.0;
        axis.isOnHead = place == kHead1 || place == kHead2;
        axis.isReversed = way == '2';
        const std::size_t index = found.size();
        auto& limits = axes.limits.at(index);
        if (!ReadNumber(place, kX, axis.centre[0]) || !ReadNumber(place, kY, axis.centre[1]) ||
            !ReadNumber(place, kZ, axis.centre[2]) || !ReadNumber(place, kLow, limits.low) ||
            !ReadNumber(place, kHigh, limits.high) || !ReadNumber(place, kStart, start.at(index))) {
            return false;
        }
        found.push_back(axis);
        return true;
    }

    /// Two axes are those of their class; one alone is that of any.
    bool ReadAxes() {
        std::vector<Place> places;
        for (const Place place : {kTable1, kTable2, kHead1, kHead2}) {
            if (Has(place)) {
                places.push_back(place);
            }
        }
        if (places.size() > 1) {
            places.clear();
            for (const MachineClass& row : kClasses) {
                for (const Place place : row.axes) {
                    if (section.m_class == row.name && Has(place)) {
                        places.push_back(place);
                    }
                }
            }
            if (places.empty()) {
                return Refuse("MFG_CLASS_NAME", section.m_class);
            }
        }
        for (const Place place : places) {
            if (!ReadAxis(place)) {
                return false;
            }
        }
        return true;
    }

    /// Inclines the one axis that is not parallel to the tool.
    bool Incline(const gmVector3& tool) {
        constexpr double kUpright = 90.0;
        if (!section.m_nutator) {
            const std::optional<double> old = readOneReal(section.m_oldNutator);
            const bool isPlain =
                section.m_oldNutator.empty() || (old && (*old == 0.0 || *old == kUpright));
            return isPlain ||
                   Refuse("N3C_NUTATOR_ANGLE", section.m_oldNutator + " without REV_NUTATOR_ANGLE");
        }
        const double angle = *section.m_nutator;
        if (angle == kUpright) {
            return true;
        }
        RotaryAxis* inclined = nullptr;
        std::size_t parallel = 0;
        for (RotaryAxis& axis : found) {
            if (isParallel(axis.direction, tool)) {
                ++parallel;
            } else {
                inclined = &axis;
            }
        }
        if (parallel != 1 || inclined == nullptr) {
            return Refuse("REV_NUTATOR_ANGLE", std::to_string(angle));
        }
        inclined->direction =
            tool * std::cos(gmRadians(angle)) + inclined->direction * std::sin(gmRadians(angle));
        inclined->direction.normalize();
        return true;
    }
};

bool MachineSection::Settle(RotaryAxes& axes, std::string& key, std::string& value) const {
    Reading reading = {
        .section = *this, .axes = axes, .key = key, .value = value, .found = {}, .start = {}};
    if (!reading.ReadAxes()) {
        return false;
    }
    if (gmIsZero(m_toolAxis.length())) {
        return reading.Refuse("MFG_INIT_SPINDLE", "0;0;0");
    }
    const gmVector3 tool = gmVector3(m_toolAxis).normalize();
    if (!reading.found.empty() && !reading.Incline(tool)) {
        return false;
    }
    axes.chain.SetToolAxis(tool);
    axes.chain.SetCarrier(m_carrier);
    for (const RotaryAxis& axis : reading.found) {
        axes.chain.Add(axis);
    }
    axes.StartAt(reading.start);
    return true;
}
