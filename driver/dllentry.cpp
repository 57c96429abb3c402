#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "include/quillmark.h"

#include <memory>
#include <new>

int dllentry(const char* paramfile, const char* ncfile, const char* outputfile, const char* logfile,
             eOutputType type) noexcept {
    const std::unique_ptr<Controller> controller(new (std::nothrow) Controller);
    if (controller == nullptr) {
        return kMemoryExhausted;
    }
    return controller->execute(paramfile, ncfile, outputfile, logfile, type);
}
