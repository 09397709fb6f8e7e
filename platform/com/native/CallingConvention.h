// Forced into every native translation unit ahead of everything else. The SDK headers give interface methods the
// calling convention of Windows; nothing of Windows is linked natively, so the native convention, which is cheaper,
// takes its place. Every translation unit must agree, hence the forced include.
#pragma once
#include <windef.h>
#undef __stdcall
#undef __cdecl
#define __stdcall
#define __cdecl
