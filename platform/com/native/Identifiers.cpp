// The one translation unit that defines the SDK's identifiers (IID_IUnknown and its like); on Windows a library of
// the SDK holds them.
#define INITGUID
#include "platform/com/Ole.h"

// Declared by the SDK, but not in the form that INITGUID defines.
extern const IID GUID_NULL = {};
