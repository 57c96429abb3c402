#pragma once

#include "macro/Value.h"
#include "macro/VariableId.h"

#include <string>
#include <string_view>
#include <utility>

/// How a pool answers.
enum class PoolAnswer {
    kDone,
    kElsewhere, ///< the variable is not of this pool
    kUnset,     ///< it is, but was never set, and reading it then is a failure
    kReadOnly,  ///< it cannot be assigned to
    kWrongType  ///< the value does not fit its type
};

/// A set of variables under a name.
class VariablePool {
public:
    explicit VariablePool(std::string name) : m_name(std::move(name)) {}
    VariablePool(const VariablePool&) = delete;
    VariablePool& operator=(const VariablePool&) = delete;
    virtual ~VariablePool() = default;

    [[nodiscard]] const std::string& name() const noexcept { return m_name; }

    /// Whether the variable is of this pool, set or not.
    [[nodiscard]] virtual bool holds(const VariableId& id) const = 0;
    /// `value` changes with kDone only.
    [[nodiscard]] virtual PoolAnswer load(const VariableId& id, Value& value) const = 0;
    /// Assigns to a variable of this pool.
    [[nodiscard]] virtual PoolAnswer store(const VariableId& id, const Value& value) = 0;
    /// Makes a variable that is in no pool yet, where this pool takes such a name.
    [[nodiscard]] virtual PoolAnswer create(const VariableId& /*id*/, const Value& /*value*/) {
        return PoolAnswer::kElsewhere;
    }

private:
    std::string m_name;
};
