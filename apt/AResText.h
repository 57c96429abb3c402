#pragma once

#include "apt/ResText.h"

/// Texts in APT. A statement holds at most 66 characters of one, and the rest goes on in further
/// statements. They are printable ASCII: others become "?", and "$", which would continue the
/// statement, becomes "S".
class AResText final : public ResText {
public:
    using ResText::ResText;

    void WriteComment(std::string_view comment) override;
    void WriteProgramName(std::string_view name) override;

private:
    void writeText(std::string_view word, std::string_view text) const;
};
