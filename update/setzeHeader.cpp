#include "update/LineCollector.h"
#include "update/sectionConverters.h"

char** setzeHeader(OldLines /*lines*/, std::FILE* /*msg*/) noexcept {
    LineCollector header;
    for (const char* const line : {"##### Header", "#FILE:       UNCODED", "#VERSION:    V1R5",
                                   "#DATE:       04/01/2001 ", "#CREATED BY: VORAX"}) {
        header.add(line);
    }
    return header.release();
}
