// A stream of the class as it is linked into the test.
#pragma once

#include "suite/stream/qorStream.h"
#include "tests/suite/stream/StreamUser.h"

/// A new stream of the component class.
inline CComPtr<IqorStream> NewStream()
{
    CComObject<CqorStream>* object = nullptr;
    EXPECT_EQ(CComObject<CqorStream>::CreateInstance(&object), S_OK);
    CComPtr<IqorStream> stream;
    stream.Attach(object);
    return stream;
}

/// A new stream and the words to use it.
class NewStreamUser : public StreamUser {
public:
    NewStreamUser() : StreamUser(NewStream()) {}
};
