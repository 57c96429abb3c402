#pragma once

#include <cstdio>

class ResCircularMovement;
class ResControl;
class ResCoolant;
class ResEndCommand;
class ResFeedRate;
class ResLinearMovement;
class ResMovTypeCom;
class ResRegularCommand;
class ResSpindle;
class ResText;

/// Makes the result writers of one output language. Each Get...Com makes a new writer with the
/// current streams, owned by the caller, or returns null when memory is exhausted. Nothing is
/// destroyed through this base.
class Factory {
public:
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    [[nodiscard]] virtual ResLinearMovement* GetLinearCom() = 0;
    [[nodiscard]] virtual ResCircularMovement* GetCirculCom() = 0;
    [[nodiscard]] virtual ResCoolant* GetCoolanCom() = 0;
    [[nodiscard]] virtual ResSpindle* GetSpindlCom() = 0;
    [[nodiscard]] virtual ResFeedRate* GetFeedRaCom() = 0;
    [[nodiscard]] virtual ResMovTypeCom* GetMovTypCom() = 0;
    [[nodiscard]] virtual ResRegularCommand* GetRegulaCom() = 0;
    [[nodiscard]] virtual ResEndCommand* GetEndCom() = 0;
    virtual void SetOutputFile(std::FILE* file) = 0;
    [[nodiscard]] virtual std::FILE* GetOutputFile() = 0;
    virtual void SetLogFile(std::FILE* file) = 0;
    [[nodiscard]] virtual std::FILE* GetLogFile() = 0;
    [[nodiscard]] virtual ResText* GetTextCom() = 0;
    [[nodiscard]] virtual ResControl* GetControlCom() = 0;

protected:
    Factory() = default;
    ~Factory() = default;
};
