#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct Conversion {
    int code = 0;
    std::string apt;
    std::string log; ///< behind the banner
};

/// The first lines of every log.
inline constexpr std::string_view kLogHead =
    "QUILLMARK: V1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23\n\n";

/// Converts an NC text with the dialect of a parameter text, through a Controller and real files.
[[nodiscard]] Conversion convert(std::string_view dialect, std::string_view nc);

/// The APT of a conversion that must succeed.
[[nodiscard]] std::string aptOf(std::string_view dialect, std::string_view nc);

/// Expects that each NC text, converted on its own, gives the APT beside it.
void expectAPT(std::string_view dialect,
               const std::vector<std::pair<const char*, std::string>>& rows);

/// "GOTO/x,y,z\n", as printf prints it.
[[nodiscard]] std::string goTo(double x, double y, double z);

using Point = std::array<double, 3>;

/// The statements of an arc, as printf prints them.
[[nodiscard]] std::string arcTo(const Point& direction, const Point& centre, double radius,
                                const Point& end);
