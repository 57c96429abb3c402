// A host of the shared library: conversionHost LIBRARY LOCALE [PARAMETERS NC OUTPUT LOG]...
// It runs the conversions in turn in one process ("-" is a null name) and prints the result of
// each, the number 1.5 in its locale, and the banner.

#include "include/quillmark.h"

#include <clocale>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>

namespace {

template<class Function>
Function* find(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}

} // namespace

int main(int argc, char** argv) {
    void* const library = argc < 3 ? nullptr : dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr || std::setlocale(LC_ALL, argv[2]) == nullptr) {
        std::fprintf(stderr, "%s\n", library == nullptr ? dlerror() : "no such locale");
        return 1;
    }
    auto* const convert = find<decltype(dllentry)>(library, "dllentry");
    auto* const version = find<decltype(gtvers)>(library, "gtvers");
    const auto name = [](const char* text) { return std::strcmp(text, "-") == 0 ? nullptr : text; };
    for (int i = 3; i + 3 < argc; i += 4) {
        std::printf("%d\n", convert(name(argv[i]), name(argv[i + 1]), name(argv[i + 2]),
                                    name(argv[i + 3]), eOutputAPT));
    }
    char banner[64] = "";
    int length = 0;
    version(banner, &length);
    std::printf("%.1f %d %s\n", 1.5, length, banner);
    return dlclose(library);
}
