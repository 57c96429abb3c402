// Runs a fuzz target once on every file named on the command line, and on every file of a folder:
// for the tests, for coverage, for a debugger or valgrind.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void runFile(const std::filesystem::path& path) {
    std::ifstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(path, std::ios::binary);
    file.exceptions(std::ios::badbit);
    const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
    (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int argc, char** argv) try {
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            runFile(argv[i]);
            ++inputs;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            runFile(entry.path());
            ++inputs;
        }
    }
    std::fprintf(stderr, "%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "replay: %s\n", error.what());
    return 1;
}
