#include "commands/LathePass.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <cmath>
#include <functional>
#include <utility>

LathePass::~LathePass() = default;

void LathePass::InitStatus(char* line) {
    m_taper = 0.0;
    const bool isNew = status().GetMovementCom()->GetActiveCommand() != this;
    m_isFresh = m_isFresh || isNew;
    PathMovement::InitStatus(line);
}

bool LathePass::TakeWords(char* line) {
    m_hasPosition = PathMovement::TakeWords(line);
    if (m_hasPosition) {
        const CycleWords& words = control().cycles.words;
        for (const std::reference_wrapper<const WordList> list :
             {std::cref(words.taper), std::cref(words.clearance),
              std::cref(control().words.radius)}) {
            if (const auto taper = list.get().Take(line, status())) {
                m_taper = *taper;
                break;
            }
        }
    }
    return m_hasPosition;
}

int LathePass::Act() {
    if (!m_hasPosition) {
        return 0;
    }
    constexpr std::size_t kX = AxisMapping::kX;
    constexpr std::size_t kZ = AxisMapping::kZ;
    gmVector3 end = status().GetEndPosition();
    const auto isGiven = [&](std::size_t axis) {
        const auto& [incremental, absolute] = Axes()[axis];
        return (incremental != nullptr && incremental->GetNCLineStatus() == TRUE) ||
               (absolute != nullptr && absolute->GetNCLineStatus() == TRUE);
    };
    const bool hasX = isGiven(kX);
    const bool hasZ = isGiven(kZ);
    if (m_isFresh && !(hasX && hasZ)) {
        return refuse("a pass begins without its end in X or Z");
    }
    const CoordinateMark now(control());
    if (const std::string change = now.ChangeSince(m_mark); !m_isFresh && !change.empty()) {
        return control().Refuse(kWordNotConverted,
                                "the " + change +
                                    " changes while passes go on: give their code again");
    }
    if (const int code = resolveEndPoint(end); code != 0) {
        return code;
    }
    if (!hasX) {
        end[AxisMapping::kX] = m_end[AxisMapping::kX];
    }
    if (!hasZ) {
        end[AxisMapping::kZ] = m_end[AxisMapping::kZ];
    }
    m_isFresh = false;
    m_end = end;
    m_mark = now;
    return cut(end);
}

int LathePass::cut(const gmVector3& end) {
    const bool isFacing = m_kind == LathePassKind::kFace;
    const int depth = isFacing ? AxisMapping::kZ : AxisMapping::kX;
    const gmVector3 start = status().GetEndPosition();
    if (std::isnan(start[AxisMapping::kX]) || std::isnan(start[AxisMapping::kZ])) {
        return control().Refuse(kAxisUnknown, "the start of a pass is not known");
    }
    PassPoints points = {.begin = start, .end = end, .out = end, .start = start};
    points.begin[depth] = end[depth] + alongAxis(m_taper, depth);
    points.out[depth] = start[depth];
    return makePass(points);
}

int LathePass::makePass(const PassPoints& points) {
    const std::pair<Boolean, const gmVector3&> ways[] = {
        {TRUE, points.begin}, {FALSE, points.end}, {FALSE, points.out}, {TRUE, points.start}};
    for (const auto& [rapid, point] : ways) {
        if (const int code = goTo(rapid, point); code != 0) {
            return code;
        }
    }
    return 0;
}

int LathePass::refuse(const char* reason) const { return control().Refuse(kBlockRefused, reason); }
