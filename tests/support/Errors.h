// What tests ask of a failed call: its code without the line, and its description.
#pragma once

#include "platform/atl/ComPtr.h"

#include <gtest/gtest.h>

inline constexpr HRESULT kInternalErrorCode = static_cast<HRESULT>(0x80041B60);

/// Text of the error that the last call left on the thread; empty when there is none.
inline Text LastErrorText()
{
    CComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, &info) != S_OK)
        return {};
    CComBSTR description;
    EXPECT_EQ(info->GetDescription(&description), S_OK);
    return Text(description.View());
}

/// First line of the description: the message without its place.
inline Text LastErrorMessage()
{
    const Text text = LastErrorText();
    return text.substr(0, text.find(OLESTR("\r\n")));
}

/// A usage error with a message: the code is checked without the line that it carries.
inline void ExpectRefusal(HRESULT hr, TextView message)
{
    EXPECT_EQ(static_cast<uint32_t>(hr) & 0xFFFF0000U, 0x80040000U);
    EXPECT_EQ(LastErrorMessage(), message);
}

inline void ExpectNullPointer(HRESULT hr, TextView function, TextView parameter)
{
    ExpectRefusal(hr, Text(OLESTR("Invalid pointer passed to the function '"))
                          .append(function)
                          .append(OLESTR("'. Parameter '"))
                          .append(parameter)
                          .append(OLESTR("' is NULL.")));
}

inline void ExpectBstrNotNull(HRESULT hr, TextView function, TextView parameter)
{
    ExpectRefusal(hr, Text(OLESTR("The BSTR parameter '"))
                          .append(parameter)
                          .append(OLESTR("' passed to the function '"))
                          .append(function)
                          .append(OLESTR("' is not NULL, memory leaks may occur.")));
}

inline void ExpectNoTransaction(HRESULT hr)
{
    ExpectRefusal(hr, OLESTR("A transaction has not been started! Please use StartTransaction before attempting to "
                             "access data."));
}

inline void ExpectNegative(HRESULT hr)
{
    ExpectRefusal(hr, OLESTR("A negative parameter has been passed. Please use positive or zero values."));
}

inline void ExpectInvalidId(HRESULT hr)
{
    ExpectRefusal(hr, OLESTR("Invalid property ID passed. Property IDs must be > 0"));
}

/// An internal error names a source file and has no second place line.
inline void ExpectInternal(HRESULT hr)
{
    EXPECT_EQ(hr, kInternalErrorCode);
    EXPECT_EQ(LastErrorText().substr(0, 18), OLESTR("Internal error in "));
}
