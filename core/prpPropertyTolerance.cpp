// The tolerance record and the position of a property. Every property has both, whatever its data type.
#include "core/NumberRules.h"
#include "core/PositionRules.h"
#include "core/prpProperty.h"
#include "frame/TextTools.h"

#include <utility>

/// The tolerance record; all zero while none was set. Needs no transaction.
/// @param Tolerance  in and out: its datum texts must come in null or owned, they are freed; the nine new ones, never
///                   null, belong to the caller.
/// Raises: null pointer.
STDMETHODIMP CprpProperty::GetPropertyTolerance(SprpTolerance* Tolerance)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyTolerance"), [&](const Checks& require) {
        require.Pointer(Tolerance, OLESTR("pTolerance"));
        Extras().tolerance->Get(*Tolerance);
    });
}

/// Takes a copy of the record. One that is equal in what its type selects, numbers closer than 0.0001, changes and
/// announces nothing.
/// Raises, in this order: null pointer; a type that is none (internal error); for a differing record: no open
/// transaction.
STDMETHODIMP CprpProperty::SetPropertyTolerance(SprpTolerance* Tolerance)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyTolerance"), [&](const Checks& require) {
        require.Pointer(Tolerance, OLESTR("pTolerance"));
        CprpTolerance given;
        given.Set(*Tolerance);
        if (Extras().tolerance->Equals(given))
            return;
        const ValueText old = RenderForEdit();
        MakeExtras().tolerance.Make() = std::move(given);
        QueueValueEdit(old);
    });
}

/// The position, in the collection's unit mode. Needs no transaction. Raises: null pointer, as an internal error.
STDMETHODIMP CprpProperty::GetPropertyPosition(SprpPosition* Position)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyPosition"), [&](const Checks&) {
        if (!Position)
            ThrowInternal();
        *Position = Extras().position;
    });
}

/// Takes a position in the collection's unit mode. Coordinates above 1e14 become 1e14. A position that shows the same
/// text at the collection's precision is stored without an event.
/// @param bForce  stores also what is closer to the present position than 0.0001 (metric) or 0.00001 (imperial).
/// Raises, in this order: a unit mode that is neither metric nor imperial (internal error); for a position that is to
/// be stored: no open transaction.
STDMETHODIMP CprpProperty::SetPropertyPosition(SprpPosition Position, VARIANT_BOOL bForce)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyPosition"), [&](const Checks&) {
        const UnitRule rule = UnitRuleOfMode();
        const int decimals = DecimalsFor(NumberKind::Coordinate, rule.imperial);
        const SprpPosition given{ClampToCeiling(Position.X, decimals), ClampToCeiling(Position.Y, decimals),
                                 ClampToCeiling(Position.Z, decimals)};
        if (!bForce && SamePlace(given, Extras().position, rule.threshold))
            return;
        const ValueText old = RenderForEdit();
        MakeExtras().position = given;
        if (!old.Equals(RenderValue()))
            QueueValueEdit(old);
    });
}
