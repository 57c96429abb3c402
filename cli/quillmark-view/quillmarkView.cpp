// The tool for tool paths: reads one or two APT sources, then measures, compares and draws them.

#include "cli/quillmark-view/PictureContent.h"
#include "cli/quillmark-view/ViewOptions.h"
#include "cli/quillmark-view/outputKinds.h"
#include "cli/quillmark-view/printMeasure.h"
#include "cli/quillmark-view/readPath.h"
#include "cli/quillmark-view/tellDifference.h"
#include "cli/quillmark-view/viewHelp.h"
#include "cli/quillmark-view/writeJsonMeasure.h"
#include "cli/shared/fileError.h"
#include "cli/shared/flushStandardOutput.h"
#include "cli/shared/versionText.h"
#include "cli/shared/wholeFile.h"
#include "driver/StandardDescriptors.h"
#include "softCommon/FileOwner.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr int kViewDone = 0;
constexpr int kViewFailed = 1;
constexpr int kViewUsage = 2;
constexpr int kViewDiffers = 3;

bool printsInformation(const char* argument) noexcept {
    if (std::strcmp(argument, "--help") == 0) {
        printViewHelp(stdout);
        return true;
    }
    if (std::strcmp(argument, "--version") == 0) {
        printVersion(stdout, kProgramName);
        return true;
    }
    return false;
}

class Viewing {
public:
    explicit Viewing(const ViewOptions& options) : m_options(options) {}

    int Run() {
        if (!readAll()) {
            return kViewFailed;
        }
        if (isComparison()) {
            m_difference = comparePaths(m_paths[0], m_paths[1]);
        }
        if (m_options.json) {
            printJson();
        } else {
            printText();
        }
        if (m_options.output != nullptr && !draw()) {
            return kViewFailed;
        }
        if (!flushStandardOutput(kProgramName)) {
            return kViewFailed;
        }
        return m_difference && m_difference->what != nullptr ? kViewDiffers : kViewDone;
    }

private:
    [[nodiscard]] bool isComparison() const noexcept { return m_options.apts.size() == 2; }

    bool readAll() {
        bool isRead = true;
        for (std::size_t i = 0; i < m_options.apts.size(); ++i) {
            const char* const log = i < m_options.logs.size() ? m_options.logs[i] : nullptr;
            isRead &= readPath(m_options.apts[i], log, m_paths.at(i));
        }
        return isRead;
    }

    [[nodiscard]] PathMeasure measure(std::size_t i) const {
        return measurePath(m_paths.at(i), m_options.rapid);
    }
    [[nodiscard]] ComparedPaths compared() const {
        return {{&m_paths[0], &m_paths[1]}, {m_options.apts[0], m_options.apts[1]}};
    }

    void printText() const {
        for (std::size_t i = 0; m_options.measures && i < m_options.apts.size(); ++i) {
            printMeasure(stdout, m_options.apts[i], m_paths.at(i), measure(i), m_options.rapid);
        }
        if (m_difference) {
            printDifference(stdout, compared(), *m_difference);
        }
    }

    void printJson() const {
        JsonWriter json(stdout);
        json.BeginObject();
        if (m_options.measures) {
            json.Key("paths");
            json.BeginList();
            for (std::size_t i = 0; i < m_options.apts.size(); ++i) {
                writeJsonMeasure(json, m_options.apts[i], m_paths.at(i), measure(i),
                                 m_options.rapid);
            }
            json.EndList();
        }
        if (m_difference) {
            json.Key("difference");
            writeJsonDifference(json, compared(), *m_difference);
        }
        json.EndObject();
    }

    [[nodiscard]] bool draw() const {
        PictureContent content;
        for (std::size_t i = 0; i < m_options.apts.size(); ++i) {
            const std::string_view name = m_options.apts[i];
            content.paths.push_back(
                {&m_paths.at(i), std::string(name.substr(name.find_last_of('/') + 1))});
        }
        content.difference = m_difference ? &*m_difference : nullptr;
        content.view = m_options.view == nullptr ? nullptr : findView(m_options.view);
        const FileOwner file(std::tmpfile());
        const std::string reason =
            file == nullptr ? "no temporary file: " + std::string(std::strerror(errno))
                            : findOutputKind(m_options.output)->write(content, file.get());
        if (!reason.empty()) {
            printFileError(kProgramName, m_options.output, reason);
            return false;
        }
        return writeWholeFile(file.get(), m_options.output, kProgramName);
    }

    const ViewOptions& m_options;
    std::array<ToolPath, 2> m_paths;
    std::optional<PathDifference> m_difference; // of two paths
};

} // namespace

int main(int argc, char** argv) {
    const StandardDescriptors descriptors(StandardDescriptors::Output::kFails);
    if (argc == 2 && printsInformation(argv[1])) {
        return flushStandardOutput(kProgramName) ? kViewDone : kViewFailed;
    }
    try {
        const ViewOptions options = readViewOptions(argc, argv);
        if (!options.usageError.empty()) {
            std::fprintf(stderr, "%s: %s\n", kProgramName, options.usageError.c_str());
            printViewUsage(stderr);
            return kViewUsage;
        }
        return Viewing(options).Run();
    } catch (const std::bad_alloc&) {
        printFileError(kProgramName, argc > 1 ? argv[1] : "", "memory exhausted");
        return kViewFailed;
    }
}
