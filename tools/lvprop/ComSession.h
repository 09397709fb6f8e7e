// COM for the tool: the apartment of its one thread and the server's classes in it.
#pragma once

#include "tools/lvprop/ToolError.h"

#include <lumevor/Lumevor.h>

#include <string_view>
#include <vector>

/// Initialises COM for the calling thread and makes the server's classes known to it for the session's life.
class ComSession {
public:
    ComSession();
    ~ComSession();
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

private:
    std::vector<DWORD> m_registrations; ///< of classes that are found without the registry
};

/// What the component said about a failed call, in front of it what was being done.
[[noreturn]] void RefuseFailure(std::string_view what, const lumevor::Error& error);

/// Runs the body; a failed call in it becomes a ToolError that names what was being done.
template <class Body>
auto During(std::string_view what, Body&& body)
{
    try {
        return body();
    } catch (const lumevor::Error& error) {
        RefuseFailure(what, error);
    }
}
