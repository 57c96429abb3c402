#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

TempFolder::TempFolder()
    : m_path((std::filesystem::temp_directory_path() / "quillmark-XXXXXX").string()) {
    EXPECT_NE(mkdtemp(m_path.data()), nullptr);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TempFolder::path(std::string_view name) const {
    return m_path + "/" + std::string(name);
}

std::string TempFolder::write(std::string_view name, std::string_view bytes) const {
    std::ofstream stream(path(name), std::ios::binary);
    EXPECT_TRUE(stream << bytes << std::flush) << name;
    return path(name);
}

std::string TempFolder::read(std::string_view name) const { return readFile(path(name)); }

std::string readFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        return "(missing)";
    }
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
