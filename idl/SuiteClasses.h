// Class ids of the suite's other modules that this server creates by COM.
#pragma once

#include <guiddef.h>

/// The stream component.
inline constexpr CLSID CLSID_qorStream = {0xAE827C8C, 0xC1EB, 0x49B9, {0xB8, 0x9C, 0x35, 0xA0, 0x7B, 0xB6, 0xAB, 0xF4}};
