// The control's persistent form: a version, the extent, then each member of the control's table, in a stream, in the
// stream "Contents" of a storage, or by name in a property bag. A form that cannot be read whole changes nothing.
#include "control/ControlBase.h"

#include "control/MemberStream.h"
#include "frame/MethodFrame.h"

#include <vector>

namespace {

constexpr DWORD kFormVersion = 0x0900;
constexpr const OLECHAR* kContents = OLESTR("Contents");
constexpr const OLECHAR* kWidthName = OLESTR("_cx");
constexpr const OLECHAR* kHeightName = OLESTR("_cy");

/// Values of the members as they were read, in the order of the table.
using Values = std::vector<CComVariant>;

LONG ReadExtent(IPropertyBag& bag, const OLECHAR* name, LONG otherwise, IErrorLog* log)
{
    CComVariant value;
    V_VT(&value) = VT_UI4;
    return SUCCEEDED(bag.Read(name, &value, log)) && V_VT(&value) == VT_UI4 ? static_cast<LONG>(V_UI4(&value))
                                                                            : otherwise;
}

void WriteExtent(IPropertyBag& bag, const OLECHAR* name, LONG size)
{
    CComVariant value;
    V_VT(&value) = VT_UI4;
    V_UI4(&value) = static_cast<ULONG>(size);
    Must(bag.Write(name, &value));
}

} // namespace

void ControlBase::ReadMember(const PersistedMember& member, VARIANT& out)
{
    DISPPARAMS none{};
    Must(Automation().Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &out, nullptr,
                             nullptr));
    if (V_VT(&out) != member.type)
        Must(VariantChangeType(&out, &out, 0, member.type));
}

void ControlBase::WriteMember(const PersistedMember& member, VARIANT& value)
{
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &put, 1, 1};
    const WORD flags = V_VT(&value) == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    Must(Automation().Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, nullptr, nullptr, nullptr));
}

STDMETHODIMP ControlBase::Load(IStream* stream)
{
    if (!stream)
        return E_POINTER;
    const CComPtr<IOleObject> kept(this);
    return InFrame({m_facts.clsid, IID_IPersistStreamInit}, OLESTR("ControlBase::Load"), [&](const Checks&) {
        DWORD version = 0;
        DWORD extent[2] = {};
        ReadBytes(*stream, &version, sizeof version);
        if (version > kFormVersion)
            Must(E_FAIL); // of a later program, whose members nobody here knows
        ReadBytes(*stream, extent, sizeof extent);
        Values values(m_facts.members.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            ReadFromStream(*stream, m_facts.members[i].type, values[i]);
        m_sizeExtent = {static_cast<LONG>(extent[0]), static_cast<LONG>(extent[1])};
        for (std::size_t i = 0; i < values.size(); ++i)
            WriteMember(m_facts.members[i], values[i]);
        m_bDirty = false;
    });
}

STDMETHODIMP ControlBase::Save(IStream* stream, BOOL clearDirty)
{
    if (!stream)
        return E_POINTER;
    return InFrame({m_facts.clsid, IID_IPersistStreamInit}, OLESTR("ControlBase::Save"), [&](const Checks&) {
        WriteBytes(*stream, &kFormVersion, sizeof kFormVersion);
        const DWORD extent[2] = {static_cast<DWORD>(m_sizeExtent.cx), static_cast<DWORD>(m_sizeExtent.cy)};
        WriteBytes(*stream, extent, sizeof extent);
        for (const PersistedMember& member : m_facts.members) {
            CComVariant value;
            ReadMember(member, value);
            WriteToStream(*stream, value);
        }
        m_bDirty = m_bDirty && !clearDirty;
    });
}

STDMETHODIMP ControlBase::Load(IStorage* storage)
{
    if (!storage)
        return E_POINTER;
    CComPtr<IStream> stream;
    const HRESULT hr = storage->OpenStream(kContents, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream);
    return FAILED(hr) ? hr : Load(stream);
}

STDMETHODIMP ControlBase::Save(IStorage* storage, BOOL)
{
    if (!storage)
        return E_POINTER;
    CComPtr<IStream> stream;
    const HRESULT hr = storage->CreateStream(kContents, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, &stream);
    return FAILED(hr) ? hr : Save(stream, TRUE);
}

/// A member that the bag does not hold keeps its value.
STDMETHODIMP ControlBase::Load(IPropertyBag* bag, IErrorLog* log)
{
    if (!bag)
        return E_POINTER;
    const CComPtr<IOleObject> kept(this);
    return InFrame({m_facts.clsid, IID_IPersistPropertyBag}, OLESTR("ControlBase::Load"), [&](const Checks&) {
        m_sizeExtent = {ReadExtent(*bag, kWidthName, m_sizeExtent.cx, log),
                        ReadExtent(*bag, kHeightName, m_sizeExtent.cy, log)};
        for (const PersistedMember& member : m_facts.members) {
            CComVariant value;
            V_VT(&value) = member.type;
            if (SUCCEEDED(bag->Read(member.name, &value, log)))
                WriteMember(member, value);
        }
        m_bDirty = false;
    });
}

STDMETHODIMP ControlBase::Save(IPropertyBag* bag, BOOL clearDirty, BOOL)
{
    if (!bag)
        return E_POINTER;
    return InFrame({m_facts.clsid, IID_IPersistPropertyBag}, OLESTR("ControlBase::Save"), [&](const Checks&) {
        WriteExtent(*bag, kWidthName, m_sizeExtent.cx);
        WriteExtent(*bag, kHeightName, m_sizeExtent.cy);
        for (const PersistedMember& member : m_facts.members) {
            CComVariant value;
            ReadMember(member, value);
            Must(bag->Write(member.name, &value));
        }
        m_bDirty = m_bDirty && !clearDirty;
    });
}
