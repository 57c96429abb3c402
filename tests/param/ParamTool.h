#pragma once

#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
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

    void write(const char* name, const std::string& content) const {
        m_folder.write(name, content);
    }
    [[nodiscard]] std::string read(const char* name) const { return m_folder.read(name); }
    [[nodiscard]] std::string path(const char* name) const { return m_folder.path(name); }
    [[nodiscard]] bool exists(const char* name) const {
        return std::filesystem::exists(path(name));
    }
    /// The entries of the folder.
    [[nodiscard]] long files() const {
        return std::distance(std::filesystem::directory_iterator(m_folder.path()), {});
    }

    /// Runs a shell command in the folder; a redirection in it overrides those to the results.
    [[nodiscard]] Run shell(const std::string& command) const {
        const std::string line = "cd '" + m_folder.path() + "' && { " + command +
                                 "\n} </dev/null >'" + m_results.path("out") + "' 2>'" +
                                 m_results.path("err") + "'";
        const int ended = std::system(line.c_str());
        return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, m_results.read("out"),
                m_results.read("err")};
    }
    [[nodiscard]] Run param(const std::string& arguments) const {
        return shell(QUILLMARK_PARAM " " + arguments);
    }

private:
    TempFolder m_folder;
    TempFolder m_results;
};
