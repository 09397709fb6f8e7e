#include "benchmarks/Host.h"

#include "idl/SuiteClasses.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

void MustSucceed(HRESULT hr, const char* what)
{
    if (hr == S_OK)
        return;
    std::fprintf(stderr, "%s failed with %08x\n", what, static_cast<unsigned>(hr));
    std::exit(1);
}

HostData::HostData(SettingsData data) : m_data(std::move(data)), m_texts(m_data.settings.size())
{
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        const std::string& narrow = m_data.settings[i].text;
        if (!narrow.empty()) {
            const Text wide(narrow.begin(), narrow.end());
            m_texts[i].reset(SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())));
        }
    }
}

CComPtr<IqorPropertyCollection> NewCollection()
{
    CComPtr<IqorPropertyCollection> collection;
    MustSucceed(collection.CoCreateInstance(CLSID_prpPropertyCollection), "creating a collection");
    return collection;
}

CComPtr<IqorStream> NewStream()
{
    CComPtr<IqorStream> stream;
    MustSucceed(stream.CoCreateInstance(CLSID_qorStream), "creating a stream");
    MustSucceed(stream->SetStreamMode(E_STREAM_MODE_BINARY), "SetStreamMode");
    return stream;
}

static void SetValue(IqorProperty& property, const Setting& setting, BSTR text)
{
    EprpPropError error = E_PROP_ERROR_NONE;
    HRESULT hr = S_OK;
    switch (setting.kind) {
    case Kind::Long:
    case Kind::Enum: hr = property.SetPropertyLong(setting.whole, &error); break;
    case Kind::String: hr = property.SetPropertyString(text); break;
    case Kind::Position: hr = property.SetPropertyPosition({setting.x, setting.y, setting.z}, VARIANT_FALSE); break;
    case Kind::Category: break;
    default: hr = property.SetPropertyDouble(setting.x, &error); break;
    }
    MustSucceed(hr, "setting a value");
}

void Fill(IqorPropertyCollection& collection, const HostData& data)
{
    const auto asBool = [](bool truth) { return truth ? VARIANT_TRUE : VARIANT_FALSE; };
    MustSucceed(collection.StartTransaction(-1), "StartTransaction");
    for (std::size_t i = 0; i < data.Data().settings.size(); ++i) {
        const Setting& setting = data.Data().settings[i];
        EprpPropError error = E_PROP_ERROR_NONE;
        MustSucceed(collection.AddProperty(setting.id, setting.parent, 0, 0, 0, setting.editFlags,
                                           static_cast<EprpPropDataType>(setting.kind), asBool(setting.visible),
                                           asBool(setting.readOnly), VARIANT_TRUE, &error),
                    "AddProperty");
        if (setting.kind != Kind::Category) {
            IqorProperty* property = nullptr;
            MustSucceed(collection.GetProperty(setting.id, &error, &property), "GetProperty");
            SetValue(*property, setting, data.TextAt(i));
            property->Release();
        }
    }
    MustSucceed(collection.EndTransaction(VARIANT_FALSE), "EndTransaction");
}

CComPtr<IqorPropertyCollection> FilledCollection(const HostData& data)
{
    CComPtr<IqorPropertyCollection> collection = NewCollection();
    Fill(*collection, data);
    return collection;
}

OpenTransaction::OpenTransaction(IqorPropertyCollection& collection) : m_collection(collection)
{
    MustSucceed(m_collection.StartTransaction(-1), "StartTransaction");
}

OpenTransaction::~OpenTransaction()
{
    MustSucceed(m_collection.EndTransaction(VARIANT_FALSE), "EndTransaction");
}

void Save(IqorPropertyCollection& collection, IqorStream& stream)
{
    VARIANT_BOOL success = VARIANT_FALSE;
    MustSucceed(collection.SaveToStream(&stream, &success), "SaveToStream");
    MustSucceed(success ? S_OK : E_FAIL, "saving");
}

void Load(IqorPropertyCollection& collection, IqorStream& stream)
{
    VARIANT_BOOL success = VARIANT_FALSE;
    EStreamError error = E_STREAM_ERROR_NONE;
    MustSucceed(stream.Seek(0, E_STREAM_ORIGIN_START, &error), "Seek");
    MustSucceed(collection.LoadFromStream(&stream, nullptr, &success), "LoadFromStream");
    MustSucceed(success ? S_OK : E_FAIL, "loading");
}

CComPtr<IqorPropertyCollection> CloneOf(IqorPropertyCollection& collection)
{
    CComPtr<IqorPropertyCollection> clone;
    MustSucceed(collection.Clone(2, &clone), "Clone");
    return clone;
}

CComPtr<IqorProperty> PropertyOf(IqorPropertyCollection& collection, LONG id)
{
    EprpPropError error = E_PROP_ERROR_NONE;
    CComPtr<IqorProperty> property;
    MustSucceed(collection.GetProperty(id, &error, &property), "GetProperty");
    MustSucceed(property ? S_OK : E_FAIL, "finding a property");
    return property;
}
