#pragma once

#include "macro/MacroError.h"
#include "macro/VariablePool.h"

#include <vector>

/// The pools that are searched for a variable, in order: call level, program, system. Owns none of
/// them; they must outlive their place in the chain.
class PoolChain {
public:
    void append(VariablePool& pool) { m_pools.push_back(&pool); }
    /// Puts `pool` into the place (from 0) of another, as at a call and a return, and returns that.
    VariablePool& exchange(std::size_t place, VariablePool& pool) noexcept;

    /// Whether a pool has the variable, set or not.
    [[nodiscard]] bool holds(const VariableId& id) const;
    /// The value of the first pool that has the variable. 0, or kVariableUnknown, or kOutOfRange
    /// for a value that is not finite.
    [[nodiscard]] int load(const VariableId& id, Value& value, MacroError& error) const;
    /// Assigns in the first pool that has the variable, else makes it in the first that takes it.
    /// 0, kVariableUnknown, kVariableReadOnly or kWrongType.
    [[nodiscard]] int assign(const VariableId& id, const Value& value, MacroError& error) const;

private:
    std::vector<VariablePool*> m_pools;
};
