#include "apt/APTFactory.h"

#include "apt/AResCircularMovement.h"
#include "apt/AResControl.h"
#include "apt/AResCoolant.h"
#include "apt/AResEndCommand.h"
#include "apt/AResFeedRate.h"
#include "apt/AResLinearMovement.h"
#include "apt/AResMovTypeCom.h"
#include "apt/AResRegularCommand.h"
#include "apt/AResSpindle.h"
#include "apt/AResText.h"

#include <new>

// Raw pointers on purpose: the caller owns what the interface of the factory hands out.

ResLinearMovement* APTFactory::GetLinearCom() {
    return new (std::nothrow) AResLinearMovement(m_outputs);
}

ResCircularMovement* APTFactory::GetCirculCom() {
    return new (std::nothrow) AResCircularMovement(m_outputs);
}

ResCoolant* APTFactory::GetCoolanCom() { return new (std::nothrow) AResCoolant(m_outputs); }

ResSpindle* APTFactory::GetSpindlCom() { return new (std::nothrow) AResSpindle(m_outputs); }

ResFeedRate* APTFactory::GetFeedRaCom() { return new (std::nothrow) AResFeedRate(m_outputs); }

ResMovTypeCom* APTFactory::GetMovTypCom() { return new (std::nothrow) AResMovTypeCom(m_outputs); }

ResRegularCommand* APTFactory::GetRegulaCom() {
    return new (std::nothrow) AResRegularCommand(m_outputs);
}

ResEndCommand* APTFactory::GetEndCom() { return new (std::nothrow) AResEndCommand(m_outputs); }

ResText* APTFactory::GetTextCom() { return new (std::nothrow) AResText(m_outputs); }

ResControl* APTFactory::GetControlCom() { return new (std::nothrow) AResControl(m_outputs); }
