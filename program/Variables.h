#pragma once

#include "macro/PoolChain.h"
#include "macro/StoredPool.h"
#include "macro/SystemPool.h"
#include "program/LanguageTraits.h"
#include "program/MachineView.h"

#include <memory>
#include <vector>

/// All variables of a running program: those of the present call, of the program, and of the
/// machine, searched in this order.
class Variables : private SystemOwner {
public:
    /// Both must outlive the variables.
    Variables(const LanguageTraits& traits, const MachineView& machine);
    Variables(const Variables&) = delete;
    Variables& operator=(const Variables&) = delete;
    ~Variables() override = default;

    [[nodiscard]] const PoolChain& pools() const noexcept { return m_pools; }
    /// Those of the present call.
    [[nodiscard]] StoredPool& locals() noexcept { return *m_levels.back(); }

    /// A call with variables of its own; those of the caller are hidden until it ends.
    void beginCall();
    void endCall();

    /// Tells the program what a subprogram gave back, where the family has a place for it.
    void setResult(const Value& value);

    /// The number of the alarm that was raised since the last question; vacant for none.
    [[nodiscard]] Value takeAlarm() noexcept;

private:
    [[nodiscard]] std::unique_ptr<StoredPool> makeLocals() const;
    [[nodiscard]] Value systemValue(int quantity, std::int64_t place) override;
    void setSystemValue(int quantity, std::int64_t place, const Value& value) override;

    const LanguageTraits& m_traits;
    const MachineView& m_machine;
    StoredPool m_program;
    SystemPool m_system;
    std::vector<std::unique_ptr<StoredPool>> m_levels;
    std::unique_ptr<StoredPool> m_spare; // of the last call that ended, for the next
    PoolChain m_pools;
    Value m_alarm;
};
