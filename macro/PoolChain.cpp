#include "macro/PoolChain.h"

#include <algorithm>
#include <utility>

namespace {

struct Failure {
    PoolAnswer answer;
    MacroCode code;
    const char* what; // stands behind the variable
};
constexpr Failure kFailures[] = {
    {PoolAnswer::kElsewhere, kVariableUnknown, " does not exist"},
    {PoolAnswer::kUnset, kVariableUnknown, " was never set"},
    {PoolAnswer::kReadOnly, kVariableReadOnly, " cannot be assigned to"},
    {PoolAnswer::kWrongType, kWrongType, " cannot take the value "},
};

int fail(PoolAnswer answer, const char* routine, const VariableId& id, std::string_view value,
         MacroError& error) {
    const Failure& failure = *std::ranges::find(kFailures, answer, &Failure::answer);
    return error.set(failure.code, routine,
                     {"variable ", id.toText(), failure.what,
                      answer == PoolAnswer::kWrongType ? value : std::string_view()});
}

} // namespace

VariablePool& PoolChain::exchange(std::size_t place, VariablePool& pool) noexcept {
    return *std::exchange(m_pools[place], &pool);
}

bool PoolChain::holds(const VariableId& id) const {
    return std::ranges::any_of(m_pools, [&](const VariablePool* pool) { return pool->holds(id); });
}

int PoolChain::load(const VariableId& id, Value& value, MacroError& error) const {
    PoolAnswer answer = PoolAnswer::kElsewhere;
    for (const VariablePool* const pool : m_pools) {
        answer = pool->load(id, value);
        if (answer != PoolAnswer::kElsewhere) {
            break;
        }
    }
    if (answer != PoolAnswer::kDone) {
        return fail(answer, "PoolChain::load", id, {}, error);
    }
    if (!value.isFinite()) {
        return error.set(kOutOfRange, "PoolChain::load",
                         {"variable ", id.toText(), " is ", value.toText()});
    }
    return 0;
}

int PoolChain::assign(const VariableId& id, const Value& value, MacroError& error) const {
    PoolAnswer answer = PoolAnswer::kElsewhere;
    for (VariablePool* const pool : m_pools) {
        answer = pool->store(id, value);
        if (answer != PoolAnswer::kElsewhere) {
            break;
        }
    }
    for (std::size_t k = 0; k < m_pools.size() && answer == PoolAnswer::kElsewhere; ++k) {
        answer = m_pools[k]->create(id, value);
    }
    return answer == PoolAnswer::kDone
               ? 0
               : fail(answer, "PoolChain::assign", id, value.toText(), error);
}
