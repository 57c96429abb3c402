#include "tests/support/convert.h"

#include "driver/Controller.h"
#include "tests/support/TempFolder.h"

#include <cstdio>
#include <gtest/gtest.h>

Conversion convert(std::string_view dialect, std::string_view nc) {
    const TempFolder folder;
    const std::string parameters = folder.write("dialect.pp", dialect);
    const std::string program = folder.write("part.nc", nc);
    const std::string output = folder.path("part.apt");
    const std::string log = folder.path("part.log");
    Conversion result;
    Controller controller;
    result.code = controller.execute(parameters.c_str(), program.c_str(), output.c_str(),
                                     log.c_str(), eOutputAPT);
    result.apt = readFile(output);
    result.log = readFile(log);
    EXPECT_EQ(result.log.substr(0, kLogHead.size()), kLogHead);
    result.log.erase(0, kLogHead.size());
    return result;
}

std::string aptOf(std::string_view dialect, std::string_view nc) {
    const Conversion result = convert(dialect, nc);
    EXPECT_EQ(result.code, 0) << nc;
    return result.apt;
}

std::string goTo(double x, double y, double z) {
    char text[1024];
    (void)std::snprintf(text, sizeof text, "GOTO/%11.5f,%11.5f,%11.5f\n", x, y, z);
    return text;
}

std::string arcTo(const Point& direction, const Point& centre, double radius, const Point& end) {
    const auto& d = direction;
    const auto& c = centre;
    char text[1024];
    (void)std::snprintf(text, sizeof text,
                        "AUTOPS\n"
                        "INDIRV/%11.5f,%11.5f, %11.5f\n"
                        "TLON,GOFWD/(CIRCLE/%13.5f, %13.5f, %13.5f,$\n"
                        "%13.5f),ON,(LINE/%13.5f,%13.5f,%13.5f,$\n"
                        "%13.5f,%13.5f,%13.5f)\n",
                        d[0], d[1], d[2], c[0], c[1], c[2], radius, c[0], c[1], c[2], end[0],
                        end[1], end[2]);
    return text;
}
