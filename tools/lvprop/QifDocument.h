// A QIF document, versions 2.x and 3.0: its elements by id, its units, and its values as numbers of the routine.
// The two versions differ in some element names; the importers ask for both.
#pragma once

#include "tools/lvprop/QifReport.h"
#include "tools/lvprop/Routine.h"
#include "tools/lvprop/XmlDocument.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// Which of the document's linear units a value without a unit of its own is in.
enum class QifLengthRole { Geometry, Requirement };

class QifDocument {
public:
    /// @param name  how messages call the document: a file name.
    /// @param assumedUnit  unit name for a document that names no linear unit; empty refuses such a document.
    QifDocument(std::string name, std::string_view bytes, const std::string& assumedUnit, QifReport& report);

    const XmlElement& Root() const { return m_root; }
    EprpUnitMode UnitMode() const { return m_unitMode; }

    /// The element with that id, null if there is none; marked as read.
    const XmlElement* Find(const std::string& id) const;

    /// The element that a reference names. A reference to nothing, or to an element whose name does not end in
    /// `kind`, is a fault.
    const XmlElement* Follow(const XmlElement& reference, std::string_view kind) const;

    /// The referenced elements of a list such as FeatureNominalIds.
    std::vector<const XmlElement*> FollowAll(const XmlElement* list, std::string_view kind) const;

    /// A length in the routine's unit. Nothing for a missing element; text that is no number is a fault.
    std::optional<double> Length(const XmlElement* element, QifLengthRole role) const;

    /// An angle in degrees.
    std::optional<double> Angle(const XmlElement* element) const;

    /// Three coordinates in the routine's unit, or three parts of a direction.
    std::optional<RoutinePoint> Position(const XmlElement* element) const;
    std::optional<RoutinePoint> Direction(const XmlElement* element) const;

    /// A flat list of triples in the routine's unit.
    RoutinePath Points(const XmlElement& element) const;

    /// Trimmed text of an element; empty for a missing one.
    static std::string TextOf(const XmlElement* element);

    /// The id of an element; empty for one without.
    static std::string IdOf(const XmlElement& element);

    void Fault(const XmlElement& element, const std::string& reason) const;

private:
    void Index(const XmlElement& element);
    void ReadUnits(const std::string& assumedUnit);
    void ReadUnit(const XmlElement& unit, bool isPrimary);
    double MillimetresOf(const XmlElement& element, QifLengthRole role) const;
    std::optional<double> Number(const XmlElement& element, std::string_view text) const;
    std::vector<double> Numbers(const XmlElement& element) const;
    std::optional<RoutinePoint> Triple(const XmlElement* element, double scale) const;
    double Convert(double value, double millimetres) const;

    std::string m_name;
    QifReport& m_report;
    XmlElement m_root;
    std::unordered_map<std::string, const XmlElement*> m_byId;
    std::unordered_map<std::string, double> m_millimetres; ///< by unit name
    std::unordered_map<std::string, double> m_degrees;     ///< by unit name
    std::optional<double> m_geometryUnit;                  ///< in millimetres
    std::optional<double> m_requirementUnit;               ///< in millimetres
    double m_angleUnit = 0;                                ///< in degrees
    EprpUnitMode m_unitMode = E_METRIC;
    double m_routineUnit = 1; ///< in millimetres
};
