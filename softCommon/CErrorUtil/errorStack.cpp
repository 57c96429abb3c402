#include "softCommon/CErrorUtil/errorStack.h"

#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CErrorUtil/CLocaleScope.h"
#include "softCommon/CErrorUtil/messageParameters.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

ErrorStackRecord* softErrors = nullptr;

namespace {

constexpr std::int32_t kOutOfMemory = 39999;

void storeParameters(ErrorStackRecord& record, const MessageParameters& parameters) noexcept {
    std::memcpy(record.c, parameters.c, sizeof record.c);
    std::copy_n(parameters.i, kMessageIntegers, record.i);
    std::copy_n(parameters.r, kMessageReals, record.r);
}

int setParameters(const ErrorStackRecord& record) noexcept {
    std::int32_t lengths[kMessageStrings];
    for (int k = 0; k < kMessageStrings; ++k) {
        lengths[k] = static_cast<std::int32_t>(strnlen(record.c[k], kMessageStringWidth - 1));
    }
    return guepar(record.msgnr, kMessageIntegers, record.i, kMessageReals, record.r,
                  kMessageStrings, lengths, record.c);
}

void releaseFirst() noexcept { delete std::exchange(softErrors, softErrors->next); }

} // namespace

ErrorStackRecord* appendErrorRecord(std::int32_t msgnr) noexcept {
    auto* const record = new (std::nothrow) ErrorStackRecord{};
    if (record != nullptr) {
        record->msgnr = msgnr;
        ErrorStackRecord** end = &softErrors;
        while (*end != nullptr) {
            end = &(*end)->next;
        }
        *end = record;
    }
    return record;
}

int SetErrStackPar(std::int32_t msgnr, ...) {
    ErrorStackRecord* const record = appendErrorRecord(msgnr);
    if (record == nullptr) {
        fehler(kOutOfMemory);
        return kOutOfMemory;
    }
    MessageParameters parameters;
    std::va_list list;
    va_start(list, msgnr);
    const int type = va_arg(list, int);
    const int rc = readMessageParameters(parameters, ParameterUse::kStackRecord, type, list);
    va_end(list);
    storeParameters(*record, parameters);
    return rc;
}

void freeErrorStack() noexcept {
    while (softErrors != nullptr) {
        releaseFirst();
    }
}

void dbgErrorStack() noexcept {
    const CLocaleScope decimalPoint;
    std::FILE* const stream = debugStream();
    for (const ErrorStackRecord* record = softErrors; record != nullptr; record = record->next) {
        (void)std::fprintf(stream, "Fehlerstack     rc=%d\n", record->msgnr);
        for (int k = 0; k < kMessageIntegers; ++k) {
            (void)std::fprintf(stream, " l_softErrors->i[%d] = %d\n", k, record->i[k]);
        }
        for (int k = 0; k < kMessageReals; ++k) {
            (void)std::fprintf(stream, " l_softErrors->r[%d] = %lf\n", k, record->r[k]);
        }
        for (int k = 0; k < kMessageStrings; ++k) {
            (void)std::fprintf(stream, " l_softErrors->c[%d] = <%s>\n", k, record->c[k]);
        }
    }
}

// Each record is released before it is reported: a fatal one may not return, and a printer that
// reports an error itself does not meet the records again.
bool outErrStack() {
    int rc = 0;
    while (softErrors != nullptr) {
        rc = setParameters(*softErrors);
        const std::int32_t msgnr = softErrors->msgnr;
        releaseFirst();
        fehler2(msgnr);
    }
    return rc != 0;
}
