#pragma once

#include "apt/Factory.h"
#include "apt/Outputs.h"

#include <utility>

/// Makes the writers of APT statements. Each gets the outputs that the factory has at the time; the
/// streams are never opened or closed here.
class APTFactory final : public Factory {
public:
    explicit APTFactory(Outputs outputs) noexcept : m_outputs(std::move(outputs)) {}
    /// Either stream may be null: nothing is written there.
    APTFactory(std::FILE* output, std::FILE* log) noexcept : m_outputs(output, log) {}

    [[nodiscard]] ResLinearMovement* GetLinearCom() override;
    [[nodiscard]] ResCircularMovement* GetCirculCom() override;
    [[nodiscard]] ResCoolant* GetCoolanCom() override;
    [[nodiscard]] ResSpindle* GetSpindlCom() override;
    [[nodiscard]] ResFeedRate* GetFeedRaCom() override;
    [[nodiscard]] ResMovTypeCom* GetMovTypCom() override;
    [[nodiscard]] ResRegularCommand* GetRegulaCom() override;
    [[nodiscard]] ResEndCommand* GetEndCom() override;
    void SetOutputFile(std::FILE* file) override { m_outputs.SetOutputFile(file); }
    [[nodiscard]] std::FILE* GetOutputFile() override { return m_outputs.OutputFile(); }
    void SetLogFile(std::FILE* file) override { m_outputs.SetLogFile(file); }
    [[nodiscard]] std::FILE* GetLogFile() override { return m_outputs.LogFile(); }
    [[nodiscard]] ResText* GetTextCom() override;
    [[nodiscard]] ResControl* GetControlCom() override;

private:
    Outputs m_outputs;
};
