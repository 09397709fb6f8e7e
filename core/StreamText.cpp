#include "core/StreamText.h"

#include "LV_suiteStream.h"
#include "frame/Raise.h"
#include "platform/atl/ComObject.h"

#include <utility>

namespace {

/// A finished text that a stream keeps as it is.
class FinishedText : public CComObjectRootEx<CComMultiThreadModel>, public IqorTextOwner {
public:
    using Interfaces = InterfaceList<IqorTextOwner>;

    void Take(TextBuffer&& text) noexcept { m_text = std::move(text); }

    STDMETHODIMP GetText(const OLECHAR** text, LONG* length) override
    {
        *text = m_text.View().data();
        *length = static_cast<LONG>(m_text.Size());
        return S_OK;
    }

private:
    TextBuffer m_text;
};

CComPtr<IqorStreamDirect> DirectOf(IqorStream& stream)
{
    CComPtr<IqorStreamDirect> direct;
    stream.QueryInterface(__uuidof(IqorStreamDirect), reinterpret_cast<void**>(&direct));
    return direct;
}

bool IsSameObject(IUnknown& left, IUnknown& right)
{
    CComPtr<IUnknown> leftIdentity;
    CComPtr<IUnknown> rightIdentity;
    left.QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&leftIdentity));
    right.QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&rightIdentity));
    return leftIdentity == rightIdentity;
}

CComPtr<IqorTextOwner> OwnerOf(TextBuffer&& text)
{
    CComObject<FinishedText>* object = nullptr;
    Must(CComObject<FinishedText>::CreateInstance(&object));
    CComPtr<IqorTextOwner> owner;
    owner.Attach(object);
    object->Take(std::move(text));
    return owner;
}

} // namespace

void WriteWhole(IqorStream& stream, TextBuffer&& text)
{
    if (const CComPtr<IqorStreamDirect> direct = DirectOf(stream)) {
        Must(direct->AdoptText(OwnerOf(std::move(text))));
        return;
    }
    const CComBSTR copy(text.View());
    if (!copy)
        throw ComError{E_OUTOFMEMORY, {}};
    Must(stream.WriteString(copy, VARIANT_TRUE));
}

StreamText::StreamText(IqorStream& stream, IqorStream* written)
{
    LONG length = 0;
    const CComPtr<IqorStreamDirect> direct = DirectOf(stream);
    if (direct && !(written && IsSameObject(stream, *written))) {
        const OLECHAR* text = nullptr;
        if (direct->PeekString(&text, &length) == S_OK)
            m_text = {text, static_cast<std::size_t>(length)};
        return;
    }
    EStreamError error = E_STREAM_ERROR_NONE;
    stream.ReadString(&m_copy, &length, &error);
    m_text = m_copy.View();
}
