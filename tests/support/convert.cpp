#include "tests/support/convert.h"

#include "driver/Controller.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>

Conversion convert(std::string_view dialect, std::string_view nc) {
    const TempFolder folder;
    Controller controller;
    const int code = controller.execute(
        folder.write("dialect.pp", dialect).c_str(), folder.write("part.nc", nc).c_str(),
        folder.path("part.apt").c_str(), folder.path("part.log").c_str(), eOutputAPT);
    const std::string log = folder.read("part.log");
    EXPECT_EQ(log.substr(0, kLogHead.size()), kLogHead);
    return {code, folder.read("part.apt"), log.substr(std::min(log.size(), kLogHead.size()))};
}

std::string aptOf(std::string_view dialect, std::string_view nc) {
    const Conversion result = convert(dialect, nc);
    EXPECT_EQ(result.code, 0) << nc;
    return result.apt;
}

void expectAPT(std::string_view dialect,
               const std::vector<std::pair<const char*, std::string>>& rows) {
    for (const auto& [nc, apt] : rows) {
        EXPECT_EQ(aptOf(dialect, nc), apt) << nc;
    }
}

std::string goTo(double x, double y, double z) {
    char text[1024];
    (void)std::snprintf(text, sizeof text, "GOTO/%11.5f,%11.5f,%11.5f\n", x, y, z);
    return text;
}

std::string arcTo(const Point& direction, const Point& centre, double radius, const Point& end) {
    const auto& [x, y, z] = centre;
    char text[4096];
    (void)std::snprintf(text, sizeof text,
                        "AUTOPS\nINDIRV/%11.5f,%11.5f, %11.5f\n"
                        "TLON,GOFWD/(CIRCLE/%13.5f, %13.5f, %13.5f,$\n"
                        "%13.5f),ON,(LINE/%13.5f,%13.5f,%13.5f,$\n%13.5f,%13.5f,%13.5f)\n",
                        direction[0], direction[1], direction[2], x, y, z, radius, x, y, z, end[0],
                        end[1], end[2]);
    return text;
}
