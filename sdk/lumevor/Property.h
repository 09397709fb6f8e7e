// One property, typed. A thin value over the interface: copies share the property, and everything that the wrapper
// leaves out is reached through ->. All of it needs a transaction on the collection.
#pragma once

#include <lumevor/Error.h>

#include <iterator>

namespace lumevor {

class ChildRange;

class Property {
public:
    explicit Property(Ref<IqorProperty> property) : m_property(std::move(property)) {}

    IqorProperty* operator->() const noexcept { return m_property.Get(); }
    IqorProperty* Get() const noexcept { return m_property.Get(); }

    LONG Id() const { return Read<LONG>(&IqorProperty::GetPropertyID); }
    /// -2 at the top level.
    LONG ParentId() const { return Read<LONG>(&IqorProperty::GetParentProperty); }
    LONG ChildCount() const { return Read<LONG>(&IqorProperty::GetCount); }
    ChildRange Children() const;

    EprpPropDataType Type() const { return Read<EprpPropDataType>(&IqorProperty::GetDataType); }
    Text Name(EprpPropertyNameStyle style = E_PRP_PROP_NAME_STYLE_FULL) const
    {
        String name;
        Check(m_property->GetPropertyName(style, name.Put()));
        return name.ToText();
    }
    void SetName(TextView name) const { Check(m_property->SetPropertyName(String(name).Get())); }

    /// The value of any type as text.
    Text Value() const { return ReadText(&IqorProperty::GetPropertyString); }
    /// Reads the text as the type wants it; what is no number leaves a number as it is.
    void SetValue(TextView value) const { Check(m_property->SetPropertyString(String(value).Get())); }

    /// Integer, enumeration and DWORD types; OutcomeError for any other.
    LONG Long() const
    {
        LONG value = 0;
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_property->GetPropertyLong(&outcome, &value));
        Check(outcome);
        return value;
    }
    void SetLong(LONG value) const
    {
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_property->SetPropertyLong(value, &outcome));
        Check(outcome);
    }
    /// Number types, in the collection's present unit mode; OutcomeError for any other.
    double Double() const
    {
        double value = 0;
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_property->GetPropertyDouble(&outcome, &value));
        Check(outcome);
        return value;
    }
    void SetDouble(double value) const
    {
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_property->SetPropertyDouble(value, &outcome));
        Check(outcome);
    }
    SprpPosition Position() const { return Read<SprpPosition>(&IqorProperty::GetPropertyPosition); }
    /// @param force  stores and announces a position that differs by less than the threshold, too.
    void SetPosition(const SprpPosition& position, bool force = false) const
    {
        Check(m_property->SetPropertyPosition(position, ToVariantBool(force)));
    }

    bool IsVisible() const { return ReadFlag(&IqorProperty::IsVisible); }
    void SetVisible(bool visible) const { Check(m_property->SetVisible(ToVariantBool(visible))); }
    bool IsReadOnly() const { return ReadFlag(&IqorProperty::IsReadOnly); }
    void SetReadOnly(bool readOnly) const { Check(m_property->SetReadOnly(ToVariantBool(readOnly))); }
    bool IsValid() const { return ReadFlag(&IqorProperty::IsValid); }
    /// Empty while the property is valid, or hidden.
    Text ErrorText() const { return ReadText(&IqorProperty::GetErrorString); }
    /// An empty text makes the property valid.
    void SetErrorText(TextView error) const { Check(m_property->SetErrorString(String(error).Get())); }
    Text WarningText() const { return ReadText(&IqorProperty::GetWarningString); }
    void SetWarningText(TextView warning) const { Check(m_property->SetWarningString(String(warning).Get())); }

    static VARIANT_BOOL ToVariantBool(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

private:
    template <class Value>
    Value Read(HRESULT (STDMETHODCALLTYPE IqorProperty::*get)(Value*)) const
    {
        Value value{};
        Check((m_property.Get()->*get)(&value));
        return value;
    }
    bool ReadFlag(HRESULT (STDMETHODCALLTYPE IqorProperty::*get)(VARIANT_BOOL*)) const
    {
        return Read<VARIANT_BOOL>(get) != VARIANT_FALSE;
    }
    Text ReadText(HRESULT (STDMETHODCALLTYPE IqorProperty::*get)(BSTR*)) const
    {
        String text;
        Check((m_property.Get()->*get)(text.Put()));
        return text.ToText();
    }

    Ref<IqorProperty> m_property;
};

/// Walks properties one after the other; `Step` fetches the next one and is empty at the end. The tree must not lose
/// the property that the walk stands on.
template <class Step>
class PropertyIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Property;
    using difference_type = std::ptrdiff_t;
    using pointer = const Property*;
    using reference = const Property&;

    explicit PropertyIterator(Step step) : m_step(std::move(step)), m_current(m_step()) {}

    const Property& operator*() const noexcept { return m_current; }
    const Property* operator->() const noexcept { return &m_current; }
    PropertyIterator& operator++()
    {
        m_current = m_step();
        return *this;
    }
    void operator++(int) { ++*this; }
    friend bool operator==(const PropertyIterator& it, std::default_sentinel_t) noexcept { return !it.m_current.Get(); }

private:
    Step m_step;
    Property m_current;
};

/// The direct children of a property, in their order.
class ChildRange {
public:
    explicit ChildRange(Ref<IqorProperty> parent) : m_parent(std::move(parent)) {}

    class Step {
    public:
        explicit Step(Ref<IqorProperty> parent) : m_parent(std::move(parent)) {}
        Property operator()()
        {
            Ref<IqorProperty> child;
            EprpPropError outcome = E_PROP_ERROR_NONE;
            const LONG from = m_id;
            Check(m_parent->GetNextChildProperty(from, &m_id, &outcome, child.Put()));
            Check(outcome);
            return Property(std::move(child));
        }

    private:
        Ref<IqorProperty> m_parent;
        LONG m_id = E_PROP_ID_INVALID;
    };

    PropertyIterator<Step> begin() const { return PropertyIterator<Step>(Step(m_parent)); }
    std::default_sentinel_t end() const noexcept { return {}; }

private:
    Ref<IqorProperty> m_parent;
};

inline ChildRange Property::Children() const
{
    return ChildRange(m_property);
}

} // namespace lumevor
