#pragma once
#include "platform/com/Ole.h"
void WriteSupportLog(const Text& text, bool bWithHeader);
