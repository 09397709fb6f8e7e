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

} // namespace

bool CprpProperty::ConvertPropertyUnit(EprpUnitMode mode)
{
    if (m_bNoUnitConvert)
        return false; // and so the whole subtree is shielded, whatever its own flags say
    // The factor depends on the target alone: a conversion to the present mode multiplies all the same.
    ScaleValue(mode == E_METRIC ? kFactorToMetric : kFactorToImperial);
    return true;
}

void CprpProperty::ScaleValue(double factor)
{
    switch (RuleOf(m_eDataType).scaling) {
    case UnitScaling::None: return;
    case UnitScaling::Length:
        m_dbDouble *= factor;
        ScaleBounds(factor);
        return;
    case UnitScaling::FullPrecision:
        m_dbDouble *= factor;
        // On purpose for this type alone, and without touching m_bValid.
        if (m_pExtras)
            MakeExtras().error.Clear();
        return;
    case UnitScaling::Position:
        if (m_pExtras) {
            ScalePosition(MakeExtras().position, factor);
            ScaleBounds(factor);
        }
        return;
    case UnitScaling::Tolerance:
        if (Extras().tolerance)
            MakeExtras().tolerance.Make().Convert(factor);
        return;
    case UnitScaling::ScanPath:
        if (Extras().scanPath)
            for (SprpPosition& point : MakeExtras().scanPath.Make())
                ScalePosition(point, factor);
        return;
    }
}

void CprpProperty::ScaleBounds(double factor)
{
    if (!Extras().bounds)
        return;
    SprpBoundsInfo& bounds = MakeExtras().bounds.Make();
    // The integer bounds are never scaled.
    if (bounds.eUpperType == E_BOUND_CUSTOM)
        bounds.dbUpperBound *= factor;
    if (bounds.eLowerType == E_BOUND_CUSTOM)
        bounds.dbLowerBound *= factor;
}
