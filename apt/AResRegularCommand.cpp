#include "apt/AResRegularCommand.h"

#include "apt/StatementText.h"

void AResRegularCommand::InitOutput(const int& tool) {
    StatementText text;
    text.add("LOADTL/").add(tool).add("\n");
    write(StatementKind::kTool, text);
}
