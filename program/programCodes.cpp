#include "program/programCodes.h"

#include "driver/returnCodes.h"
#include "macro/MacroError.h"

int returnCodeOf(int macroCode) noexcept {
    switch (macroCode) {
    case 0:
        return 0;
    case kVariableUnknown:
    case kWrongType:
    case kFunctionUnknown:
    case kVariableReadOnly:
        return kNameUnknown;
    case kDivisionByZero:
    case kOutOfRange:
        return kNotComputable;
    default:
        return kBlockUnreadable;
    }
}
