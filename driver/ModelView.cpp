#include "driver/ModelView.h"

#include "commands/Control.h"

double ModelView::position(int axis) const { return m_scan.Machinestatus().GetEndPosition()[axis]; }

int ModelView::tool() const { return m_scan.Machinestatus().GetTool(); }

double ModelView::feed() const { return m_scan.Machinestatus().GetFeedRateSpeed(); }

double ModelView::speed() const { return m_scan.Machinestatus().GetSpindleSpeed(); }

bool ModelView::isMetric() const {
    const Control* const control = m_scan.Machinestatus().GetControl();
    return control == nullptr || !control->units.IsInch();
}

bool ModelView::isAbsolute() const {
    Command* const type = m_scan.Machinestatus().GetMovTypeCom()->GetActiveCommand();
    return type == nullptr || type->GetStatus() != 0;
}

int ModelView::movementCode() const {
    const Command* const movement = m_scan.Machinestatus().GetMovementCom()->GetActiveCommand();
    return movement == nullptr ? -1 : movement->GetSyntaxNumber();
}

bool ModelView::hasMoved() const { return m_scan.Report().Statements().BlockMoves(); }
