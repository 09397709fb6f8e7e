#include "tools/lvprop/QifDocument.h"

#include "tools/lvprop/ToolError.h"

#include <charconv>
#include <cmath>
#include <numbers>

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kDegreesPerRadian = 180 / std::numbers::pi;
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trim(std::string_view text)
{
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the next word off the text; empty at its end.
std::string_view NextWord(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(word.size());
    return word;
}

/// Written without regard to the locale. Infinities and not-a-number are no values of a property.
std::optional<double> ParseNumber(std::string_view word)
{
    if (word.starts_with('+'))
        word.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

/// A factor of a unit counts as 1 when it differs from it by less than this part of it.
bool IsAbout(double value, double expected)
{
    constexpr double kFactorTolerance = 1e-9;
    return std::fabs(value - expected) <= kFactorTolerance * expected;
}

/// A degree is often given with a dozen digits only; the exact one is meant.
double DegreesOf(double radians)
{
    const double degrees = radians * kDegreesPerRadian;
    return IsAbout(degrees, 1) ? 1 : degrees;
}

} // namespace

QifDocument::QifDocument(std::string name, std::string_view bytes, const std::string& assumedUnit, QifReport& report)
    : m_name(std::move(name)), m_report(report), m_root(ParseXmlDocument(m_name, bytes))
{
    m_root.read = true;
    const std::string* version = m_root.Attribute("versionQIF");
    if (m_root.name != "QIFDocument" || !version)
        RefuseInput(m_name + ": this is no QIF document: its root is not a QIFDocument with a versionQIF");
    if (!version->starts_with("2.") && !version->starts_with("3.0"))
        RefuseInput(m_name + ": QIF version " + *version + " is not known; versions 2.x and 3.0 are");
    m_report.version = *version;
    for (const XmlAttribute& attribute : m_root.attributes)
        attribute.read = attribute.read || attribute.name == "idMax" || attribute.name == "schemaLocation";
    Index(m_root);
    ReadUnits(assumedUnit);
}

void QifDocument::Index(const XmlElement& element)
{
    for (const XmlAttribute& attribute : element.attributes)
        if (attribute.name == "id")
            m_byId.emplace(attribute.value, &element);
    for (const XmlElement& child : element.children)
        Index(child);
}

void QifDocument::ReadUnit(const XmlElement& unit, bool isPrimary)
{
    const std::string name = TextOf(unit.Child("UnitName"));
    const XmlElement* factorElement = unit.At({"UnitConversion", "Factor"});
    const double factor = factorElement ? Number(*factorElement, factorElement->text).value_or(1) : 1;
    const bool isLinear = unit.name == "LinearUnit" || unit.name == "PMILinearUnit";
    const bool isAngular = unit.name == "AngularUnit" || unit.name == "PMIAngularUnit";
    if (!isLinear && !isAngular) {
        unit.read = false;
        return;
    }
    unit.MarkAll();
    if (isLinear)
        m_millimetres.emplace(name, factor * 1000);
    else
        m_degrees.emplace(name, DegreesOf(factor));
    if (!isPrimary)
        return;
    if (unit.name == "LinearUnit") {
        m_geometryUnit = factor * 1000;
        m_report.unit = name;
    } else if (unit.name == "PMILinearUnit") {
        m_requirementUnit = factor * 1000;
    } else {
        m_angleUnit = DegreesOf(factor);
    }
}

void QifDocument::ReadUnits(const std::string& assumedUnit)
{
    m_angleUnit = kDegreesPerRadian;
    if (const XmlElement* primary = m_root.At({"FileUnits", "PrimaryUnits"}))
        for (const XmlElement& unit : primary->children)
            ReadUnit(unit, true);
    if (const XmlElement* others = m_root.At({"FileUnits", "OtherUnits"}))
        for (const XmlElement& unit : others->children)
            ReadUnit(unit, false);

    if (!m_geometryUnit)
        m_geometryUnit = m_requirementUnit;
    if (!m_geometryUnit) {
        if (assumedUnit.empty())
            RefuseInput(m_name + ": the document names no linear unit; say --unit mm or --unit inch");
        m_geometryUnit = assumedUnit == "inch" ? kMillimetresPerInch : 1;
        m_report.unit = assumedUnit + " (as told, the document names none)";
    }
    if (!m_requirementUnit)
        m_requirementUnit = m_geometryUnit;

    const bool isInch = IsAbout(*m_geometryUnit, kMillimetresPerInch);
    m_unitMode = isInch ? E_IMPERIAL : E_METRIC;
    m_routineUnit = isInch ? kMillimetresPerInch : 1;
    if (!isInch && !IsAbout(*m_geometryUnit, 1))
        m_report.unit += ", converted to mm";
}

const XmlElement* QifDocument::Find(const std::string& id) const
{
    const auto found = m_byId.find(id);
    if (found == m_byId.end())
        return nullptr;
    found->second->read = true;
    return found->second;
}

const XmlElement* QifDocument::Follow(const XmlElement& reference, std::string_view kind) const
{
    reference.read = true;
    const std::string id = TextOf(&reference);
    const auto found = m_byId.find(id);
    if (found == m_byId.end()) {
        Fault(reference, "no element has the id " + id);
        return nullptr;
    }
    if (!found->second->name.ends_with(kind)) {
        Fault(reference, "id " + id + " is a " + found->second->name + ", not a " + std::string(kind));
        return nullptr;
    }
    return found->second;
}

std::vector<const XmlElement*> QifDocument::FollowAll(const XmlElement* list, std::string_view kind) const
{
    std::vector<const XmlElement*> found;
    if (list)
        for (const XmlElement* reference : list->Children("Id"))
            if (const XmlElement* element = Follow(*reference, kind))
                found.push_back(element);
    return found;
}

std::optional<double> QifDocument::Number(const XmlElement& element, std::string_view text) const
{
    const std::string_view word = Trim(text);
    const auto number = ParseNumber(word);
    if (!number)
        Fault(element, "\"" + std::string(word) + "\" is no number");
    return number;
}

std::vector<double> QifDocument::Numbers(const XmlElement& element) const
{
    std::vector<double> numbers;
    std::string_view rest = element.text;
    for (std::string_view word = NextWord(rest); !word.empty(); word = NextWord(rest)) {
        const auto number = ParseNumber(word);
        if (!number) {
            Fault(element, "\"" + std::string(word) + "\" is no number");
            return {};
        }
        numbers.push_back(*number);
    }
    return numbers;
}

double QifDocument::MillimetresOf(const XmlElement& element, QifLengthRole role) const
{
    const double usual = role == QifLengthRole::Requirement ? *m_requirementUnit : *m_geometryUnit;
    const std::string* name = element.Attribute("linearUnit");
    if (!name)
        return usual;
    const auto found = m_millimetres.find(*name);
    if (found != m_millimetres.end())
        return found->second;
    Fault(element, "the unit \"" + *name + "\" is not among the document's units");
    return usual;
}

/// An equal unit leaves the number as it stands, to the last bit.
double QifDocument::Convert(double value, double millimetres) const
{
    return IsAbout(millimetres, m_routineUnit) ? value : value * millimetres / m_routineUnit;
}

std::optional<double> QifDocument::Length(const XmlElement* element, QifLengthRole role) const
{
    if (!element)
        return std::nullopt;
    const double unit = MillimetresOf(*element, role);
    const auto number = Number(*element, element->text);
    return number ? std::optional(Convert(*number, unit)) : std::nullopt;
}

std::optional<double> QifDocument::Angle(const XmlElement* element) const
{
    if (!element)
        return std::nullopt;
    double unit = m_angleUnit;
    if (const std::string* name = element->Attribute("angularUnit")) {
        if (const auto found = m_degrees.find(*name); found != m_degrees.end())
            unit = found->second;
        else
            Fault(*element, "the unit \"" + *name + "\" is not among the document's units");
    }
    const auto number = Number(*element, element->text);
    return number ? std::optional(*number * unit) : std::nullopt;
}

std::optional<RoutinePoint> QifDocument::Triple(const XmlElement* element, double millimetres) const
{
    if (!element)
        return std::nullopt;
    const std::vector<double> numbers = Numbers(*element);
    if (numbers.size() != 3) {
        Fault(*element, "expected three numbers");
        return std::nullopt;
    }
    return RoutinePoint{Convert(numbers[0], millimetres), Convert(numbers[1], millimetres),
                        Convert(numbers[2], millimetres)};
}

std::optional<RoutinePoint> QifDocument::Position(const XmlElement* element) const
{
    return Triple(element, element ? MillimetresOf(*element, QifLengthRole::Geometry) : 1);
}

std::optional<RoutinePoint> QifDocument::Direction(const XmlElement* element) const
{
    return Triple(element, m_routineUnit);
}

RoutinePath QifDocument::Points(const XmlElement& element) const
{
    element.read = true;
    const std::vector<double> numbers = Numbers(element);
    if (numbers.size() % 3 != 0)
        Fault(element, std::to_string(numbers.size()) + " numbers are no list of triples");
    const double unit = MillimetresOf(element, QifLengthRole::Geometry);
    RoutinePath path;
    for (size_t i = 0; i + 2 < numbers.size(); i += 3)
        path.push_back({Convert(numbers[i], unit), Convert(numbers[i + 1], unit), Convert(numbers[i + 2], unit)});
    return path;
}

std::string QifDocument::TextOf(const XmlElement* element)
{
    return element ? std::string(Trim(element->text)) : std::string();
}

std::string QifDocument::IdOf(const XmlElement& element)
{
    const std::string* id = element.Attribute("id");
    return id ? *id : std::string();
}

void QifDocument::Fault(const XmlElement& element, const std::string& reason) const
{
    m_report.faults.push_back(m_name + ":" + std::to_string(element.line) + ": " + element.name + ": " + reason);
}
