#include "core/EventTexts.h"

#include "frame/NumberText.h"
#include "platform/atl/Module.h"

#include <cstring>

namespace {

/// What a packed text begins with; the units of a literal follow.
struct PackedHead {
    uint32_t units; ///< of a literal
    ValueText::Form form;
    int8_t decimals;
};
static_assert(sizeof(PackedHead) == sizeof(uint64_t));

constexpr std::size_t kWord = sizeof(uint64_t);

template <class Value>
Value ReadFrom(const unsigned char* bytes)
{
    Value value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// Puts the head and the content behind it into whole words. @return their bytes.
inline uint32_t Pack(const PackedHead& head, const void* content, std::size_t bytes, GrowingBuffer<uint64_t>& out)
{
    const std::size_t words = 1 + (bytes + kWord - 1) / kWord;
    uint64_t* const room = out.Room(words);
    room[words - 1] = 0; // the content may fill it in part
    std::memcpy(room, &head, kWord);
    if (bytes != 0)
        std::memcpy(room + 1, content, bytes);
    out.EndAt(room + words);
    return static_cast<uint32_t>(kWord + bytes);
}

/// Gives the rendering of a number to a buffer that may be too small for it.
HRESULT Hand(TextView text, OLECHAR* buffer, LONG capacity, LONG* length)
{
    *length = static_cast<LONG>(text.size());
    if (*length > capacity)
        return S_FALSE;
    text.copy(buffer, text.size());
    return S_OK;
}

class Renderer final : public IqorTextRenderer {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        *out = nullptr;
        if (iid != IID_IUnknown && iid != IID_IqorTextRenderer)
            return E_NOINTERFACE;
        AddRef();
        *out = static_cast<IqorTextRenderer*>(this);
        return S_OK;
    }
    // The object needs no count of its own, but a stream that keeps it must keep the module loaded.
    STDMETHODIMP_(ULONG) AddRef() override
    {
        Module::Lock();
        return 2;
    }
    STDMETHODIMP_(ULONG) Release() override
    {
        Module::Unlock();
        return 1;
    }

    STDMETHODIMP RenderText(const unsigned char* value, LONG bytes, OLECHAR* buffer, LONG capacity,
                            LONG* length) override
    {
        if (bytes < static_cast<LONG>(kWord))
            return E_INVALIDARG;
        const auto head = ReadFrom<PackedHead>(value);
        const unsigned char* const content = value + kWord;
        switch (head.form) {
        case ValueText::Form::Literal:
            return Hand({reinterpret_cast<const OLECHAR*>(content), head.units}, buffer, capacity, length);
        case ValueText::Form::Number:
            return RenderNumber(ReadFrom<double>(content), head.decimals, buffer, capacity, length);
        case ValueText::Form::Position: {
            Text text;
            AppendPosition(text, ReadFrom<SprpPosition>(content), head.decimals);
            return Hand(text, buffer, capacity, length);
        }
        case ValueText::Form::Signed:
        case ValueText::Form::Unsigned: {
            OLECHAR digits[kMaxFastNumber];
            const auto whole = ReadFrom<int32_t>(content);
            const OLECHAR* const end = head.form == ValueText::Form::Signed
                                           ? WriteSigned(digits, whole)
                                           : WriteUnsigned(digits, static_cast<uint32_t>(whole));
            return Hand({digits, end}, buffer, capacity, length);
        }
        }
        return E_INVALIDARG;
    }

private:
    static HRESULT RenderNumber(double value, int decimals, OLECHAR* buffer, LONG capacity, LONG* length)
    {
        if (capacity >= static_cast<LONG>(kMaxFastNumber)) {
            if (const OLECHAR* const end = TryWriteNumber(buffer, value, decimals)) {
                *length = static_cast<LONG>(end - buffer);
                return S_OK;
            }
        }
        return Hand(FormatNumber(value, decimals), buffer, capacity, length);
    }
};

} // namespace

uint32_t PackText(const ValueText& text, GrowingBuffer<uint64_t>& out)
{
    PackedHead head{0, text.GetForm(), static_cast<int8_t>(text.Decimals())};
    switch (head.form) {
    case ValueText::Form::Literal: {
        const TextView units = text.Literal();
        head.units = static_cast<uint32_t>(units.size());
        return Pack(head, units.data(), units.size() * sizeof(OLECHAR), out);
    }
    case ValueText::Form::Position: {
        const SprpPosition position = text.Position();
        return Pack(head, &position, sizeof position, out);
    }
    case ValueText::Form::Number: {
        const double number = text.Number();
        return Pack(head, &number, sizeof number, out);
    }
    case ValueText::Form::Signed:
    case ValueText::Form::Unsigned: {
        const int64_t whole = text.Whole();
        return Pack(head, &whole, sizeof whole, out);
    }
    }
    return 0;
}

IqorTextRenderer& PackedTextRenderer()
{
    static Renderer s_renderer;
    return s_renderer;
}
