#pragma once

#include "include/quillmark_messages.h"

#include <cstdarg>

/// The parameters of one variable argument list.
struct MessageParameters {
    std::int32_t ni = 0; ///< integers read
    std::int32_t nr = 0; ///< reals read
    std::int32_t nc = 0; ///< strings read
    std::int32_t i[kMessageIntegers] = {};
    double r[kMessageReals] = {};
    std::int32_t clen[kMessageStrings] = {}; ///< bytes of each string
    char c[kMessageStrings][kMessageStringWidth] = {};
};

/// The two users of the list keep strings differently, on purpose: an error-stack record as 79
/// bytes with a terminator, the catalogue as 80 bytes padded with blanks.
enum class ParameterUse { kStackRecord, kCatalogue };

/// Reads pairs of type code and value, `type` being the first code, up to kMessageParEnd. Returns
/// 0, kMessageUnknownType or kMessageTooManyParameters; what was read before a refusal stays.
int readMessageParameters(MessageParameters& parameters, ParameterUse use, int type,
                          std::va_list list) noexcept;

/// Makes `ni` integers, `nr` reals and `nc` strings of `clen` bytes the current parameters; counts
/// and lengths are clamped to what fits. The number is not used. Returns 0.
int guepar(std::int32_t msgnr, std::int32_t ni, const std::int32_t* i, std::int32_t nr,
           const double* r, std::int32_t nc, const std::int32_t* clen,
           const char (*c)[kMessageStringWidth]) noexcept;
