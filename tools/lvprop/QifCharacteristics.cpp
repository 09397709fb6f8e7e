#include "tools/lvprop/QifCharacteristics.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

std::string TextOf(const XmlElement* element)
{
    return QifDocument::TextOf(element);
}

/// "DiameterCharacteristicDefinition" gives "Diameter".
std::string_view KindNameOf(std::string_view elementName)
{
    return elementName.substr(0, elementName.find("Characteristic"));
}

const XmlElement* ChildOf(const XmlElement* element, std::string_view name)
{
    return element ? element->Child(name) : nullptr;
}

/// Version 3.0 and 2.x keep the designator under different names; it stands with the item or with the nominal.
std::string DesignatorOf(const QifAspect& aspect)
{
    for (const XmlElement* element : {aspect.item, aspect.nominal}) {
        if (!element)
            continue;
        for (const std::string_view holder : {"CharacteristicDesignator", "KeyCharacteristic"})
            if (const XmlElement* designator = element->At({holder, "Designator"}))
                return TextOf(designator);
    }
    return {};
}

std::string NameOf(const QifAspect& aspect)
{
    for (const XmlElement* element : {aspect.item, aspect.nominal})
        if (const XmlElement* name = ChildOf(element, "Name"))
            return TextOf(name);
    return {};
}

/// The ids of the features, joined: equal keys mean the same features.
std::string FeatureKeyOf(const QifAspect& aspect)
{
    const XmlElement* ids = ChildOf(aspect.item, "FeatureItemIds");
    if (!ids)
        ids = ChildOf(aspect.nominal, "FeatureNominalIds");
    std::string key;
    if (ids)
        for (const XmlElement* id : ids->Children("Id"))
            key += TextOf(id) + " ";
    return key;
}

/// 0, 1 or 2 for a coordinate along X, Y or Z; 3 for any other.
size_t AxisOf(const QifAspect& aspect)
{
    constexpr std::array<std::string_view, 3> kAxes = {"XAXIS", "YAXIS", "ZAXIS"};
    const std::string direction = TextOf(ChildOf(aspect.nominal, "Direction"));
    return static_cast<size_t>(std::ranges::find(kAxes, direction) - kAxes.begin());
}

EprpGDTMatMod ModifierOf(const std::string& word)
{
    return word == "MAXIMUM"      ? E_GDT_MAT_MOD_MMC
           : word == "LEAST"      ? E_GDT_MAT_MOD_LMC
           : word == "REGARDLESS" ? E_GDT_MAT_MOD_RFS
                                  : E_GDT_MAT_MOD_NONE;
}

/// Each definition's place in the order of its frame; the record has three.
size_t PrecedenceOf(const std::string& word)
{
    constexpr std::array<std::string_view, 3> kOrder = {"PRIMARY", "SECONDARY", "TERTIARY"};
    return static_cast<size_t>(std::ranges::find(kOrder, word) - kOrder.begin());
}

std::string TitleOf(const QifRequirement& requirement)
{
    const QifAspect& aspect = requirement.aspects.front();
    std::string title = requirement.aspects.size() == 3 ? "Coordinates" : std::string(requirement.kind.name);
    std::string label = DesignatorOf(aspect);
    if (label.empty())
        label = NameOf(aspect);
    if (label.empty())
        label = "#" + QifDocument::IdOf(*aspect.definition);
    return title + " " + label;
}

} // namespace

QifCharacteristics::QifCharacteristics(const QifDocument& document, const QifOptions& options, QifReport& report)
    : m_document(document), m_options(options), m_report(report)
{
    if (const XmlElement* characteristics = document.Root().Child("Characteristics"))
        JoinAspects(*characteristics);
    JoinCoordinates();
    for (QifRequirement& requirement : m_requirements) {
        requirement.title = TitleOf(requirement);
        if (requirement.kind.family != QifFamily::None)
            requirement.tolerance = ToleranceOf(requirement);
    }
}

void QifCharacteristics::CountDefinition(const QifKind& kind)
{
    for (QifKindCount& entry : m_report.definitions)
        if (entry.kind == kind.name) {
            ++entry.count;
            return;
        }
    m_report.definitions.push_back({std::string(kind.name), kind.family, 1});
}

void QifCharacteristics::JoinAspects(const XmlElement& characteristics)
{
    std::multimap<std::string, const XmlElement*> nominals;
    std::multimap<std::string, const XmlElement*> items;
    const auto collect = [&](std::string_view list, std::string_view reference, auto& into) {
        if (const XmlElement* holder = characteristics.Child(list))
            for (const XmlElement& element : holder->children)
                into.emplace(TextOf(element.Child(reference)), &element);
    };
    collect("CharacteristicNominals", "CharacteristicDefinitionId", nominals);
    collect("CharacteristicItems", "CharacteristicNominalId", items);
    const auto all = [](const auto& map, const XmlElement* of) {
        std::vector<const XmlElement*> found;
        if (of)
            for (auto [at, end] = map.equal_range(QifDocument::IdOf(*of)); at != end; ++at)
                found.push_back(at->second);
        if (found.empty())
            found.push_back(nullptr);
        return found;
    };

    const XmlElement* definitions = characteristics.Child("CharacteristicDefinitions");
    if (!definitions)
        return;
    for (const XmlElement& definition : definitions->children) {
        const QifKind kind = QifKindOf(KindNameOf(definition.name));
        CountDefinition(kind);
        for (const XmlElement* nominal : all(nominals, &definition))
            for (const XmlElement* item : all(items, nominal)) {
                m_requirements.push_back({kind, {{&definition, nominal, item}}, {}, {}});
                // Of a kind without a counterpart the whole road stays unread, so that the report tells it.
                if (kind.family == QifFamily::None)
                    continue;
                for (const XmlElement* element : {&definition, nominal, item})
                    if (element)
                        element->read = true;
            }
    }
}

/// Three coordinates X, Y and Z of one feature, limited in the same way, are one rectangular tolerance.
void QifCharacteristics::JoinCoordinates()
{
    std::map<std::string, std::vector<size_t>> byFeature;
    for (size_t i = 0; i < m_requirements.size(); ++i)
        if (m_requirements[i].kind.name == "LinearCoordinate")
            byFeature[FeatureKeyOf(m_requirements[i].aspects.front())].push_back(i);

    std::vector<size_t> joined;
    for (const auto& [feature, members] : byFeature) {
        if (feature.empty() || members.size() != 3)
            continue;
        std::vector<QifAspect> axes(3);
        bool isAlike = true;
        for (const size_t member : members) {
            const QifAspect& aspect = m_requirements[member].aspects.front();
            const XmlElement* limits = ChildOf(aspect.definition, "Tolerance");
            const bool isOffset = limits && TextOf(limits->Child("DefinedAsLimit")) == "false";
            const size_t axis = AxisOf(aspect);
            isAlike = isAlike && isOffset && axis < 3 && !axes[axis].definition;
            if (axis < 3)
                axes[axis] = aspect;
        }
        if (!isAlike)
            continue;
        m_requirements[members.front()].aspects = std::move(axes);
        joined.insert(joined.end(), members.begin() + 1, members.end());
        m_report.altered["linear coordinates joined by threes into rectangular tolerances"] += 3;
    }
    std::ranges::sort(joined, std::greater());
    for (const size_t index : joined)
        m_requirements.erase(m_requirements.begin() + static_cast<std::ptrdiff_t>(index));
}

RoutineTolerance QifCharacteristics::ToleranceOf(const QifRequirement& requirement)
{
    RoutineTolerance tolerance;
    if (requirement.kind.family == QifFamily::Geometric) {
        tolerance.type = E_TOL_TYPE_GDT_LINEAR;
        tolerance.geometric[0] = GeometricOf(requirement.kind, *requirement.aspects.front().definition);
        if (tolerance.geometric[0].radial)
            ++m_report.carried["diametral zones"];
        return tolerance;
    }
    const bool isAngular = requirement.kind.family == QifFamily::Angular;
    tolerance.type = isAngular                         ? E_TOL_TYPE_ANGULAR
                     : requirement.aspects.size() == 3 ? E_TOL_TYPE_RECTANGULAR
                                                       : E_TOL_TYPE_LINEAR;
    bool hasLimits = false;
    for (size_t i = 0; i < requirement.aspects.size(); ++i)
        tolerance.linear[i] = LinearOf(requirement.aspects[i], isAngular, hasLimits);
    tolerance.markAsNone = !hasLimits;
    return tolerance;
}

RoutineLinearTolerance QifCharacteristics::LinearOf(const QifAspect& aspect, bool isAngular, bool& hasLimits)
{
    const auto read = [&](const XmlElement* element) {
        return isAngular ? m_document.Angle(element) : m_document.Length(element, QifLengthRole::Requirement);
    };
    RoutineLinearTolerance part;
    const auto nominal = read(ChildOf(aspect.nominal, "TargetValue"));
    part.nominal = nominal.value_or(0);
    if (!nominal)
        ++m_report.altered["dimensions without a nominal value (nominal 0)"];

    const XmlElement* limits = aspect.definition->Child("Tolerance");
    if (const XmlElement* shared = ChildOf(limits, "DefinitionId"))
        limits = m_document.Follow(*shared, "");
    const XmlElement* upper = ChildOf(limits, "MaxValue");
    const XmlElement* lower = ChildOf(limits, "MinValue");
    hasLimits = hasLimits || upper || lower;
    if (!upper && !lower) {
        ++m_report.altered["dimensions without limits (marked as none)"];
        ChildOf(aspect.definition, "NonTolerance");
        return part;
    }
    if (!upper || !lower)
        ++m_report.altered["limits with one side only (the other side 0)"];
    part.upper = read(upper).value_or(0);
    part.lower = read(lower).value_or(0);
    part.absolute = TextOf(ChildOf(limits, "DefinedAsLimit")) == "true";
    if (part.absolute)
        ++m_report.carried["limits as absolute values"];
    return part;
}

RoutineGeometricTolerance QifCharacteristics::GeometricOf(const QifKind& kind, const XmlElement& frame)
{
    RoutineGeometricTolerance part;
    part.kind = kind.geometric;
    const auto value = m_document.Length(frame.Child("ToleranceValue"), QifLengthRole::Requirement);
    part.value = value.value_or(0);
    if (!value)
        ++m_report.altered["geometric tolerances without a value (value 0)"];
    if (part.value < 0)
        ++m_report.altered["geometric tolerances with a negative value (as given)"];

    const std::string condition = TextOf(frame.Child("MaterialCondition"));
    part.modifier = ModifierOf(condition);
    if (part.modifier != E_GDT_MAT_MOD_NONE)
        ++m_report.carried["material conditions " + condition];
    else if (!condition.empty() && condition != "NONE")
        ++m_report.left["material condition " + condition];

    if (const XmlElement* shape = frame.Child("ZoneShape"))
        for (const XmlElement* zone : shape->AllChildren()) {
            zone->MarkAll();
            part.radial = part.radial || zone->name == "DiametricalZone" || zone->name == "SphericalZone";
            if (zone->name == "SphericalZone")
                ++m_report.altered["spherical zones (as radial)"];
        }
    ReadDatums(frame, part);
    return part;
}

void QifCharacteristics::ReadDatums(const XmlElement& frame, RoutineGeometricTolerance& tolerance)
{
    const XmlElement* reference = frame.Child("DatumReferenceFrameId");
    const XmlElement* datumFrame = reference ? m_document.Follow(*reference, "DatumReferenceFrame") : nullptr;
    if (!datumFrame)
        return;
    // Version 2.0 has the datums in the frame itself.
    const XmlElement* holder = datumFrame->Child("Datums");
    for (const XmlElement* datum : (holder ? holder : datumFrame)->Children("Datum")) {
        const std::string precedence = TextOf(datum->At({"Precedence", "PrecedenceEnum"}));
        const size_t place = PrecedenceOf(precedence);
        const std::string name = DatumNameOf(*datum);
        if (place >= tolerance.datums.size()) {
            ++m_report.left["datum of precedence " + precedence];
            continue;
        }
        tolerance.datums[place] = name;
        tolerance.datumActive[place] = !name.empty();
    }
}

/// A common datum is named by its letters with hyphens between.
std::string QifCharacteristics::DatumNameOf(const XmlElement& datum)
{
    if (const XmlElement* compound = datum.Child("CompoundDatum")) {
        std::string name;
        for (const XmlElement* member : compound->Children("Datum"))
            name += (name.empty() ? "" : "-") + DatumNameOf(*member);
        return name;
    }
    const XmlElement* simple = datum.Child("SimpleDatum");
    const XmlElement* reference = ChildOf(simple, "DatumDefinitionId");
    const XmlElement* definition = reference ? m_document.Follow(*reference, "DatumDefinition") : nullptr;
    std::string name = TextOf(ChildOf(definition, "DatumLabel"));
    const std::string modifier = TextOf(ChildOf(simple, "MaterialModifier"));
    if (modifier.empty() || modifier == "NONE")
        return name;
    if (m_options.modifiersInDatumNames && (modifier == "MAXIMUM" || modifier == "LEAST")) {
        ++m_report.altered["material modifiers on datums (in the datum's name)"];
        return name + (modifier == "MAXIMUM" ? "(M)" : "(L)");
    }
    ++m_report.left["material modifier " + modifier + " on a datum of a feature control frame"];
    return name;
}

/// The further lines of a composite frame.
std::vector<const XmlElement*> QifCharacteristics::SegmentsOf(const XmlElement& definition)
{
    std::vector<const XmlElement*> segments;
    for (const XmlElement& child : definition.children)
        if (child.name.find("CompositeSegment") != std::string::npos) {
            child.read = true;
            segments.push_back(&child);
            ++m_report.carried["further lines of composite frames"];
        }
    return segments;
}

std::string QifCharacteristics::FeatureNamesOf(const QifAspect& aspect) const
{
    std::string names;
    const auto append = [&](const XmlElement* list, std::string_view kind, std::string_view nameKey) {
        for (const XmlElement* feature : m_document.FollowAll(list, kind)) {
            std::string name = TextOf(feature->Child(nameKey));
            if (name.empty())
                name = "#" + QifDocument::IdOf(*feature);
            names += (names.empty() ? "" : ", ") + name;
        }
    };
    append(ChildOf(aspect.item, "FeatureItemIds"), "FeatureItem", "FeatureName");
    if (names.empty())
        append(ChildOf(aspect.nominal, "FeatureNominalIds"), "FeatureNominal", "Name");
    return names;
}

void QifCharacteristics::AddTo(QifTree& tree, LONG heading)
{
    for (const QifRequirement& requirement : m_requirements)
        if (requirement.kind.family != QifFamily::None)
            AddRequirement(tree, heading, requirement);
}

void QifCharacteristics::AddRequirement(QifTree& tree, LONG heading, const QifRequirement& requirement)
{
    const QifAspect& aspect = requirement.aspects.front();
    tree.OpenBlock(heading, requirement.title);
    tree.AddTolerance("Tolerance", requirement.tolerance);
    constexpr std::array<const char*, 3> kAxes = {" X", " Y", " Z"};
    for (size_t i = 0; i < requirement.aspects.size(); ++i) {
        const std::string axis = requirement.aspects.size() == 3 ? kAxes[i] : "";
        if (ChildOf(requirement.aspects[i].nominal, "TargetValue"))
            tree.AddNumber(requirement.kind.family == QifFamily::Angular ? E_PROP_DT_ANGLE : E_PROP_DT_LINEAR,
                           "Nominal" + axis, requirement.tolerance.linear[i].nominal);
        if (const std::string designator = DesignatorOf(requirement.aspects[i]); !designator.empty())
            tree.AddText("Designator" + axis, designator);
        if (const std::string name = NameOf(requirement.aspects[i]); !name.empty())
            tree.AddText("Name" + axis, name);
    }
    // One producer writes -1 for an angle that it does not know.
    if (const auto angle = m_document.Angle(ChildOf(aspect.nominal, "Angle"))) {
        if (*angle >= 0)
            tree.AddNumber(E_PROP_DT_ANGLE, "Nominal", *angle);
        else
            ++m_report.left["nominal angle -1 of an angularity, which stands for unknown"];
    }
    if (const std::string features = FeatureNamesOf(aspect); !features.empty())
        tree.AddText("Features", features);

    constexpr std::array<const char*, 3> kLines = {"Second line", "Third line", "Fourth line"};
    size_t line = 0;
    for (const XmlElement* segment : SegmentsOf(*aspect.definition)) {
        RoutineTolerance tolerance;
        tolerance.type = E_TOL_TYPE_GDT_LINEAR;
        tolerance.geometric[0] = GeometricOf(requirement.kind, *segment);
        tree.AddTolerance(kLines[std::min(line++, kLines.size() - 1)], tolerance);
    }
    ++m_report.carried["requirements"];
}
