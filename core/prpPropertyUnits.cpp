// Unit conversion: a one-time multiplication of the stored numbers. Nothing is announced and no text is refreshed.
#include "core/DataTypes.h"
#include "core/NumberRules.h"
#include "core/prpProperty.h"

namespace {

void ScalePosition(SprpPosition& position, double factor)
{
    position.X *= factor;
    position.Y *= factor;
    position.Z *= factor;
}

/// The integer bounds are never scaled.
void ScaleBounds(SprpBoundsInfo& bounds, double factor)
{
    if (bounds.eUpperType == E_BOUND_CUSTOM)
        bounds.dbUpperBound *= factor;
    if (bounds.eLowerType == E_BOUND_CUSTOM)
        bounds.dbLowerBound *= factor;
}

} // namespace

void CprpProperty::ConvertPropertyUnit(EprpUnitMode mode)
{
    if (m_bNoUnitConvert)
        return;
    // The factor depends on the target alone: a conversion to the present mode multiplies all the same.
    ScaleValue(mode == E_METRIC ? kFactorToMetric : kFactorToImperial);
    for (CprpProperty& child : m_ChildList)
        child.ConvertPropertyUnit(mode);
}

void CprpProperty::ScaleValue(double factor)
{
    switch (RuleOf(m_eDataType).scaling) {
    case UnitScaling::None: return;
    case UnitScaling::Length:
        m_dbDouble *= factor;
        if (m_pExtras)
            ScaleBounds(m_pExtras->bounds, factor);
        return;
    case UnitScaling::FullPrecision:
        m_dbDouble *= factor;
        // On purpose for this type alone, and without touching m_bValid.
        if (m_pExtras)
            m_pExtras->error.clear();
        return;
    case UnitScaling::Position:
        if (m_pExtras) {
            ScalePosition(m_pExtras->position, factor);
            ScaleBounds(m_pExtras->bounds, factor);
        }
        return;
    case UnitScaling::Tolerance:
        if (m_pExtras && m_pExtras->tolerance)
            m_pExtras->tolerance->Convert(factor);
        return;
    case UnitScaling::ScanPath:
        if (m_pExtras)
            for (SprpPosition& point : m_pExtras->scanPath)
                ScalePosition(point, factor);
        return;
    }
}
