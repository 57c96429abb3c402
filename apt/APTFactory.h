#pragma once

#include "apt/Factory.h"
#include "apt/StatementCounts.h"

/// Makes the writers of APT statements. Owns neither of its streams; the log stream may be null.
/// With counts, which it does not own either, the writers count there what they write.
class APTFactory final : public Factory {
public:
    APTFactory(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : m_output(output), m_log(log), m_counts(counts) {}

    [[nodiscard]] ResLinearMovement* GetLinearCom() override;
    [[nodiscard]] ResCircularMovement* GetCirculCom() override;
    [[nodiscard]] ResCoolant* GetCoolanCom() override;
    [[nodiscard]] ResSpindle* GetSpindlCom() override;
    [[nodiscard]] ResFeedRate* GetFeedRaCom() override;
    [[nodiscard]] ResMovTypeCom* GetMovTypCom() override;
    [[nodiscard]] ResRegularCommand* GetRegulaCom() override;
    [[nodiscard]] ResEndCommand* GetEndCom() override;
    void SetOutputFile(std::FILE* file) override { m_output = file; }
    [[nodiscard]] std::FILE* GetOutputFile() override { return m_output; }
    void SetLogFile(std::FILE* file) override { m_log = file; }
    [[nodiscard]] std::FILE* GetLogFile() override { return m_log; }

private:
    std::FILE* m_output;
    std::FILE* m_log;
    StatementCounts* m_counts;
};
