#include "apt/toolAxisStatement.h"

StatementText toolAxisStatement(const gmVector3& axis) {
    StatementText text;
    text.add("TLAXIS/").add(axis[0], 11, 5).add(",").add(axis[1], 11, 5);
    text.add(",").add(axis[2], 11, 5).add("\n");
    return text;
}
