#include "macro/VariableId.h"

std::string VariableId::toText() const {
    return isNamed() ? std::string(name) : std::to_string(number);
}
