#include "apt/AResFeedRate.h"

#include "apt/StatementText.h"

void AResFeedRate::InitOutput(Boolean perMinute, const double& feed) {
    StatementText text;
    text.add("FEDRAT/").add(feed, 10, 4).add(perMinute == TRUE ? ",MMPM\n" : ",MMPR\n");
    write(text.view());
}
