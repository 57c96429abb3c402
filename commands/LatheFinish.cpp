#include "commands/LatheFinish.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <string>
#include <utility>

LatheFinish::~LatheFinish() = default;

void LatheFinish::InitStatus(char* /*line*/) {
    SetNCLineStatus(FALSE);
    keepCode(perform());
}

int LatheFinish::Act() {
    const CoordinateMark now(control());
    if (const auto start = std::exchange(m_start, std::nullopt)) {
        const std::string change = now.ChangeSince(m_mark);
        return change.empty() ? goTo(TRUE, *start)
                              : control().Refuse(kWordNotConverted, "the " + change +
                                                                        " changes in a contour "
                                                                        "that a code follows");
    }
    if (const int code = control().CheckKnown(status().GetEndPosition()); code != 0) {
        return code;
    }
    m_mark = now;
    m_start = status().GetEndPosition();
    return 0;
}
