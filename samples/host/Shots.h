// Pictures of prepared states of the window. Each state is made the way a host or a user makes it: through the
// interfaces of collection and grid, or with keys and the mouse.
#pragma once

#include "samples/host/MainWindow.h"

#include <string>

/// Takes all pictures of the document that the window shows and leaves them in a folder. Throws ToolError.
void TakeShots(MainWindow& window, const std::string& folder);
