#include "control/MemberStream.h"

#include "frame/Raise.h"
#include "platform/atl/ComPtr.h"

namespace {

/// Bytes of a plain value; 0 for types that are no plain value.
constexpr ULONG SizeOf(VARTYPE type)
{
    switch (type) {
    case VT_BOOL:
    case VT_I2: return 2;
    case VT_I4:
    case VT_UI4: return 4;
    default: return 0;
    }
}

void WriteObject(IStream& stream, IDispatch* object)
{
    CComPtr<IPersistStream> persistent;
    if (!object) {
        Must(WriteClassStm(&stream, CLSID_NULL));
        return;
    }
    Must(object->QueryInterface(IID_IPersistStream, reinterpret_cast<void**>(&persistent)));
    Must(OleSaveToStream(persistent, &stream));
}

IDispatch* ReadObject(IStream& stream)
{
    CComPtr<IDispatch> object;
    const HRESULT hr = OleLoadFromStream(&stream, IID_IDispatch, reinterpret_cast<void**>(&object));
    if (hr != REGDB_E_CLASSNOTREG) // of the empty identifier
        Must(hr);
    return object.Detach();
}

} // namespace

void WriteBytes(IStream& stream, const void* bytes, ULONG count)
{
    ULONG written = 0;
    Must(stream.Write(bytes, count, &written));
    if (written != count)
        Must(STG_E_WRITEFAULT);
}

void ReadBytes(IStream& stream, void* bytes, ULONG count)
{
    ULONG read = 0;
    Must(stream.Read(bytes, count, &read));
    if (read != count)
        Must(STG_E_READFAULT);
}

void WriteToStream(IStream& stream, const VARIANT& value)
{
    const ULONG size = SizeOf(V_VT(&value));
    if (size == 0 && V_VT(&value) != VT_DISPATCH)
        Must(DISP_E_BADVARTYPE);
    WriteBytes(stream, &V_VT(&value), sizeof V_VT(&value));
    if (size == 0)
        WriteObject(stream, V_DISPATCH(&value));
    else
        WriteBytes(stream, &V_UI1(&value), size);
}

void ReadFromStream(IStream& stream, VARTYPE expected, CComVariant& out)
{
    VARTYPE type = VT_EMPTY;
    ReadBytes(stream, &type, sizeof type);
    if (type != expected)
        Must(DISP_E_BADVARTYPE);
    if (type == VT_DISPATCH)
        V_DISPATCH(&out) = ReadObject(stream);
    else
        ReadBytes(stream, &V_UI1(&out), SizeOf(type));
    V_VT(&out) = type;
}
