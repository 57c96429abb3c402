#pragma once

#include "macro/VariablePool.h"

#include <functional>
#include <unordered_map>
#include <vector>

/// What a variable that was never set is.
enum class UnsetVariable {
    kZero,   ///< zero of its type
    kVacant, ///< vacant; assigning a vacant value makes it so again
    kFailure
};

/// The numbered variables from `first` to `last` of a pool.
struct NumberRange {
    std::int64_t first = 0;
    std::int64_t last = 0;
    ValueType type = ValueType::kReal;
    UnsetVariable unset = UnsetVariable::kZero;
    bool isReadOnly = false;
};

/// A pool that keeps the values itself: those of a program, or of one call of a subprogram. Memory
/// grows with the highest number assigned in each range.
class StoredPool : public VariablePool {
public:
    using VariablePool::VariablePool;

    /// Adds numbered variables. Where ranges overlap the first one counts.
    void addNumbers(const NumberRange& range) { m_numbers.push_back({range, {}}); }
    /// Says which names an assignment may bring into being; they hold reals. Without it only
    /// declared names exist.
    void takeNewNames(bool (*takes)(std::string_view name)) noexcept { m_takesName = takes; }
    /// Makes a named variable, anew when there is one. A vacant `initial` counts as zero.
    /// kDone or kWrongType.
    PoolAnswer declare(std::string_view name, ValueType type, const Value& initial);
    /// Forgets all values and all names; the ranges stay.
    void clear() noexcept;

    [[nodiscard]] bool holds(const VariableId& id) const override;
    [[nodiscard]] PoolAnswer load(const VariableId& id, Value& value) const override;
    [[nodiscard]] PoolAnswer store(const VariableId& id, const Value& value) override;
    [[nodiscard]] PoolAnswer create(const VariableId& id, const Value& value) override;

private:
    struct Numbers {
        NumberRange range;
        std::vector<Value> values; // from the first on; vacant means never set
    };
    struct NameHash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    // A value always has the type of its variable.
    using NamedValues = std::unordered_map<std::string, Value, NameHash, std::equal_to<>>;

    // The place of the range in m_numbers; its size when there is none.
    [[nodiscard]] std::size_t rangeOf(std::int64_t number) const noexcept;

    std::vector<Numbers> m_numbers;
    NamedValues m_named;
    bool (*m_takesName)(std::string_view name) = nullptr;
};
