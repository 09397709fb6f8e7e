// A collection: making it, filling it, walking it, saving and loading it. A thin value over the interface; copies share
// the collection, and everything that the wrapper leaves out is reached through ->.
#pragma once

#include <lumevor/Property.h>
#include <lumevor/Transaction.h>

#include <optional>
#include <vector>

namespace lumevor {

/// The suite's stream class.
inline constexpr CLSID kStreamClass = {0xAE827C8C, 0xC1EB, 0x49B9, {0xB8, 0x9C, 0x35, 0xA0, 0x7B, 0xB6, 0xAB, 0xF4}};

inline Ref<IqorStream> NewStream()
{
    Ref<IqorStream> stream;
    Check(CoCreateInstance(kStreamClass, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IqorStream), stream.PutVoid()));
    return stream;
}

/// What AddProperty takes; designated initialisers read best: `{.id = 5, .type = E_PROP_DT_LINEAR, .name = ...}`.
struct NewProperty {
    LONG id = 0;                       ///< 1 or greater, unique in the collection
    LONG parent = E_PROP_ID_TOP_LEVEL; ///< id of a property that is there
    EprpPropDataType type = E_PROP_DT_NONE;
    TextView name = {};    ///< empty leaves the name to nameResource
    LONG nameResource = 0; ///< string resource of the name in `module`
    LONG_PTR module = 0;   ///< 0 for the collection's default module
    LONG linked = 0;
    LONG editFlags = E_PROP_EDIT_VALUE;
    bool visible = true;
    bool readOnly = false;
    bool save = true; ///< part of the saved text
};

/// What a load made of a saved text.
struct LoadResult {
    bool complete = false;      ///< every record found its property
    std::vector<Text> problems; ///< one sentence for each record that did not
};

class TopLevelRange;
class DescendantRange;

class Collection {
public:
    explicit Collection(Ref<IqorPropertyCollection> collection) : m_collection(std::move(collection)) {}

    /// Needs an initialised apartment. The first collection of a process makes its thread the main thread, on which
    /// alone properties are added and removed.
    static Collection Create()
    {
        Ref<IqorPropertyCollection> collection;
        Check(CoCreateInstance(__uuidof(prpPropertyCollection), nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(IqorPropertyCollection), collection.PutVoid()));
        return Collection(std::move(collection));
    }

    IqorPropertyCollection* operator->() const noexcept { return m_collection.Get(); }
    IqorPropertyCollection* Get() const noexcept { return m_collection.Get(); }
    operator IqorPropertyCollection*() const noexcept { return m_collection.Get(); }

    Property Add(const NewProperty& given) const
    {
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_collection->AddProperty(given.id, given.parent, given.nameResource, given.linked, given.module,
                                        given.editFlags, given.type, Property::ToVariantBool(given.visible),
                                        Property::ToVariantBool(given.readOnly), Property::ToVariantBool(given.save),
                                        &outcome));
        Property added = At(given.id);
        if (!given.name.empty())
            added.SetName(given.name);
        return added;
    }
    /// Takes a property away with all its children; OutcomeError when there is none.
    void Remove(LONG id) const
    {
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_collection->RemoveProperty(id, &outcome));
        Check(outcome);
    }

    /// At any depth.
    std::optional<Property> Find(LONG id) const
    {
        Ref<IqorProperty> property;
        EprpPropError outcome = E_PROP_ERROR_NONE;
        Check(m_collection->GetProperty(id, &outcome, property.Put()));
        if (outcome == E_PROP_ERROR_PROP_ID_NOT_FOUND)
            return std::nullopt;
        Check(outcome);
        return Property(std::move(property));
    }
    /// OutcomeError when there is none.
    Property At(LONG id) const
    {
        if (auto found = Find(id))
            return *std::move(found);
        throw OutcomeError(E_PROP_ERROR_PROP_ID_NOT_FOUND);
    }
    /// Needs no transaction.
    bool Contains(LONG id) const
    {
        VARIANT_BOOL exists = VARIANT_FALSE;
        Check(m_collection->PropertyExists(id, &exists));
        return exists != VARIANT_FALSE;
    }

    TopLevelRange TopLevel() const;
    /// The whole tree, parents ahead of their children.
    DescendantRange Descendants() const;

    /// All saved values as one text.
    Text Save() const
    {
        const Ref<IqorStream> stream = NewStream();
        VARIANT_BOOL success = VARIANT_FALSE;
        Check(m_collection->SaveToStream(stream.Get(), &success));
        std::optional<Text> text = ReadText(stream.Get());
        return text ? *std::move(text) : Text();
    }
    /// Puts saved values into the present tree; what fits nowhere is kept in categories of its own.
    /// @param version  1 for what Save writes, 0 for the format before it.
    LoadResult Load(TextView saved, LONG version = 1) const
    {
        const Ref<IqorStream> stream = NewStream();
        const Ref<IqorStream> errors = NewStream();
        Check(stream->WriteString(String(saved).Get(), VARIANT_TRUE));
        Rewind(stream.Get());
        Check(m_collection->put_LoadVersion(version));
        VARIANT_BOOL success = VARIANT_FALSE;
        Check(m_collection->LoadFromStream(stream.Get(), errors.Get(), &success));

        LoadResult result;
        result.complete = success != VARIANT_FALSE;
        Rewind(errors.Get());
        while (std::optional<Text> problem = ReadText(errors.Get()))
            result.problems.push_back(*std::move(problem));
        return result;
    }

private:
    static void Rewind(IqorStream* stream)
    {
        EStreamError error = E_STREAM_ERROR_NONE;
        Check(stream->Seek(0, E_STREAM_ORIGIN_START, &error));
    }
    /// Nothing at the end of the stream.
    static std::optional<Text> ReadText(IqorStream* stream)
    {
        String text;
        LONG length = 0;
        EStreamError error = E_STREAM_ERROR_NONE;
        Check(stream->ReadString(text.Put(), &length, &error));
        if (error != E_STREAM_ERROR_NONE)
            return std::nullopt;
        return text.ToText();
    }

    Ref<IqorPropertyCollection> m_collection;
};

/// The properties of the top level, in the order in which they were added.
class TopLevelRange {
public:
    explicit TopLevelRange(Collection collection) : m_collection(std::move(collection)) {}

    class Step {
    public:
        explicit Step(Collection collection) : m_collection(std::move(collection)) {}
        Property operator()()
        {
            Ref<IqorProperty> property;
            EprpPropError outcome = E_PROP_ERROR_NONE;
            const LONG from = m_id;
            Check(m_collection->GetNextProperty(from, &m_id, &outcome, property.Put()));
            Check(outcome);
            return Property(std::move(property));
        }

    private:
        Collection m_collection;
        LONG m_id = E_PROP_ID_INVALID;
    };

    PropertyIterator<Step> begin() const { return PropertyIterator<Step>(Step(m_collection)); }
    std::default_sentinel_t end() const noexcept { return {}; }

private:
    Collection m_collection;
};

/// All properties, depth first.
class DescendantRange {
public:
    explicit DescendantRange(Collection collection) : m_collection(std::move(collection)) {}

    class Step {
    public:
        explicit Step(Collection collection) : m_collection(std::move(collection)) {}
        Property operator()()
        {
            Ref<IqorProperty> property;
            EprpPropError outcome = E_PROP_ERROR_NONE;
            // The id names the property to hand out and comes back as the one after it; the end reports "not found".
            Check(m_collection->GetNextPropertyAll(&m_id, &outcome, property.Put()));
            return Property(outcome == E_PROP_ERROR_NONE ? std::move(property) : Ref<IqorProperty>());
        }

    private:
        Collection m_collection;
        LONG m_id = E_PROP_ID_INVALID;
    };

    PropertyIterator<Step> begin() const { return PropertyIterator<Step>(Step(m_collection)); }
    std::default_sentinel_t end() const noexcept { return {}; }

private:
    Collection m_collection;
};

inline TopLevelRange Collection::TopLevel() const
{
    return TopLevelRange(*this);
}

inline DescendantRange Collection::Descendants() const
{
    return DescendantRange(*this);
}

} // namespace lumevor
