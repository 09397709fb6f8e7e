// Text under construction, for those who write much of it.
#pragma once

#include "platform/com/Ole.h"
#include "platform/memory/GrowingBuffer.h"

class TextBuffer : public GrowingBuffer<OLECHAR> {
public:
    using GrowingBuffer::Append;
    /// The text must not be a part of this one, which may move.
    void Append(TextView text) { Append(text.data(), text.size()); }

    /// Valid until the next call that may grow the text.
    TextView View() const noexcept { return {Data(), Size()}; }
};
