#pragma once

#include "apt/Factory.h"

/// Makes the writers of APT statements. Owns neither of its streams; the log stream may be null.
class APTFactory final : public Factory {
public:
    APTFactory(std::FILE* output, std::FILE* log) noexcept : m_output(output), m_log(log) {}

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
};
