#include "apt/toolAxisStatement.h"

StatementText toolAxisStatement(const gmVector3& axis) {
    StatementText text;
    text.add("TLAXIS/").coordinate(axis[0]).add(",").coordinate(axis[1]);
    text.add(",").coordinate(axis[2]).add("\n");
    return text;
}
