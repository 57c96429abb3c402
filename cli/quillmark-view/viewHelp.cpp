#include "cli/quillmark-view/viewHelp.h"

#include "cli/quillmark-view/writePage.h"
#include "cli/quillmark-view/writePicture.h"

void printViewUsage(std::FILE* stream) noexcept {
    (void)std::fputs("usage: quillmark-view APT [-l LOG] --measure [--rapid SPEED] [--json]\n"
                     "       quillmark-view APT [-l LOG] -o PAGE\n"
                     "       quillmark-view APT -o PICTURE [--view NAME]\n"
                     "       quillmark-view APT APT [-l LOG] [-l LOG] [-o PICTURE] [--json]\n",
                     stream);
}

void printViewHelp(std::FILE* stream) noexcept {
    printViewUsage(stream);
    (void)std::fputs(
        "\n"
        "Shows and measures the tool path that an APT source tells. Of two sources it tells\n"
        "where their paths differ.\n"
        "\n"
        "  --measure   prints boxes, lengths, times, feeds, speeds and what each tool does.\n"
        "  --rapid SPEED\n"
        "              counts movements at rapid with so many mm/min.\n"
        "  --json      prints figures and differences as JSON.\n"
        "  -o PAGE     makes a page for a browser, in one file that ends in .html.\n"
        "  -o PICTURE  draws the path: a file that ends in .svg or .png.\n"
        "  --view NAME draws one view alone: top, front, side or isometric.\n"
        "  -l LOG      the log of the conversion, to name NC blocks; one for each APT.\n"
        "  --help      this text, as the only argument.\n"
        "  --version   version and banner, as the only argument.\n"
        "\n"
        "Exit status: 0 success; 1 a file that cannot be read or written; 2 wrong usage;\n"
        "3 the paths of two sources differ.\n",
        stream);
    if (!makesPages()) {
        (void)std::fputs("\nThis one was built without three.js or zlib and makes no pages.\n",
                         stream);
    }
    if (!makesPictures()) {
        (void)std::fputs("\nThis one was built without cairo and makes no pictures.\n", stream);
    }
}
