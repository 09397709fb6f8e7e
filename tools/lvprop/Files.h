// Files by their UTF-8 names; "-" is the standard input or output.
#pragma once

#include <string>
#include <string_view>

/// Throws ToolError with a sentence for a file that is missing or cannot be read.
std::string ReadFile(const std::string& name);

/// The whole file or nothing: it is written beside its place and moved there at the end.
void WriteFile(const std::string& name, std::string_view bytes);
