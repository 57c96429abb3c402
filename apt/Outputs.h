#pragma once

#include "apt/StatementCounts.h"

#include <cstdio>
#include <memory>
#include <utility>

/// What the outputs of one conversion have in common, wherever copies of them are.
struct OutputState {
    StatementCounts* counts = nullptr; ///< not owned, may be null
    bool areOpen = true;
    bool hasLostStatement = false; ///< one did not fit its buffer: the conversion has failed

    /// Called before the streams are closed: nothing is written or counted any more.
    void Detach() noexcept {
        areOpen = false;
        counts = nullptr;
    }
};

/// While it lives, nothing is written or counted.
class MutedOutputs {
public:
    /// The state may be null; it must outlive this.
    explicit MutedOutputs(OutputState* state) noexcept
        : m_state(state), m_before(state == nullptr ? OutputState() : *state) {
        if (m_state != nullptr) {
            m_state->Detach();
        }
    }
    MutedOutputs(const MutedOutputs&) = delete;
    MutedOutputs& operator=(const MutedOutputs&) = delete;
    ~MutedOutputs() {
        if (m_state != nullptr) {
            *m_state = m_before;
        }
    }

private:
    OutputState* m_state;
    OutputState m_before;
};

/// Where the statements of a conversion leave: output, log and counts travel as one thing, from the
/// driver to the factory and from there to every writer. The streams are not owned, and each may be
/// null. Writers that outlive the streams write nowhere, as far as the state is there to say so;
/// without it, who made the writers keeps the streams open.
class Outputs {
public:
    Outputs() noexcept = default;
    Outputs(std::FILE* output, std::FILE* log, std::shared_ptr<OutputState> state = {}) noexcept
        : m_output(output), m_log(log), m_state(std::move(state)) {}

    void SetOutputFile(std::FILE* file) noexcept { m_output = file; }
    void SetLogFile(std::FILE* file) noexcept { m_log = file; }
    /// Null when there is none, or none any more.
    [[nodiscard]] std::FILE* OutputFile() const noexcept { return areOpen() ? m_output : nullptr; }
    [[nodiscard]] std::FILE* LogFile() const noexcept { return areOpen() ? m_log : nullptr; }

    void Count(StatementKind kind) const noexcept {
        if (m_state != nullptr && m_state->counts != nullptr) {
            m_state->counts->Count(kind);
        }
    }
    void LoseStatement() const noexcept {
        if (m_state != nullptr) {
            m_state->hasLostStatement = true;
        }
    }

private:
    [[nodiscard]] bool areOpen() const noexcept { return m_state == nullptr || m_state->areOpen; }

    std::FILE* m_output = nullptr;
    std::FILE* m_log = nullptr;
    std::shared_ptr<OutputState> m_state;
};
