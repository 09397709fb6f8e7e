// A collection with one property of each data type and a running transaction, for fuzzers of what a host hands in.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/DataTypes.h"
#include "fuzz/FuzzInput.h"
#include "idl/SuiteClasses.h"
#include "platform/atl/ComPtr.h"

class FuzzCollection {
public:
    static constexpr LONG kFirstId = 0x401;

    FuzzCollection()
    {
        static const bool s_apartment = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        Require(s_apartment);
        Require(collection.CoCreateInstance(CLSID_prpPropertyCollection) == S_OK);
        Require(collection->StartTransaction(-1) == S_OK);
        for (LONG type = E_PROP_DT_NONE; type < kDataTypeCount; ++type) {
            const VARIANT_BOOL save = RuleOf(type).saved == SavedForm::Refused ? VARIANT_FALSE : VARIANT_TRUE;
            Require(collection->AddProperty(kFirstId + type, E_PROP_ID_TOP_LEVEL, 0, 0, 0, 0,
                                            static_cast<EprpPropDataType>(type), VARIANT_TRUE, VARIANT_FALSE, save,
                                            nullptr) == S_OK);
        }
    }
    FuzzCollection(const FuzzCollection&) = delete;
    FuzzCollection& operator=(const FuzzCollection&) = delete;
    ~FuzzCollection() { Require(SUCCEEDED(collection->EndTransaction(VARIANT_TRUE))); }

    CComPtr<IqorProperty> Property(LONG type)
    {
        CComPtr<IqorProperty> property;
        EprpPropError error = E_PROP_ERROR_NONE;
        Require(collection->GetProperty(kFirstId + type, &error, &property) == S_OK);
        return property;
    }
    /// The saved text, or nothing when a property that must not be saved was kept.
    bool Save(CComBSTR& text)
    {
        CComPtr<IqorStream> stream;
        Require(stream.CoCreateInstance(CLSID_qorStream) == S_OK);
        VARIANT_BOOL success = VARIANT_FALSE;
        if (FAILED(collection->SaveToStream(stream, &success)))
            return false;
        LONG length = 0;
        EStreamError error = E_STREAM_ERROR_NONE;
        Require(stream->ReadString(&text, &length, &error) == S_OK);
        return true;
    }
    HRESULT Load(TextView text)
    {
        CComPtr<IqorStream> stream;
        Require(stream.CoCreateInstance(CLSID_qorStream) == S_OK);
        Require(stream->WriteString(CComBSTR(text), VARIANT_TRUE) == S_OK);
        CComPtr<IqorStream> errors;
        Require(errors.CoCreateInstance(CLSID_qorStream) == S_OK);
        VARIANT_BOOL success = VARIANT_FALSE;
        return collection->LoadFromStream(stream, errors, &success);
    }

    CComPtr<IqorPropertyCollection> collection;
};
