#include "commands/AvailableParameters.h"

AvailableParameters::~AvailableParameters() = default;

void AvailableParameters::NewParameter(Parameter* parameter) {
    std::unique_ptr<Parameter> owned(parameter);
    m_parameters.push_back(std::move(owned));
}
