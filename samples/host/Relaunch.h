// Starting this program once more.
#pragma once

#include "samples/host/CommandLine.h"

/// Throws ToolError when the system refuses.
void Relaunch(const HostOptions& options);
