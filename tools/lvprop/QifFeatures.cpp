#include "tools/lvprop/QifFeatures.h"

namespace {

enum class Quantity { Position, Direction, Length };

/// Where features keep their geometry; most kinds have two or three of these.
struct GeometryPath {
    std::string_view holder; ///< empty: in the feature itself
    std::string_view element;
    Quantity quantity;
    const char* propertyName;
};

constexpr GeometryPath kGeometryPaths[] = {
    {"", "Location", Quantity::Position, "Position"},
    {"Axis", "AxisPoint", Quantity::Position, "Position"},
    {"CenterPlane", "Point", Quantity::Position, "Position"},
    {"CenterLine", "StartPoint", Quantity::Position, "Position"},
    {"", "Normal", Quantity::Direction, "Normal"},
    {"", "AdjacentNormal", Quantity::Direction, "Adjacent normal"},
    {"", "Direction", Quantity::Direction, "Direction"},
    {"", "AxisVector", Quantity::Direction, "Axis"},
    {"Axis", "Direction", Quantity::Direction, "Axis"},
    {"CenterPlane", "Normal", Quantity::Direction, "Normal"},
    {"CenterLine", "Vector", Quantity::Direction, "Direction"},
    {"", "LengthVector", Quantity::Direction, "Length direction"},
    {"", "DepthVector", Quantity::Direction, "Depth direction"},
    {"", "Diameter", Quantity::Length, "Diameter"},
    {"", "Length", Quantity::Length, "Length"},
    {"", "Width", Quantity::Length, "Width"},
};

void AddQuantity(QifTree& tree, const QifDocument& document, const GeometryPath& path, const XmlElement& element,
                 QifReport& report)
{
    switch (path.quantity) {
    case Quantity::Position:
        if (const auto position = document.Position(&element)) {
            tree.AddPosition(path.propertyName, *position);
            ++report.carried["positions"];
        }
        break;
    case Quantity::Direction:
        if (const auto direction = document.Direction(&element)) {
            tree.AddDirection(path.propertyName, *direction);
            ++report.carried["directions"];
        }
        break;
    case Quantity::Length:
        if (const auto length = document.Length(&element, QifLengthRole::Geometry)) {
            tree.AddNumber(E_PROP_DT_LINEAR, path.propertyName, *length);
            ++report.carried["sizes of features"];
        }
        break;
    }
}

void AddBoundary(QifTree& tree, const QifDocument& document, const XmlElement& feature, QifReport& report)
{
    for (const XmlElement* line : feature.Children("PolyLine")) {
        RoutinePath path = document.Points(*line);
        if (const std::string* count = line->Attribute("count"); count && *count != std::to_string(path.size()))
            document.Fault(*line, "holds " + std::to_string(path.size()) + " points, its count says " + *count);
        ++report.carried["boundary lines"];
        report.carried["points of boundary lines"] += path.size();
        tree.AddPath("Boundary", std::move(path));
    }
}

} // namespace

std::string FeatureKindOf(const XmlElement& feature)
{
    return feature.name.substr(0, feature.name.find("Feature"));
}

void AddFeatureGeometry(QifTree& tree, const QifDocument& document, const XmlElement& feature, QifReport& report)
{
    for (const GeometryPath& path : kGeometryPaths) {
        const XmlElement* holder = path.holder.empty() ? &feature : feature.Child(path.holder);
        const XmlElement* element = holder ? holder->Child(path.element) : nullptr;
        if (element)
            AddQuantity(tree, document, path, *element, report);
    }
}

void AddNominalFeatures(QifTree& tree, LONG heading, const QifDocument& document, QifReport& report)
{
    const XmlElement* nominals = document.Root().At({"Features", "FeatureNominals"});
    if (!nominals)
        return;
    for (const XmlElement* feature : nominals->AllChildren()) {
        ++report.carried["nominal features"];
        std::string name = QifDocument::TextOf(feature->Child("Name"));
        if (name.empty())
            name = FeatureKindOf(*feature) + " #" + QifDocument::IdOf(*feature);
        tree.OpenBlock(heading, name);
        tree.AddText("Kind", FeatureKindOf(*feature));
        AddFeatureGeometry(tree, document, *feature, report);
        AddBoundary(tree, document, *feature, report);
        const XmlElement* reference = feature->Child("FeatureDefinitionId");
        // A definition holds the sizes and may serve several nominals.
        if (const XmlElement* definition = reference ? document.Follow(*reference, "FeatureDefinition") : nullptr) {
            definition->read = true;
            AddFeatureGeometry(tree, document, *definition, report);
        }
    }
}
