// Long texts on their way onto a stream and off it: where the stream lets it (IqorStreamDirect) they change hands and
// are read in place, on any other stream they go as a BSTR. What a reader of the stream sees is the same.
#pragma once

#include "LV_prpPropCollection.h"
#include "frame/TextBuffer.h"
#include "platform/atl/ComPtr.h"

/// Writes a text as one item, as WriteString(text, VARIANT_TRUE). Raises what the stream reports.
void WriteWhole(IqorStream& stream, TextBuffer&& text);

/// The next text of a stream; empty where the stream gives none.
class StreamText {
public:
    /// @param written  a stream that is written to while the text is in use, or null: when it is the same object the
    ///                 text is copied. No other call on the stream may happen while the text is in use.
    StreamText(IqorStream& stream, IqorStream* written);

    TextView View() const noexcept { return m_text; }

private:
    CComBSTR m_copy;
    TextView m_text;
};
