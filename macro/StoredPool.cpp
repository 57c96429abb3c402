#include "macro/StoredPool.h"

#include <optional>

void StoredPool::clear() noexcept {
    for (Numbers& numbers : m_numbers) {
        numbers.values.clear();
    }
    m_named.clear();
}

std::size_t StoredPool::rangeOf(std::int64_t number) const noexcept {
    std::size_t place = 0;
    while (place < m_numbers.size() &&
           (number < m_numbers[place].range.first || number > m_numbers[place].range.last)) {
        ++place;
    }
    return place;
}

PoolAnswer StoredPool::declare(std::string_view name, ValueType type, const Value& initial) {
    const std::optional<Value> value =
        initial.isVacant() ? Value::ZeroOf(type) : initial.fitted(type);
    if (!value) {
        return PoolAnswer::kWrongType;
    }
    m_named.insert_or_assign(std::string(name), *value);
    return PoolAnswer::kDone;
}

bool StoredPool::holds(const VariableId& id) const {
    return id.isNamed() ? m_named.contains(id.name) : rangeOf(id.number) < m_numbers.size();
}

PoolAnswer StoredPool::load(const VariableId& id, Value& value) const {
    if (id.isNamed()) {
        const auto named = m_named.find(id.name);
        if (named == m_named.end()) {
            return PoolAnswer::kElsewhere;
        }
        value = named->second;
        return PoolAnswer::kDone;
    }
    const std::size_t rangePlace = rangeOf(id.number);
    if (rangePlace == m_numbers.size()) {
        return PoolAnswer::kElsewhere;
    }
    const auto& [range, values] = m_numbers[rangePlace];
    const auto place = static_cast<std::size_t>(id.number - range.first);
    if (place < values.size() && !values[place].isVacant()) {
        value = values[place];
        return PoolAnswer::kDone;
    }
    if (range.unset == UnsetVariable::kFailure) {
        return PoolAnswer::kUnset;
    }
    value = range.unset == UnsetVariable::kVacant ? Value() : Value::ZeroOf(range.type);
    return PoolAnswer::kDone;
}

PoolAnswer StoredPool::store(const VariableId& id, const Value& value) {
    if (id.isNamed()) {
        const auto named = m_named.find(id.name);
        if (named == m_named.end()) {
            return PoolAnswer::kElsewhere;
        }
        const std::optional<Value> fitted = value.fitted(named->second.type());
        if (fitted) {
            named->second = *fitted;
        }
        return fitted ? PoolAnswer::kDone : PoolAnswer::kWrongType;
    }
    const std::size_t rangePlace = rangeOf(id.number);
    if (rangePlace == m_numbers.size()) {
        return PoolAnswer::kElsewhere;
    }
    auto& [range, values] = m_numbers[rangePlace];
    if (range.isReadOnly) {
        return PoolAnswer::kReadOnly;
    }
    const bool clears = value.isVacant() && range.unset == UnsetVariable::kVacant;
    const std::optional<Value> fitted = clears ? value : value.fitted(range.type);
    if (!fitted) {
        return PoolAnswer::kWrongType;
    }
    const auto place = static_cast<std::size_t>(id.number - range.first);
    if (place >= values.size()) {
        values.resize(place + 1);
    }
    values[place] = *fitted;
    return PoolAnswer::kDone;
}

PoolAnswer StoredPool::create(const VariableId& id, const Value& value) {
    if (!id.isNamed() || m_takesName == nullptr || !m_takesName(id.name)) {
        return PoolAnswer::kElsewhere;
    }
    return value.isVacant() ? PoolAnswer::kWrongType : declare(id.name, ValueType::kReal, value);
}
