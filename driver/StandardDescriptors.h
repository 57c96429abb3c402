#pragma once

#include <array>

/// Keeps files of a conversion from becoming standard input, output or error, where messages would
/// land in them: while the object lives, those of the three that the host has closed lead nowhere.
class StandardDescriptors {
public:
    StandardDescriptors() noexcept;
    StandardDescriptors(const StandardDescriptors&) = delete;
    StandardDescriptors& operator=(const StandardDescriptors&) = delete;
    ~StandardDescriptors();

private:
    std::array<bool, 3> m_isOurs{};
};
