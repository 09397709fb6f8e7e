#include "tools/lvprop/PropertyTree.h"

#include "tools/lvprop/PropertyValues.h"

#include <map>

using lumevor::Check;
using lumevor::FromUtf8;
using lumevor::Property;
using lumevor::Ref;
using lumevor::String;
using lumevor::ToUtf8;

namespace {

template <class Interface>
Ref<Interface> MakeObject(REFCLSID clsid)
{
    Ref<Interface> object;
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.PutVoid()));
    return object;
}

Ref<IprpVisibilityInfo> RuleOf(const RoutineRule& rule)
{
    auto info = MakeObject<IprpVisibilityInfo>(__uuidof(prpVisibilityInfo));
    std::vector<LONG> controls = rule.controls;
    Check(info->AddControlProperties(controls.data(), static_cast<LONG>(controls.size())));
    for (std::vector<LONG> row : rule.rows)
        Check(info->AddCtrlPropValues(row.data(), static_cast<LONG>(row.size())));
    return info;
}

void AddEnumItems(const Property& property, const std::vector<RoutineEnumItem>& items)
{
    for (const RoutineEnumItem& item : items) {
        SprpEnumItem record{item.value, item.resource, Property::ToVariantBool(item.show)};
        Check(property->AddEnumItem(item.index, &record));
        if (!item.text.empty())
            Check(property->AddEnumItemString(item.index, String(FromUtf8(item.text)).Get()));
    }
}

void SetBounds(const Property& property, const RoutineProperty& routine)
{
    SprpBoundsInfo bounds{};
    const auto put = [&](const std::optional<RoutineBound>& bound, EprpBoundType& type, EprpBoundLogic& logic,
                         double& real, LONG& whole) {
        if (!bound)
            return;
        type = E_BOUND_CUSTOM;
        logic = bound->logic;
        if (IsIntegerType(routine.type))
            whole = static_cast<LONG>(bound->value);
        else
            real = bound->value;
    };
    put(routine.lowerBound, bounds.eLowerType, bounds.eLowerBoundLogic, bounds.dbLowerBound, bounds.nLowerBound);
    put(routine.upperBound, bounds.eUpperType, bounds.eUpperBoundLogic, bounds.dbUpperBound, bounds.nUpperBound);
    Check(property->SetPropertyBounds(&bounds));
}

void ReadBounds(const Property& property, RoutineProperty& routine)
{
    SprpBoundsInfo bounds{};
    Check(property->GetPropertyBounds(&bounds));
    const bool isWhole = IsIntegerType(routine.type);
    if (bounds.eLowerType == E_BOUND_CUSTOM)
        routine.lowerBound = {bounds.eLowerBoundLogic,
                              isWhole ? static_cast<double>(bounds.nLowerBound) : bounds.dbLowerBound};
    if (bounds.eUpperType == E_BOUND_CUSTOM)
        routine.upperBound = {bounds.eUpperBoundLogic,
                              isWhole ? static_cast<double>(bounds.nUpperBound) : bounds.dbUpperBound};
}

std::string ItemTextOf(const Property& property, LONG value)
{
    SprpEnumItem item{value, 0, VARIANT_FALSE};
    String text;
    VARIANT_BOOL success = VARIANT_FALSE;
    Check(property->GetEnumInfo(&item, text.Put(), &success));
    return ToUtf8(text.View());
}

bool Flag(const Property& property, HRESULT (STDMETHODCALLTYPE IqorProperty::*get)(VARIANT_BOOL*))
{
    VARIANT_BOOL flag = VARIANT_FALSE;
    Check((property.Get()->*get)(&flag));
    return flag != VARIANT_FALSE;
}

TreeProperty ReadProperty(const Property& source)
{
    TreeProperty read;
    RoutineProperty& property = read.property;
    property.id = source.Id();
    property.parent = source.ParentId();
    property.type = source.Type();
    property.name = ToUtf8(source.Name());
    // The shown text first: reading the value renders it as well.
    read.shown = ToUtf8(source.Value());
    property.value = GetPropertyValue(source, property.type);
    property.visible = source.IsVisible();
    property.visibleForPostProc = Flag(source, &IqorProperty::IsVisibleForPostProc);
    property.readOnly = source.IsReadOnly();
    property.alwaysSave = Flag(source, &IqorProperty::GetAlwaysSave);
    property.noUnitConvert = Flag(source, &IqorProperty::GetNoUnitConvert);
    Check(source->GetEditFlags(&property.editFlags));
    Check(source->GetLinkedProperty(&property.linked));
    ReadBounds(source, property);
    property.error = ToUtf8(source.ErrorText());
    property.warning = ToUtf8(source.WarningText());
    read.isValid = source.IsValid();
    read.isInWarning = Flag(source, &IqorProperty::IsInWarning);
    if (property.type == E_PROP_DT_ENUM)
        read.itemText = ItemTextOf(source, source.Long());
    return read;
}

void SetDetails(const Property& target, const RoutineProperty& property)
{
    if (!property.name.empty())
        target.SetName(FromUtf8(property.name));
    AddEnumItems(target, property.enumItems);
    if (property.lowerBound || property.upperBound)
        SetBounds(target, property);
    if (property.invalidCharacters)
        Check(target->SetInvalidCharacters(String(FromUtf8(*property.invalidCharacters)).Get()));
    if (property.noUnitConvert)
        Check(target->SetNoUnitConvert(VARIANT_TRUE));
}

/// Value first: a new value text clears the error.
void SetOutcome(const Property& target, const RoutineProperty& property)
{
    SetPropertyValue(target, property);
    if (!property.error.empty())
        target.SetErrorText(FromUtf8(property.error));
    if (!property.warning.empty())
        target.SetWarningText(FromUtf8(property.warning));
}

void SetRules(const Property& target, const RoutineProperty& property)
{
    if (property.visibility)
        Check(target->SetVisibilityInfo(RuleOf(*property.visibility).Get()));
    if (property.visibleForPostProc)
        Check(target->SetVisibleForPostProc(Property::ToVariantBool(*property.visibleForPostProc)));
    if (property.postProcVisibility)
        Check(target->SetPostProcVisibilityInfo(RuleOf(*property.postProcVisibility).Get()));
}

/// "A parsing error has occurred (Propertyid failed) at line: ..." repeats the whole text; the reason is enough.
std::string ReasonIn(const std::string& message)
{
    const size_t begin = message.find('(');
    const size_t end = message.find(") at line: ");
    if (begin == std::string::npos || end == std::string::npos || end < begin)
        return message;
    return message.substr(begin + 1, end - begin - 1);
}

} // namespace

std::string NameForMessages(LONG id)
{
    return "property " + std::to_string(id);
}

PropertyTree::PropertyTree(const Routine& routine, Values values)
    : m_collection(During("the collection cannot be made", &lumevor::Collection::Create))
{
    During("routine", [&] {
        Check(m_collection->SetUnitMode(routine.unitMode));
        Check(m_collection->put_Precision(routine.precision));
        Check(m_collection->SetState(routine.state));
        Check(m_collection->put_SaveReadOnlyStates(Property::ToVariantBool(routine.saveReadOnlyStates)));
        Check(m_collection->put_SaveEditFlags(Property::ToVariantBool(routine.saveEditFlags)));
        if (routine.maxInputValue)
            Check(m_collection->SetMaxInputValue(*routine.maxInputValue));
        if (!routine.help.empty())
            AttachHelp(routine);
    });

    lumevor::Transaction transaction(m_collection);
    if (routine.collectionId)
        Check(m_collection->SetCollectionID(*routine.collectionId));
    const auto forEach = [&](auto&& body) {
        for (const RoutineProperty& property : routine.properties)
            During(NameForMessages(property.id), [&] { body(property); });
    };
    forEach([&](const RoutineProperty& property) { AddProperty(property); });
    forEach([&](const RoutineProperty& property) { SetDetails(m_collection.At(property.id), property); });
    if (values == Values::Set)
        forEach([&](const RoutineProperty& property) { SetOutcome(m_collection.At(property.id), property); });
    // Rules come last: a rule is evaluated when it is set, and its controls must stand by then.
    forEach([&](const RoutineProperty& property) { SetRules(m_collection.At(property.id), property); });
    During("routine", [&] { transaction.End(); });
}

void PropertyTree::AttachHelp(const Routine& routine) const
{
    const auto info = MakeObject<IprpHelpInfo>(__uuidof(prpHelpInfo));
    for (const RoutineHelp& help : routine.help)
        Check(info->AddHelpString(help.state, help.property, String(FromUtf8(help.text)).Get()));
    Check(m_collection->AttachHelpInfo(info.Get()));
}

void PropertyTree::AddProperty(const RoutineProperty& property) const
{
    m_collection.Add({.id = property.id,
                      .parent = property.parent,
                      .type = property.type,
                      .nameResource = property.nameResource,
                      .linked = property.linked,
                      .editFlags = property.editFlags,
                      .visible = property.visible,
                      .readOnly = property.readOnly,
                      .save = property.alwaysSave});
}

lumevor::Text PropertyTree::Save() const
{
    return During("SaveToStream", [&] {
        lumevor::Transaction transaction(m_collection);
        return m_collection.Save();
    });
}

LoadOutcome PropertyTree::Load(lumevor::TextView text, LONG version) const
{
    LoadOutcome outcome;
    lumevor::Transaction transaction(m_collection);
    try {
        const lumevor::LoadResult result = m_collection.Load(text, version);
        outcome.isComplete = result.complete;
        for (const lumevor::Text& problem : result.problems)
            outcome.faults.push_back(ReasonIn(ToUtf8(problem)));
    } catch (const lumevor::Error& error) {
        outcome.raised = ToUtf8(error.Description());
    }
    return outcome;
}

std::vector<TreeProperty> PropertyTree::Read() const
{
    return During("the tree cannot be read", [&] {
        lumevor::Transaction transaction(m_collection);
        std::vector<TreeProperty> all;
        std::map<LONG, size_t> depths;
        for (const Property& property : m_collection.Descendants()) {
            TreeProperty& read = all.emplace_back(ReadProperty(property));
            const auto parent = depths.find(read.property.parent);
            read.depth = parent == depths.end() ? 0 : parent->second + 1;
            depths[read.property.id] = read.depth;
        }
        return all;
    });
}

void PropertyTree::ConvertTo(EprpUnitMode mode) const
{
    During("ConvertUnit", [&] { Check(m_collection->ConvertUnit(mode)); });
}
