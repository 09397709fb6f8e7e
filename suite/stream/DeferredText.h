// Texts that a stream gets from somebody else's object when they are read: rendered from a value, or lent whole.
#pragma once

#include "LV_suiteStream.h"
#include "frame/Raise.h"
#include "platform/atl/ComPtr.h"
#include "suite/stream/StreamStorage.h"

#include <algorithm>

/// Asks a renderer for each text.
class RenderedText final : public TextSource {
public:
    explicit RenderedText(IqorTextRenderer* renderer) : m_pRenderer(renderer) {}

    TextView TextOf(ByteView value, Text& scratch) const override
    {
        constexpr std::size_t kUsualLength = 64;
        if (scratch.size() < kUsualLength)
            scratch.resize(kUsualLength);
        LONG length = 0;
        if (!Render(value, scratch, length)) {
            scratch.resize(static_cast<std::size_t>(length));
            if (!Render(value, scratch, length))
                ThrowHResult(E_UNEXPECTED);
        }
        return TextView(scratch).substr(0, static_cast<std::size_t>(length));
    }

private:
    /// False when `length` units are needed and `buffer` is shorter.
    bool Render(ByteView value, Text& buffer, LONG& length) const
    {
        const LONG capacity = static_cast<LONG>(std::min(buffer.size(), StreamStorage::kMaxBytes));
        const HRESULT hr =
            m_pRenderer->RenderText(value.data(), static_cast<LONG>(value.size()), buffer.data(), capacity, &length);
        Must(hr);
        if (length < 0 || (length > capacity) != (hr == S_FALSE))
            ThrowHResult(E_UNEXPECTED);
        return hr != S_FALSE;
    }

    CComPtr<IqorTextRenderer> m_pRenderer;
};

/// A text that lives in its owner.
class LentText final : public TextSource {
public:
    explicit LentText(IqorTextOwner* owner) : m_pOwner(owner)
    {
        const OLECHAR* text = nullptr;
        LONG length = 0;
        Must(owner->GetText(&text, &length));
        if (length < 0 || (!text && length != 0))
            ThrowHResult(E_UNEXPECTED);
        m_text = {text, static_cast<std::size_t>(length)};
    }

    TextView TextOf(ByteView, Text&) const override { return m_text; }

private:
    CComPtr<IqorTextOwner> m_pOwner;
    TextView m_text;
};
