// One tolerance as a property holds it: the interface record with plain booleans and owned datum names. Its copying,
// its test of equality, its text and its unit conversion, each told by the table of which parts a type selects.
// Fields of an enumeration keep the number that a host gave, also one that is no enumerator.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/com/Ole.h"

#include <array>

/// Kept and copied; in no text and no comparison.
struct CprpFormTol {
    LONG eTolStatus = E_TOL_STATUS_NOT_CALCULATED;
    bool bActive = false;
    double dbNominalValue = 0;
    double dbCalculatedValue = 0;
    double dbError = 0;
    bool bAllowEdit = false;
};

struct CprpLinearTol {
    LONG eTolStatus = E_TOL_STATUS_NOT_CALCULATED;
    bool bActive = false;
    double dbNominalValue = 0;
    double dbUpperBound = 0;
    double dbLowerBound = 0;
    double dbCalculatedValue = 0;
    double dbError = 0;
    bool bAbsoluteBounds = false;
    LONG nEditFlags = 0;
};

struct CprpGDTTol {
    LONG eTolStatus = E_TOL_STATUS_NOT_CALCULATED;
    bool bActive = false;
    LONG eType = E_GDT_TYPE_NONE;
    LONG eMaterialModifier = E_GDT_MAT_MOD_NONE;
    double dbToleranceValue = 0;
    double dbCalculatedValue = 0;
    double dbError = 0;
    std::array<Text, 3> datums;
    bool bRadial = false;
    std::array<bool, 3> datumActive{}; ///< independent of the names: an inactive datum may have one
    LONG nEditFlags = 0;
};

struct CprpTolerance {
    LONG eTolType = E_TOL_TYPE_NONE; ///< always one of the enumerators
    bool bMarkAsDefault = false;
    bool bMarkAsNone = false;
    CprpFormTol form;
    std::array<CprpLinearTol, 3> linear; ///< X, Y, Z
    std::array<CprpGDTTol, 3> gdt;       ///< X, Y, Z

    /// Copies all parts of the record, whatever its type. An internal error for a bad type, before anything is copied.
    void Set(const SprpTolerance& record);
    /// Frees the datum texts that the record holds and gives it new ones, never null.
    void Get(SprpTolerance& record) const;
    /// Compares what the type selects, numbers by the tolerance threshold.
    bool Equals(const CprpTolerance& other) const;
    /// The tolerance string; six significant digits.
    void AppendTo(Text& out) const;
    /// Reads a tolerance string into a fresh record. An internal error for a bad type; nothing else fails.
    static CprpTolerance Parse(TextView text);
    /// Multiplies the lengths that the type selects.
    void Convert(double factor);

    /// Raises the internal error on a type that is none, from the source that reports name prpTolerance.
    static void RequireType(LONG type);
};
