#include "apt/AResFeedRate.h"

#include "apt/StatementText.h"

void AResFeedRate::InitOutput(Boolean perMinute, const double& feed) {
    StatementText text;
    text.add("FEDRAT/").rate(feed).add(perMinute == TRUE ? ",MMPM\n" : ",MMPR\n");
    write(StatementKind::kFeedRate, text);
}

void AResFeedRate::WriteFine(bool perMinute, double feed, bool isInch) {
    StatementText text;
    text.add("FEDRAT/").fineRate(feed).add(isInch ? ",IP" : ",MMP").add(perMinute ? "M\n" : "R\n");
    write(StatementKind::kFeedRate, text);
}
