#include "path/PathMeasure.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSecondsPerMinute = 60.0;
constexpr double kSamePlace = 1e-6; // mm, below the last digit

class Measuring {
public:
    Measuring(const ToolPath& path, double rapid) : m_path(path), m_rapid(rapid) {}

    PathMeasure Run() {
        auto event = m_path.events.begin();
        for (std::size_t i = 0; i < m_path.movements.size(); ++i) {
            for (; event != m_path.events.end() && event->movement <= i; ++event) {
                addEvent(*event);
            }
            addMovement(i);
        }
        std::for_each(event, m_path.events.end(), [this](const auto& last) { addEvent(last); });
        findRapidsBelow();
        return std::move(m_measure);
    }

private:
    void addMovement(std::size_t index) {
        const ToolMovement& movement = m_path.movements[index];
        const ToolState& state = m_path.StateOf(movement);
        if (movement.state != m_state || m_tool == nullptr) {
            m_state = movement.state;
            m_tool = &toolOf(state);
            m_isNewState = true;
        }
        PathBox box;
        box.Add(m_path, index);
        MovementSum sum{1, m_path.LengthOf(index), 0.0, 0};
        m_measure.box.Add(box);
        addRange(m_tool->z, box);
        if (movement.IsRapid()) {
            sum.seconds = m_rapid > 0.0 ? sum.length / m_rapid * kSecondsPerMinute : 0.0;
            add(m_measure.rapid, sum);
            add(m_tool->rapid, sum);
            return;
        }
        addTime(index, state, sum);
        m_measure.cuttingBox.Add(box);
        addRange(m_tool->cuttingZ, box);
        add(movement.IsArc() ? m_measure.arcs : m_measure.feed, sum);
        add(m_tool->cutting, sum);
        if (m_isNewState) {
            addRates(state);
        }
    }

    void addTime(std::size_t index, const ToolState& state, MovementSum& sum) const {
        double perMinute = state.feed;
        if (state.isFeedPerTurn) {
            const double middle = 0.5 * (m_path.StartOf(index)[0] + m_path.movements[index].end[0]);
            perMinute *= state.TurnsPerMinute(middle);
        }
        if (perMinute > 0.0 && std::isfinite(perMinute) && !m_path.movements[index].startsAnew) {
            sum.seconds = sum.length / perMinute * kSecondsPerMinute;
        } else {
            sum.untimed = 1;
        }
    }

    // Of a state once, when the first movement cuts in it.
    void addRates(const ToolState& state) {
        m_isNewState = false;
        if (state.feed > 0.0) {
            (state.isFeedPerTurn ? m_measure.feedPerTurn : m_measure.feedPerMinute).Add(state.feed);
        }
        if (state.spindle != SpindleState::kOff) {
            (state.isCuttingSpeed ? m_measure.cuttingSpeed : m_measure.speed).Add(state.speed);
        }
    }

    void addEvent(const PathEvent& event) {
        const ToolState& state = m_path.states[event.state];
        switch (event.kind) {
        case EventKind::kTool:
            ++m_measure.toolChanges;
            break;
        case EventKind::kStop:
        case EventKind::kOptionalStop:
            ++m_measure.stops;
            break;
        case EventKind::kDwell:
            addDwell(state, event.value);
            break;
        case EventKind::kDwellInTurns:
            addDwellInTurns(event, state);
            break;
        case EventKind::kHome:
        case EventKind::kEnd:
            break;
        }
    }

    void addDwell(const ToolState& state, double seconds) {
        m_measure.dwellSeconds += seconds;
        toolOf(state).dwellSeconds += seconds;
        m_tool = nullptr; // a new tool may have moved them
    }

    void addDwellInTurns(const PathEvent& event, const ToolState& state) {
        const double place =
            event.movement == 0 ? 0.0 : m_path.movements[event.movement - 1].end[0];
        const double turns = state.TurnsPerMinute(place);
        if (turns > 0.0 && std::isfinite(turns)) {
            addDwell(state, event.value / turns * kSecondsPerMinute);
        } else {
            ++m_measure.untimedDwells;
        }
    }

    ToolMeasure& toolOf(const ToolState& state) {
        auto& tools = m_measure.tools;
        const auto row = std::ranges::find(tools, state.tool, &ToolMeasure::tool);
        if (row != tools.end()) {
            return *row;
        }
        tools.push_back({.tool = state.tool});
        return tools.back();
    }

    void findRapidsBelow() {
        if (m_measure.cuttingBox.isEmpty) {
            return;
        }
        const double level = m_measure.cuttingBox.high[2] - kSamePlace;
        for (std::size_t i = 0; i < m_path.movements.size(); ++i) {
            const ToolMovement& movement = m_path.movements[i];
            if (!movement.IsRapid()) {
                continue;
            }
            const gmVector3 start = m_path.StartOf(i);
            if (std::min(start[2], movement.end[2]) >= level) {
                continue;
            }
            ++m_measure.rapidsBelow;
            if (std::hypot(movement.end[0] - start[0], movement.end[1] - start[1]) < kSamePlace) {
                continue;
            }
            ++m_measure.rapidsBelowAcross;
            if (m_measure.firstBelowAcross == 0) {
                m_measure.firstBelowAcross = movement.line;
            }
        }
    }

    static void addRange(Range& range, const PathBox& box) noexcept {
        range.Add(box.low[2]);
        range.Add(box.high[2]);
    }

    static void add(MovementSum& to, const MovementSum& sum) noexcept {
        to.count += sum.count;
        to.length += sum.length;
        to.seconds += sum.seconds;
        to.untimed += sum.untimed;
    }

    const ToolPath& m_path;
    double m_rapid;
    PathMeasure m_measure;
    ToolMeasure* m_tool = nullptr; // of the movement before
    std::uint32_t m_state = 0;     // of the movement before
    bool m_isNewState = true;
};

} // namespace

void Range::Add(double value) noexcept {
    low = isEmpty ? value : std::min(low, value);
    high = isEmpty ? value : std::max(high, value);
    isEmpty = false;
}

PathMeasure measurePath(const ToolPath& path, double rapid) { return Measuring(path, rapid).Run(); }
