// A host of the component that does what the benchmarks time, through the public interfaces alone.
#pragma once

#include "LV_prpPropCollection.h"
#include "benchmarks/SettingsData.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <memory>
#include <vector>

/// Ends the program with a message when a call fails: a benchmark of failing calls measures nothing.
void MustSucceed(HRESULT hr, const char* what);

/// The data with its texts in the form that the interfaces take.
class HostData {
public:
    explicit HostData(SettingsData data);
    const SettingsData& Data() const { return m_data; }
    /// Text of the setting at that place; null when it has none. Stays with the data.
    BSTR TextAt(std::size_t place) const { return m_texts[place].get(); }

private:
    struct Free {
        void operator()(OLECHAR* text) const { SysFreeString(text); }
    };
    SettingsData m_data;
    std::vector<std::unique_ptr<OLECHAR, Free>> m_texts;
};

CComPtr<IqorPropertyCollection> NewCollection();
CComPtr<IqorStream> NewStream();

/// Adds every setting and gives it its value, in one transaction that publishes nothing.
void Fill(IqorPropertyCollection& collection, const HostData& data);
CComPtr<IqorPropertyCollection> FilledCollection(const HostData& data);

/// A running transaction of the caller, ended without events.
class OpenTransaction {
public:
    explicit OpenTransaction(IqorPropertyCollection& collection);
    ~OpenTransaction();
    OpenTransaction(const OpenTransaction&) = delete;
    OpenTransaction& operator=(const OpenTransaction&) = delete;

private:
    IqorPropertyCollection& m_collection;
};

void Save(IqorPropertyCollection& collection, IqorStream& stream);
/// Reads the whole stream from its start into the existing tree.
void Load(IqorPropertyCollection& collection, IqorStream& stream);
CComPtr<IqorPropertyCollection> CloneOf(IqorPropertyCollection& collection);
CComPtr<IqorProperty> PropertyOf(IqorPropertyCollection& collection, LONG id);
