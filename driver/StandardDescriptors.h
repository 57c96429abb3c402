#pragma once

#include <array>

/// Keeps files from becoming standard input, output or error, where messages would land in them:
/// while the object lives, those of the three that the caller has closed lead nowhere. Input is
/// empty, and errors vanish.
class StandardDescriptors {
public:
    /// What becomes of text that is printed to a missing standard output.
    enum class Output {
        kVanishes,
        kFails ///< as on any descriptor that cannot be written, so that its loss is noticed
    };

    explicit StandardDescriptors(Output output = Output::kVanishes) noexcept;
    StandardDescriptors(const StandardDescriptors&) = delete;
    StandardDescriptors& operator=(const StandardDescriptors&) = delete;
    ~StandardDescriptors();

private:
    std::array<bool, 3> m_isOurs{};
};
