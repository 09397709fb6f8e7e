#include "tools/lvprop/QifResults.h"

#include "tools/lvprop/QifFeatures.h"

#include <map>
#include <set>

namespace {

std::string TextOf(const XmlElement* element)
{
    return QifDocument::TextOf(element);
}

/// Where a measured characteristic belongs: its requirement, and the axis of a rectangular one.
struct Place {
    const QifRequirement* requirement = nullptr;
    size_t axis = 0;
};

std::map<std::string, Place> PlacesByItem(const QifCharacteristics& characteristics)
{
    std::map<std::string, Place> places;
    for (const QifRequirement& requirement : characteristics.Requirements())
        for (size_t axis = 0; axis < requirement.aspects.size(); ++axis)
            if (const XmlElement* item = requirement.aspects[axis].item)
                places[QifDocument::IdOf(*item)] = {&requirement, axis};
    return places;
}

/// One run of results for all parts. The names differ between the versions: Measurement in 3.0, Actual in 2.x.
class Results {
public:
    Results(QifTree& tree, const QifDocument& document, const QifCharacteristics& characteristics, QifReport& report)
        : m_tree(tree), m_document(document), m_report(report), m_places(PlacesByItem(characteristics))
    {
    }

    void AddPart(LONG heading, const XmlElement& results, size_t number);
    void TellUnusedPointSets(const XmlElement& root) const;

private:
    /// A tolerance that fills up as the measurements of its axes arrive.
    struct Outcome {
        std::string title;
        RoutineTolerance tolerance;
    };

    std::string PartNameOf(const XmlElement& results, size_t number) const;
    std::string TitleOf(const QifRequirement& requirement, const XmlElement& measurement, size_t repeat) const;
    std::string FeatureNameOf(const XmlElement& feature) const;
    void AddCharacteristics(LONG part, const XmlElement& results);
    void PutMeasured(Outcome& outcome, const Place& place, const XmlElement& measurement);
    void AddFeatures(LONG part, const XmlElement& results);
    void AddPointSets(LONG part, const XmlElement& results);
    void AddPointsOfFeature(const XmlElement& feature);
    std::string PointReference(const XmlElement& reference);
    void AddProbe(const XmlElement& element);

    QifTree& m_tree;
    const QifDocument& m_document;
    QifReport& m_report;
    std::map<std::string, Place> m_places;
    std::set<std::string> m_usedPointSets;
};

std::string Results::PartNameOf(const XmlElement& results, size_t number) const
{
    std::string name = "Part " + std::to_string(number);
    for (const XmlElement* component : m_document.FollowAll(results.Child("ActualComponentIds"), "ActualComponent")) {
        component->read = true;
        if (const std::string serial = TextOf(component->Child("SerialNumber")); !serial.empty())
            name += " " + serial;
    }
    return name;
}

void Results::AddPart(LONG heading, const XmlElement& results, size_t number)
{
    ++m_report.carried["measured parts"];
    results.read = true;
    const LONG part = m_tree.OpenBlock(heading, PartNameOf(results, number));
    if (const XmlElement* status = results.At({"InspectionStatus", "InspectionStatusEnum"}))
        m_tree.AddText("Inspection status", TextOf(status));
    AddCharacteristics(part, results);
    AddFeatures(part, results);
    AddPointSets(part, results);
}

void Results::PutMeasured(Outcome& outcome, const Place& place, const XmlElement& measurement)
{
    const bool isAngular = place.requirement->kind.family == QifFamily::Angular;
    const XmlElement* element = measurement.Child("Value");
    const auto value = isAngular ? m_document.Angle(element) : m_document.Length(element, QifLengthRole::Requirement);
    const std::string word = TextOf(measurement.At({"Status", "CharacteristicStatusEnum"}));
    const EprpTolStatus status = word == "PASS"   ? E_TOL_STATUS_IN_TOL
                                 : word == "FAIL" ? E_TOL_STATUS_OUT_OF_TOL
                                                  : E_TOL_STATUS_NOT_CALCULATED;
    if (value)
        ++m_report.carried["measured values"];
    ++m_report.carried["measured values with status " + word];
    const auto put = [&](auto& part) {
        part.measured = value.value_or(0);
        part.status = status;
    };
    if (outcome.tolerance.IsGeometric())
        put(outcome.tolerance.geometric[place.axis]);
    else
        put(outcome.tolerance.linear[place.axis]);
}

/// "Diameter 4: CYLINDER1"; the number of the repeat stands in for features that have no name.
std::string Results::TitleOf(const QifRequirement& requirement, const XmlElement& measurement, size_t repeat) const
{
    const XmlElement* ids = measurement.Child("FeatureMeasurementIds");
    if (!ids)
        ids = measurement.Child("FeatureActualIds");
    std::string names;
    for (const XmlElement* feature : m_document.FollowAll(ids, ""))
        if (const std::string name = FeatureNameOf(*feature); !name.empty())
            names += (names.empty() ? ": " : ", ") + name;
    if (names.empty() && repeat > 0)
        names = " #" + std::to_string(repeat + 1);
    return requirement.title + names;
}

/// Name of the feature item that a measured feature belongs to; empty if it has none.
std::string Results::FeatureNameOf(const XmlElement& feature) const
{
    const XmlElement* reference = feature.Child("FeatureItemId");
    const XmlElement* item = reference ? m_document.Follow(*reference, "FeatureItem") : nullptr;
    if (!item)
        return {};
    item->read = true;
    return TextOf(item->Child("FeatureName"));
}

/// An item that was measured several times on a part gives as many tolerances; the axes of a rectangular one meet.
void Results::AddCharacteristics(LONG part, const XmlElement& results)
{
    const XmlElement* holder = results.Child("MeasuredCharacteristics");
    const XmlElement* list = holder ? holder->Child("CharacteristicMeasurements") : nullptr;
    if (holder && !list)
        list = holder->Child("CharacteristicActuals");
    if (!list)
        return;

    std::map<std::pair<const QifRequirement*, size_t>, size_t> repeats; // by requirement and axis
    std::map<std::pair<const QifRequirement*, size_t>, size_t> index;   // by requirement and repeat
    std::vector<Outcome> outcomes;
    for (const XmlElement& measurement : list->children) {
        const auto place = m_places.find(TextOf(measurement.Child("CharacteristicItemId")));
        if (place == m_places.end()) {
            measurement.read = true;
            m_document.Fault(measurement, "belongs to no characteristic item of the document");
            continue;
        }
        const QifRequirement* requirement = place->second.requirement;
        if (requirement->kind.family == QifFamily::None)
            continue; // stays unread, so that the report tells it
        measurement.read = true;
        const size_t repeat = repeats[{requirement, place->second.axis}]++;
        const auto [at, isNew] = index.emplace(std::pair(requirement, repeat), outcomes.size());
        if (isNew)
            outcomes.push_back({TitleOf(*requirement, measurement, repeat), requirement->tolerance});
        PutMeasured(outcomes[at->second], place->second, measurement);
    }

    m_tree.OpenBlock(part, "Characteristics");
    for (const Outcome& outcome : outcomes)
        m_tree.AddTolerance(outcome.title, outcome.tolerance);
}

void Results::AddFeatures(LONG part, const XmlElement& results)
{
    const XmlElement* list = results.Child("MeasuredFeatures");
    if (const XmlElement* actuals = list ? list->Child("FeatureActuals") : nullptr)
        list = actuals;
    if (!list)
        return;
    for (const XmlElement* feature : list->AllChildren()) {
        ++m_report.carried["measured features"];
        const std::string name = FeatureNameOf(*feature);
        m_tree.OpenBlock(part, name.empty() ? FeatureKindOf(*feature) + " #" + QifDocument::IdOf(*feature) : name);
        m_tree.AddText("Kind", FeatureKindOf(*feature));
        AddFeatureGeometry(m_tree, m_document, *feature, m_report);
        AddPointsOfFeature(*feature);
    }
}

/// Version 3.0 refers to point sets; version 2.x holds the points themselves.
void Results::AddPointsOfFeature(const XmlElement& feature)
{
    const XmlElement* list = feature.Child("PointList");
    if (!list)
        return;
    RoutinePath own;
    std::string references;
    const XmlElement* probed = nullptr;
    for (const XmlElement* entry : list->AllChildren()) {
        if (entry->name == "MeasurePoint") {
            if (const auto point = m_document.Position(entry->Child("Point")))
                own.push_back(*point);
            probed = entry;
        } else if (entry->name.ends_with("PointSetId")) {
            const std::string text = PointReference(*entry);
            if (!text.empty())
                references += (references.empty() ? "" : ", ") + text;
        } else {
            entry->read = false;
        }
    }
    if (!references.empty())
        m_tree.AddText("Probed points", references);
    if (probed) {
        m_report.carried["probed points"] += own.size();
        ++m_report.carried["probed point sets"];
        m_tree.AddPath("Probed points", std::move(own));
        AddProbe(*probed);
    }
}

/// "29", "12 at 3 8" (from the third to the eighth point) or "256 at 1".
std::string Results::PointReference(const XmlElement& reference)
{
    const XmlElement* set = m_document.Follow(reference, "MeasuredPointSet");
    if (!set)
        return {};
    const std::string id = TextOf(&reference);
    m_usedPointSets.insert(id);
    if (const std::string* range = reference.Attribute("range"))
        return id + " at " + *range;
    if (const std::string* index = reference.Attribute("index"))
        return id + " at " + *index;
    return id;
}

void Results::AddProbe(const XmlElement& element)
{
    if (const auto radius = m_document.Length(element.Child("ProbeRadius"), QifLengthRole::Geometry))
        m_tree.AddNumber(E_PROP_DT_LINEAR, "Probe radius", *radius);
    if (const XmlElement* compensated = element.Child("Compensated")) {
        const std::string word = TextOf(compensated);
        m_tree.AddYesNo("Compensated", word == "true" || word == "1");
    }
}

void Results::AddPointSets(LONG part, const XmlElement& results)
{
    const XmlElement* list = results.Child("MeasuredPointSets");
    if (!list)
        return;
    for (const XmlElement& set : list->children) {
        const XmlElement* points = set.Child("Points");
        if (!points)
            continue; // binary points stay unread, so that the report tells them
        set.read = true;
        RoutinePath path = m_document.Points(*points);
        if (const std::string* count = set.Attribute("count"); count && *count != std::to_string(path.size()))
            m_document.Fault(set, "holds " + std::to_string(path.size()) + " points, its count says " + *count);
        ++m_report.carried["probed point sets"];
        m_report.carried["probed points"] += path.size();
        m_tree.OpenBlock(part, "Point set " + QifDocument::IdOf(set));
        m_tree.AddPath("Points", std::move(path));
        AddProbe(set);
    }
}

void Results::TellUnusedPointSets(const XmlElement& results) const
{
    if (const XmlElement* list = results.Child("MeasuredPointSets"))
        for (const XmlElement& set : list->children)
            if (const std::string* id = set.Attribute("id"); id && !m_usedPointSets.contains(*id))
                ++m_report.altered["probed point sets that no feature uses (kept)"];
}

std::vector<const XmlElement*> ResultsOf(const QifDocument& document)
{
    const XmlElement* top = document.Root().Child("Results");
    if (!top)
        top = document.Root().Child("MeasurementsResults");
    if (!top)
        return {};
    // Version 2.0 has no set around the results.
    const XmlElement* set = top->Child("MeasurementResultsSet");
    return (set ? set : top)->Children("MeasurementResults");
}

} // namespace

bool HasResults(const QifDocument& document)
{
    return !ResultsOf(document).empty();
}

void AddResults(QifTree& tree, LONG heading, const QifDocument& document, const QifCharacteristics& characteristics,
                QifReport& report)
{
    Results results(tree, document, characteristics, report);
    const auto parts = ResultsOf(document);
    for (size_t i = 0; i < parts.size(); ++i)
        results.AddPart(heading, *parts[i], i + 1);
    for (const XmlElement* part : parts)
        results.TellUnusedPointSets(*part);
}
