// Failing calls as exceptions that carry what the component said about them.
#pragma once

#include <lumevor/Ref.h>
#include <lumevor/Text.h>

#include <cstdio>
#include <stdexcept>

#include <LV_prpPropCollection.h>

namespace lumevor {

/// A failed call: its code and the description that the callee left on the thread.
class Error : public std::runtime_error {
public:
    Error(HRESULT code, lumevor::Text description)
        : std::runtime_error(Sentence(code, description)), m_code(code), m_description(std::move(description))
    {
    }

    HRESULT Code() const noexcept { return m_code; }
    /// As the component wrote it: for a wrong call, the message and in a second line the place of the check.
    const lumevor::Text& Description() const noexcept { return m_description; }
    /// True for a call that broke a precondition; the low bits of the code are the line of the check.
    bool IsUsage() const noexcept { return (Bits(m_code) & 0xFFFF0000u) == 0x80040000u && !IsInternal(); }
    /// True for a failure inside the component.
    bool IsInternal() const noexcept { return Bits(m_code) == 0x80041B60u; }

private:
    static std::uint32_t Bits(HRESULT code) noexcept { return static_cast<std::uint32_t>(code); }
    static std::string Sentence(HRESULT code, TextView description)
    {
        char prefix[16];
        std::snprintf(prefix, sizeof prefix, "0x%08X: ", static_cast<unsigned>(Bits(code)));
        return prefix + ToUtf8(description);
    }

    HRESULT m_code;
    lumevor::Text m_description;
};

/// An expected outcome that the caller of the kit did not expect, such as a wrong data type.
class OutcomeError : public std::runtime_error {
public:
    explicit OutcomeError(EprpPropError outcome)
        : std::runtime_error("property error " + std::to_string(static_cast<int>(outcome))), m_outcome(outcome)
    {
    }
    EprpPropError Outcome() const noexcept { return m_outcome; }

private:
    EprpPropError m_outcome;
};

/// Takes the description off the thread; empty when there is none.
inline Text TakeDescription()
{
    Ref<IErrorInfo> info;
    String text;
    if (GetErrorInfo(0, info.Put()) == S_OK)
        info->GetDescription(text.Put());
    return text.ToText();
}

/// Throws Error for a failed call. Put it around every call: `Check(collection->SetState(3));`
inline void Check(HRESULT hr)
{
    if (FAILED(hr))
        throw Error(hr, TakeDescription());
}

/// Throws OutcomeError unless the outcome is success.
inline void Check(EprpPropError outcome)
{
    if (outcome != E_PROP_ERROR_NONE)
        throw OutcomeError(outcome);
}

} // namespace lumevor
