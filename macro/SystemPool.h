#pragma once

#include "macro/VariablePool.h"

#include <span>

/// Who knows the values behind the system variables: position, tool, feed, units. `quantity` is the
/// owner's own number, `place` counts from 0 within a row of several numbers.
class SystemOwner {
public:
    virtual ~SystemOwner() = default;
    /// The present value; vacant where there is none yet.
    [[nodiscard]] virtual Value systemValue(int quantity, std::int64_t place) = 0;
    /// Takes a value that fits the type of its row.
    virtual void setSystemValue(int /*quantity*/, std::int64_t /*place*/, const Value& /*value*/) {}
};

/// One row of system variables: a name, or the numbers from `first` to `last` when it is empty.
struct SystemVariable {
    std::string_view name;
    std::int64_t first = 0;
    std::int64_t last = 0;
    int quantity = 0;
    bool isWritable = false;
    ValueType type = ValueType::kReal; ///< what an assignment must fit
};

/// A pool that keeps nothing: it asks its owner at every use.
class SystemPool : public VariablePool {
public:
    /// `variables` and `owner` must outlive the pool.
    SystemPool(std::string name, std::span<const SystemVariable> variables, SystemOwner& owner)
        : VariablePool(std::move(name)), m_variables(variables), m_owner(owner) {}

    [[nodiscard]] bool holds(const VariableId& id) const override { return find(id) != nullptr; }
    [[nodiscard]] PoolAnswer load(const VariableId& id, Value& value) const override;
    [[nodiscard]] PoolAnswer store(const VariableId& id, const Value& value) override;

private:
    [[nodiscard]] const SystemVariable* find(const VariableId& id) const noexcept;

    std::span<const SystemVariable> m_variables;
    SystemOwner& m_owner;
};
