#pragma once

#include "commands/Parameter.h"

#include <memory>
#include <vector>

/// The registry of every address word of the dialect. It owns them; it is never sorted.
class AvailableParameters {
public:
    AvailableParameters() noexcept = default;
    AvailableParameters(const AvailableParameters&) = delete;
    AvailableParameters& operator=(const AvailableParameters&) = delete;
    virtual ~AvailableParameters();

    /// Takes the parameter over and puts it at the head. When memory is exhausted the parameter is
    /// destroyed and std::bad_alloc thrown.
    void NewParameter(Parameter* parameter);
    /// The i-th parameter from the head. The caller keeps `i` within [0, GetParameterCount()).
    [[nodiscard]] Parameter* GetParameter(int i) const noexcept {
        return m_parameters[m_parameters.size() - 1 - static_cast<std::size_t>(i)].get();
    }
    [[nodiscard]] int GetParameterCount() const noexcept {
        return static_cast<int>(m_parameters.size());
    }

private:
    std::vector<std::unique_ptr<Parameter>> m_parameters; // the head is the last entry
};
