#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// Runs the programs in a folder of the test's own.
class ParamTool : public testing::Test {
protected:
    struct Run {
        int status; ///< of the exit; -1 after a signal
        std::string out;
        std::string err;
    };

    ParamTool() : m_folder(makeFolder()) {}
    ~ParamTool() override { std::filesystem::remove_all(m_folder); }

    [[nodiscard]] std::string path(const std::string& name) const { return m_folder / name; }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(path(name), std::ios::binary) << content;
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(path(name));
    }
    /// The entries of the folder beside those that running made.
    [[nodiscard]] long files() const {
        return std::distance(std::filesystem::directory_iterator(m_folder), {});
    }

    /// Runs a shell command in the folder; a redirection in it overrides those to the results.
    [[nodiscard]] Run shell(const std::string& command) const {
        const std::string results = path("results");
        std::filesystem::create_directory(results);
        const std::string line = "cd '" + m_folder.string() + "' && { " + command +
                                 "\n} </dev/null >results/out 2>results/err";
        const int ended = std::system(line.c_str());
        Run run{WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, read("results/out"),
                read("results/err")};
        std::filesystem::remove_all(results);
        return run;
    }
    [[nodiscard]] Run param(const std::string& arguments) const {
        return shell(QUILLMARK_PARAM " " + arguments);
    }

private:
    static std::filesystem::path makeFolder() {
        std::string name = std::filesystem::temp_directory_path() / "quillmark-XXXXXX";
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        return name;
    }

    std::filesystem::path m_folder;
};
