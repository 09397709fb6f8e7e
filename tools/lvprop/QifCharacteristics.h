// The requirements of a QIF document: definition, nominal and item of each characteristic joined, and the tolerance
// records that they become.
#pragma once

#include "tools/lvprop/QifDocument.h"
#include "tools/lvprop/QifImport.h"
#include "tools/lvprop/QifTree.h"

#include <string>
#include <vector>

/// One road from a definition over a nominal to an item; model-based documents end at the nominal.
struct QifAspect {
    const XmlElement* definition = nullptr;
    const XmlElement* nominal = nullptr;
    const XmlElement* item = nullptr;
};

/// One requirement: a single aspect, or the X, Y and Z coordinates of one feature.
struct QifRequirement {
    QifKind kind;
    std::vector<QifAspect> aspects;
    std::string title;
    RoutineTolerance tolerance;
};

class QifCharacteristics {
public:
    QifCharacteristics(const QifDocument& document, const QifOptions& options, QifReport& report);

    /// Adds one category for each requirement that has a counterpart.
    void AddTo(QifTree& tree, LONG heading);

    const std::vector<QifRequirement>& Requirements() const { return m_requirements; }

private:
    void CountDefinition(const QifKind& kind);
    void JoinAspects(const XmlElement& characteristics);
    void JoinCoordinates();
    void AddRequirement(QifTree& tree, LONG heading, const QifRequirement& requirement);
    RoutineTolerance ToleranceOf(const QifRequirement& requirement);
    RoutineLinearTolerance LinearOf(const QifAspect& aspect, bool isAngular, bool& hasLimits);
    RoutineGeometricTolerance GeometricOf(const QifKind& kind, const XmlElement& frame);
    void ReadDatums(const XmlElement& frame, RoutineGeometricTolerance& tolerance);
    std::string DatumNameOf(const XmlElement& datum);
    std::vector<const XmlElement*> SegmentsOf(const XmlElement& definition);
    std::string FeatureNamesOf(const QifAspect& aspect) const;

    const QifDocument& m_document;
    const QifOptions& m_options;
    QifReport& m_report;
    std::vector<QifRequirement> m_requirements;
};
