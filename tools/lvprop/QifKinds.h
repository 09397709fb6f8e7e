// The kinds of characteristics of a QIF document and what each becomes in a tolerance record.
#pragma once

#include "LV_prpPropCollection.h"

#include <algorithm>
#include <string_view>

enum class QifFamily { Geometric, Linear, Angular, None };

struct QifKind {
    std::string_view name; ///< element name without "CharacteristicDefinition" and the like
    QifFamily family = QifFamily::None;
    EprpGDTType geometric = E_GDT_TYPE_NONE;
};

/// A kind that is not listed has no counterpart among the tolerance records.
inline constexpr QifKind kQifKinds[] = {
    {"Position", QifFamily::Geometric, E_GDT_TYPE_TRUE_POSITION},
    {"Concentricity", QifFamily::Geometric, E_GDT_TYPE_CONCENTRICITY},
    {"Coaxiality", QifFamily::Geometric, E_GDT_TYPE_CONCENTRICITY},
    {"LineProfile", QifFamily::Geometric, E_GDT_TYPE_LINE_PROFILE},
    {"SurfaceProfile", QifFamily::Geometric, E_GDT_TYPE_SURFACE_PROFILE},
    {"Angularity", QifFamily::Geometric, E_GDT_TYPE_ANGULARITY},
    {"Perpendicularity", QifFamily::Geometric, E_GDT_TYPE_PERPENDICULARITY},
    {"Parallelism", QifFamily::Geometric, E_GDT_TYPE_PARALLELISM},
    {"CircularRunout", QifFamily::Geometric, E_GDT_TYPE_RUNOUT},
    {"TotalRunout", QifFamily::Geometric, E_GDT_TYPE_TOTAL_RUNOUT},
    {"Flatness", QifFamily::Geometric, E_GDT_TYPE_FLATNESS},
    {"Straightness", QifFamily::Geometric, E_GDT_TYPE_STRAIGHTNESS},
    {"Circularity", QifFamily::Geometric, E_GDT_TYPE_CIRCULARITY},
    {"Cylindricity", QifFamily::Geometric, E_GDT_TYPE_CYLINDRICITY},
    {"Diameter", QifFamily::Linear},
    {"Radius", QifFamily::Linear},
    {"SphericalDiameter", QifFamily::Linear},
    {"SphericalRadius", QifFamily::Linear},
    {"Length", QifFamily::Linear},
    {"Width", QifFamily::Linear},
    {"Height", QifFamily::Linear},
    {"Depth", QifFamily::Linear},
    {"Thickness", QifFamily::Linear},
    {"Chord", QifFamily::Linear},
    {"Square", QifFamily::Linear},
    {"CurveLength", QifFamily::Linear},
    {"DistanceBetween", QifFamily::Linear},
    {"DistanceFrom", QifFamily::Linear},
    {"LinearCoordinate", QifFamily::Linear},
    {"UserDefinedLinear", QifFamily::Linear},
    {"Angle", QifFamily::Angular},
    {"AngleBetween", QifFamily::Angular},
    {"AngleFrom", QifFamily::Angular},
    {"AngularCoordinate", QifFamily::Angular},
    {"UserDefinedAngular", QifFamily::Angular},
};

/// @param name  of the kind alone. The result keeps a view of it when the kind is not listed.
constexpr QifKind QifKindOf(std::string_view name)
{
    for (const QifKind& kind : kQifKinds)
        if (kind.name == name)
            return kind;
    return {name};
}

constexpr std::string_view QifFamilyName(QifFamily family)
{
    switch (family) {
    case QifFamily::Geometric: return "geometric";
    case QifFamily::Linear: return "linear";
    case QifFamily::Angular: return "angular";
    default: return "none";
    }
}
