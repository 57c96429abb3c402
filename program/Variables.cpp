#include "program/Variables.h"

#include <utility>

Variables::Variables(const LanguageTraits& traits, const MachineView& machine)
    : m_traits(traits), m_machine(machine), m_program("program"),
      m_system("machine", traits.system, *this) {
    for (const NumberRange& range : traits.programNumbers) {
        m_program.addNumbers(range);
    }
    if (traits.takesProgramName != nullptr) {
        m_program.takeNewNames(traits.takesProgramName);
    }
    for (const std::string_view name : {traits.resultName, traits.hasResultName}) {
        if (!name.empty()) {
            (void)m_program.declare(name, ValueType::kReal, {});
        }
    }
    m_levels.push_back(makeLocals());
    m_pools.append(*m_levels.back());
    m_pools.append(m_program);
    m_pools.append(m_system);
}

std::unique_ptr<StoredPool> Variables::makeLocals() const {
    auto pool = std::make_unique<StoredPool>("call");
    for (const NumberRange& range : m_traits.localNumbers) {
        pool->addNumbers(range);
    }
    if (m_traits.takesLocalName != nullptr) {
        pool->takeNewNames(m_traits.takesLocalName);
    }
    return pool;
}

void Variables::beginCall() {
    m_levels.push_back(m_spare != nullptr ? std::move(m_spare) : makeLocals());
    m_pools.exchange(0, *m_levels.back());
}

void Variables::endCall() {
    m_spare = std::move(m_levels.back());
    m_spare->clear();
    m_levels.pop_back();
    m_pools.exchange(0, *m_levels.back());
}

void Variables::setResult(const Value& value) {
    if (m_traits.resultName.empty()) {
        return;
    }
    const bool hasValue = !value.isVacant();
    (void)m_program.store(VariableId::Named(m_traits.resultName),
                          hasValue ? value : Value::Real(0.0));
    (void)m_program.store(VariableId::Named(m_traits.hasResultName),
                          Value::Real(hasValue ? 1.0 : 0.0));
}

Value Variables::takeAlarm() noexcept { return std::exchange(m_alarm, {}); }

Value Variables::systemValue(int quantity, std::int64_t place) {
    using enum MachineQuantity;
    switch (static_cast<MachineQuantity>(quantity)) {
    case kPosition:
    case kPositionY:
    case kPositionZ: {
        const std::int64_t axis = quantity + place;
        return Value::Real(axis < 3 ? m_machine.position(static_cast<int>(axis)) : 0.0);
    }
    case kTool:
        return Value::Real(m_machine.tool());
    case kFeed:
        return Value::Real(m_machine.feed());
    case kSpeed:
        return Value::Real(m_machine.speed());
    case kIsMetric:
        return Value::Real(m_machine.isMetric() ? 1.0 : 0.0);
    case kIsImperial:
        return Value::Real(m_machine.isMetric() ? 0.0 : 1.0);
    case kIsAbsolute:
        return Value::Real(m_machine.isAbsolute() ? 1.0 : 0.0);
    case kIsIncremental:
        return Value::Real(m_machine.isAbsolute() ? 0.0 : 1.0);
    case kMovementCode:
        return Value::Real(m_machine.movementCode());
    case kDistanceCode:
        return Value::Real(m_machine.isAbsolute() ? 90.0 : 91.0);
    case kUnitsCode:
        return Value::Real(m_machine.isMetric() ? 21.0 : 20.0);
    case kZero:
    case kAlarm:
        break;
    }
    return Value::Real(0.0);
}

void Variables::setSystemValue(int quantity, std::int64_t /*place*/, const Value& value) {
    if (static_cast<MachineQuantity>(quantity) == MachineQuantity::kAlarm) {
        m_alarm = value;
    }
}
