// A host in C++ that is linked with libquillmark.a and explains a failure with the text of the
// message file, which the environment variable QMARKMSG names:
//   messages DIALECT PROGRAM OUTPUT [LOG]
#include <quillmark.h>
#include <quillmark_messages.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: %s DIALECT PROGRAM OUTPUT [LOG]\n", argv[0]);
        return 2;
    }
    const int code = dllentry(argv[1], argv[2], argv[3], argc > 4 ? argv[4] : nullptr, eOutputAPT);
    if (code == 0) {
        return 0;
    }
    std::fprintf(stderr, "conversion failed with code %d\n", code);
    // CatInitError ends the process when the variable names no readable file.
    if (std::getenv("QMARKMSG") != nullptr && CatInitError("QMARKMSG") == 0) {
        char* const text = CatGetLongMessage(code);
        if (text != nullptr) {
            std::fprintf(stderr, "%s\n", text);
        }
        std::free(text);
    }
    return 1;
}
