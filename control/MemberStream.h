// Values of a control's members in a stream: two bytes of type, then the value, little endian; an object with its
// class identifier in front, a null one as the empty identifier.
#pragma once

#include "platform/atl/ComVariant.h"

/// Raises what the stream reports; DISP_E_BADVARTYPE for a type that is not kept.
void WriteToStream(IStream& stream, const VARIANT& value);
/// Raises what the stream reports; STG_E_READFAULT when it ends too early, DISP_E_BADVARTYPE for another type.
void ReadFromStream(IStream& stream, VARTYPE expected, CComVariant& out);

/// All bytes of a number, or an exception.
void WriteBytes(IStream& stream, const void* bytes, ULONG count);
void ReadBytes(IStream& stream, void* bytes, ULONG count);
