#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

/// Writes two o-word programs of the same path: makeLoop BLOCKS LOOP WRITTEN.
/// LOOP computes every block, three expressions in each; WRITTEN has the blocks written out. All
/// values are whole numbers of 1/32 mm, so that nothing is rounded and both mean the same bytes.

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

constexpr const char* kHead = "G21 G17 G90 G94 F1500.\nT1 M6\nS12000 M3\nG0 X0 Y0 Z25\nG1 Z20\n";
constexpr const char* kEnd = "M5\nM2\n";

void writeLoop(std::FILE* file, unsigned long blocks) {
    std::fputs(kHead, file);
    std::fprintf(file,
                 "#1=0\n"
                 "O1 WHILE [#1 LT %lu]\n"
                 "X[[#1 MOD 320]/16] Y[20-[#1*7 MOD 641]/32] Z[[[#1+3] MOD 97-96]/8]\n"
                 "#1=[#1+1]\n"
                 "O1 ENDWHILE\n",
                 blocks);
    std::fputs(kEnd, file);
}

double thirtySeconds(unsigned long count) noexcept { return static_cast<double>(count) / 32; }

void writeBlocks(std::FILE* file, unsigned long blocks) {
    std::fputs(kHead, file);
    for (unsigned long k = 0; k < blocks; ++k) {
        std::fprintf(file, "X%.7g Y%.7g Z%.7g\n", thirtySeconds(k % 320 * 2),
                     20 - thirtySeconds(k * 7 % 641),
                     thirtySeconds((k + 3) % 97 * 4) - thirtySeconds(96UL * 4));
    }
    std::fputs(kEnd, file);
}

bool writeFile(const char* name, unsigned long blocks, void (*write)(std::FILE*, unsigned long)) {
    File file(std::fopen(name, "w"));
    if (!file) {
        std::fprintf(stderr, "makeLoop: %s: %s\n", name, std::strerror(errno));
        return false;
    }
    write(file.get(), blocks);
    const bool failed = std::ferror(file.get()) != 0;
    if (std::fclose(file.release()) != 0 || failed) {
        std::fprintf(stderr, "makeLoop: cannot write %s\n", name);
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    unsigned long blocks = 0;
    if (argc != 4 ||
        std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), blocks).ec != std::errc{}) {
        std::fputs("usage: makeLoop BLOCKS LOOP WRITTEN\n", stderr);
        return EXIT_FAILURE;
    }
    return writeFile(argv[2], blocks, writeLoop) && writeFile(argv[3], blocks, writeBlocks)
               ? EXIT_SUCCESS
               : EXIT_FAILURE;
}
