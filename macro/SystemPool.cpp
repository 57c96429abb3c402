#include "macro/SystemPool.h"

#include <algorithm>
#include <optional>

namespace {

bool covers(const SystemVariable& row, const VariableId& id) noexcept {
    if (id.isNamed() || !row.name.empty()) {
        return row.name == id.name;
    }
    return id.number >= row.first && id.number <= row.last;
}

std::int64_t placeOf(const SystemVariable& row, const VariableId& id) noexcept {
    return id.isNamed() ? 0 : id.number - row.first;
}

} // namespace

const SystemVariable* SystemPool::find(const VariableId& id) const noexcept {
    const auto row = std::ranges::find_if(
        m_variables, [&](const SystemVariable& variable) { return covers(variable, id); });
    return row == m_variables.end() ? nullptr : &*row;
}

PoolAnswer SystemPool::load(const VariableId& id, Value& value) const {
    const SystemVariable* const row = find(id);
    if (row == nullptr) {
        return PoolAnswer::kElsewhere;
    }
    value = m_owner.systemValue(row->quantity, placeOf(*row, id));
    return PoolAnswer::kDone;
}

PoolAnswer SystemPool::store(const VariableId& id, const Value& value) {
    const SystemVariable* const row = find(id);
    if (row == nullptr) {
        return PoolAnswer::kElsewhere;
    }
    if (!row->isWritable) {
        return PoolAnswer::kReadOnly;
    }
    const std::optional<Value> fitted = value.fitted(row->type);
    if (!fitted) {
        return PoolAnswer::kWrongType;
    }
    m_owner.setSystemValue(row->quantity, placeOf(*row, id), *fitted);
    return PoolAnswer::kDone;
}
