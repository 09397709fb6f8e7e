// A collection made by COM, a sink that records, and the plain words in which tests use both. The tests know
// interfaces only, so the same sources run natively and against the DLL.
#pragma once

#include "LV_prpPropCollection.h"
#include "LV_suiteStream.h"
#include "idl/SuiteClasses.h"
#include "platform/atl/ComPtr.h"
#include "tests/support/Errors.h"
#include "tests/support/EventSink.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

inline CComBSTR Bstr(TextView text)
{
    return CComBSTR(text);
}

template <class Interface>
CComPtr<Interface> MakeObject(REFCLSID clsid)
{
    CComPtr<Interface> object;
    EXPECT_EQ(object.CoCreateInstance(clsid), S_OK);
    return object;
}

inline CComPtr<IqorStream> MakeStream()
{
    return MakeObject<IqorStream>(CLSID_qorStream);
}

inline CComPtr<IqorStream> MakeStream(TextView text)
{
    CComPtr<IqorStream> stream = MakeStream();
    EXPECT_EQ(stream->WriteString(Bstr(text), VARIANT_TRUE), S_OK);
    return stream;
}

/// All strings of a stream, from its read position on.
inline std::vector<Text> ReadStrings(IqorStream* stream)
{
    std::vector<Text> texts;
    for (;;) {
        CComBSTR text;
        LONG length = 0;
        EStreamError error = E_STREAM_ERROR_NONE;
        EXPECT_EQ(stream->ReadString(&text, &length, &error), S_OK);
        if (error != E_STREAM_ERROR_NONE)
            return texts;
        texts.emplace_back(text.View());
    }
}

/// What AddProperty takes, with the values that most tests want.
struct NewProperty {
    LONG id = 1;
    EprpPropDataType type = E_PROP_DT_LINEAR;
    LONG parent = E_PROP_ID_TOP_LEVEL;
    LONG nameResID = 0;
    LONG linked = 0;
    LONG_PTR module = 0;
    LONG editFlags = 0;
    VARIANT_BOOL visible = VARIANT_TRUE;
    VARIANT_BOOL readOnly = VARIANT_FALSE;
    VARIANT_BOOL alwaysSave = VARIANT_TRUE;
};

inline HRESULT AddTo(IqorPropertyCollection* collection, const NewProperty& p)
{
    EprpPropError error = E_PROP_ERROR_NONE;
    return collection->AddProperty(p.id, p.parent, p.nameResID, p.linked, p.module, p.editFlags, p.type, p.visible,
                                   p.readOnly, p.alwaysSave, &error);
}

/// Runs a body between StartTransaction and EndTransaction.
template <class Body>
void Transact(IqorPropertyCollection* collection, Body&& body, bool fire = true)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    body();
    ASSERT_EQ(collection->EndTransaction(fire ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
}

inline CComPtr<IqorProperty> PropertyOf(IqorPropertyCollection* collection, LONG id)
{
    CComPtr<IqorProperty> property;
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_EQ(collection->GetProperty(id, &error, &property), S_OK);
    return property;
}

// Getters that must succeed.

inline Text StringOf(IqorProperty* property)
{
    CComBSTR text;
    EXPECT_EQ(property->GetPropertyString(&text), S_OK);
    EXPECT_NE(text.m_str, nullptr);
    return Text(text.View());
}
inline LONG LongOf(IqorProperty* property)
{
    LONG value = 0;
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_EQ(property->GetPropertyLong(&error, &value), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_NONE);
    return value;
}
inline double DoubleOf(IqorProperty* property)
{
    double value = 0;
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_EQ(property->GetPropertyDouble(&error, &value), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_NONE);
    return value;
}
inline SprpPosition PositionOf(IqorProperty* property)
{
    SprpPosition value{};
    EXPECT_EQ(property->GetPropertyPosition(&value), S_OK);
    return value;
}
inline bool FlagOf(IqorProperty* property, HRESULT (STDMETHODCALLTYPE IqorProperty::*getter)(VARIANT_BOOL*))
{
    VARIANT_BOOL value = 7;
    EXPECT_EQ((property->*getter)(&value), S_OK);
    EXPECT_TRUE(value == VARIANT_TRUE || value == VARIANT_FALSE);
    return value == VARIANT_TRUE;
}
inline Text ErrorTextOf(IqorProperty* property)
{
    CComBSTR text;
    EXPECT_EQ(property->GetErrorString(&text), S_OK);
    return Text(text.View());
}
inline Text NameOf(IqorProperty* property, EprpPropertyNameStyle style = E_PRP_PROP_NAME_STYLE_FULL)
{
    CComBSTR text;
    EXPECT_EQ(property->GetPropertyName(style, &text), S_OK);
    return Text(text.View());
}

// Setters that must succeed.

inline void SetString(IqorProperty* property, TextView text)
{
    EXPECT_EQ(property->SetPropertyString(Bstr(text)), S_OK);
}
inline void SetDouble(IqorProperty* property, double value)
{
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_EQ(property->SetPropertyDouble(value, &error), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_NONE);
}
inline void SetLong(IqorProperty* property, LONG value)
{
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_EQ(property->SetPropertyLong(value, &error), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_NONE);
}
inline void SetErrorText(IqorProperty* property, TextView text)
{
    EXPECT_EQ(property->SetErrorString(Bstr(text)), S_OK);
}

/// Text that the collection saves; its transaction must be open.
inline Text SavedTextOf(IqorPropertyCollection* collection)
{
    CComPtr<IqorStream> stream = MakeStream();
    VARIANT_BOOL success = VARIANT_FALSE;
    EXPECT_EQ(collection->SaveToStream(stream, &success), S_OK);
    EXPECT_EQ(success, VARIANT_TRUE);
    const auto texts = ReadStrings(stream);
    EXPECT_EQ(texts.size(), 1U);
    return texts.empty() ? Text() : texts.front();
}

/// A record of a value edit that carries the old text.
inline EventSeen ValueEdit(LONG id, TextView oldText, LONG collection = 0)
{
    return {E_PROP_EVENT_PROP_EDITED, id, collection, -1, false, true, Text(oldText)};
}
/// A record of a state edit.
inline EventSeen StateEdit(LONG id, bool visibilityChanged = false, LONG collection = 0)
{
    return {E_PROP_EVENT_PROP_EDITED, id, collection, -1, visibilityChanged, false, {}};
}
inline EventSeen Added(LONG id, LONG parent = E_PROP_ID_TOP_LEVEL, LONG collection = 0)
{
    return {E_PROP_EVENT_PROP_ADDED, id, collection, parent, false, false, {}};
}
inline EventSeen Deleted(LONG id, LONG collection = 0)
{
    return {E_PROP_EVENT_PROP_DELETED, id, collection, -1, false, false, {}};
}

class ModelTest : public testing::Test {
protected:
    CComPtr<IqorPropertyCollection> collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    ConnectedSink sink{collection};

    /// Adds a property in a transaction of its own that publishes nothing.
    CComPtr<IqorProperty> Add(const NewProperty& added)
    {
        CComPtr<IqorProperty> property;
        Transact(
            collection,
            [&] {
                EXPECT_EQ(AddTo(collection, added), S_OK);
                property = PropertyOf(collection, added.id);
            },
            false);
        return property;
    }
    CComPtr<IqorProperty> Add(LONG id, EprpPropDataType type, LONG parent = E_PROP_ID_TOP_LEVEL)
    {
        return Add({.id = id, .type = type, .parent = parent});
    }

    /// Runs a body in a transaction and gives the records that it published.
    template <class Body>
    std::vector<EventSeen> EventsOf(Body&& body)
    {
        sink->Clear();
        Transact(collection, std::forward<Body>(body));
        return sink->Records();
    }
    template <class Body>
    void InTransaction(Body&& body)
    {
        Transact(collection, std::forward<Body>(body));
    }
};
