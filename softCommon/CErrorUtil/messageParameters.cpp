#include "softCommon/CErrorUtil/messageParameters.h"

#include "softCommon/CStringUtil/fixedField.h"

#include <algorithm>
#include <cstring>

namespace {

consteval auto blankStrings() {
    std::array<std::array<char, kMessageStringWidth>, kMessageStrings> strings{};
    for (auto& string : strings) {
        string.fill(' ');
    }
    return strings;
}

void storeString(MessageParameters& parameters, ParameterUse use, const char* value) noexcept {
    const char* const text = value == nullptr ? "(null)" : value;
    char(&field)[kMessageStringWidth] = parameters.c[parameters.nc];
    std::size_t length = strnlen(text, kMessageStringWidth);
    if (use == ParameterUse::kCatalogue) {
        s2fcpy(field, text, kMessageStringWidth);
    } else {
        length = std::min<std::size_t>(length, kMessageStringWidth - 1);
        std::memcpy(field, text, length);
        field[length] = '\0';
    }
    parameters.clen[parameters.nc++] = static_cast<std::int32_t>(length);
}

// A stack record counts its integers against its reals as well; that is wanted. The bound by the
// reals themselves keeps the record from being overrun.
bool refusesReal(const MessageParameters& parameters, ParameterUse use) noexcept {
    return parameters.nr >= kMessageReals ||
           (use == ParameterUse::kStackRecord && parameters.ni >= kMessageIntegers);
}

} // namespace

std::int32_t error_ni4 = 0;
std::int32_t error_nr8 = 0;
std::int32_t error_nbchar = 0;
std::array<std::int32_t, kMessageIntegers> error_i4{};
std::array<double, kMessageReals> error_r8{};
constinit std::array<std::array<char, kMessageStringWidth>, kMessageStrings> error_char =
    blankStrings();
std::array<std::int32_t, kMessageStrings> error_charlen{};

int readMessageParameters(MessageParameters& parameters, ParameterUse use, int type,
                          std::va_list list) noexcept {
    for (; type != kMessageParEnd; type = va_arg(list, int)) {
        switch (type) {
        case kMessageParLong:
            if (parameters.ni >= kMessageIntegers) {
                return kMessageTooManyParameters;
            }
            parameters.i[parameters.ni++] = static_cast<std::int32_t>(va_arg(list, long));
            break;
        case kMessageParDouble:
            if (refusesReal(parameters, use)) {
                return kMessageTooManyParameters;
            }
            parameters.r[parameters.nr++] = va_arg(list, double);
            break;
        case kMessageParString:
            if (parameters.nc >= kMessageStrings) {
                return kMessageTooManyParameters;
            }
            storeString(parameters, use, va_arg(list, const char*));
            break;
        default:
            return kMessageUnknownType;
        }
    }
    return 0;
}

int guepar(std::int32_t /*msgnr*/, std::int32_t ni, const std::int32_t* i, std::int32_t nr,
           const double* r, std::int32_t nc, const std::int32_t* clen,
           const char (*c)[kMessageStringWidth]) noexcept {
    error_ni4 = std::clamp(ni, 0, kMessageIntegers);
    std::copy_n(i, error_ni4, error_i4.begin());
    error_nr8 = std::clamp(nr, 0, kMessageReals);
    std::copy_n(r, error_nr8, error_r8.begin());
    error_nbchar = std::clamp(nc, 0, kMessageStrings);
    error_char = blankStrings();
    error_charlen.fill(0);
    for (std::size_t k = 0; k < static_cast<std::size_t>(error_nbchar); ++k) {
        error_charlen[k] = std::clamp(clen[k], 0, kMessageStringWidth);
        std::copy_n(c[k], error_charlen[k], error_char[k].begin());
    }
    return 0;
}

int CatSetErrPar(int type, ...) noexcept {
    MessageParameters p;
    std::va_list list;
    va_start(list, type);
    const int rc = readMessageParameters(p, ParameterUse::kCatalogue, type, list);
    va_end(list);
    return rc != 0 ? rc : guepar(0, p.ni, p.i, p.nr, p.r, p.nc, p.clen, p.c);
}
