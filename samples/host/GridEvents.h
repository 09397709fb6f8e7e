// The events of the grid, taken from its connection point and handed on with their arguments unpacked.
#pragma once

#include <lumevor/Lumevor.h>

/// Whoever shows the grid. All calls come inside a call into the grid, or while it works on a message.
class GridListener {
public:
    virtual void OnSelectionChanged(LONG propertyId) = 0;
    virtual void OnExtendedInfoButton(LONG propertyId) = 0;
    /// True between the start and the end of typing.
    virtual void OnTyping(bool isTyping) = 0;

protected:
    ~GridListener() = default;
};

class GridConnection {
public:
    /// The listener must outlive the connection.
    GridConnection(IUnknown* control, GridListener& listener);

private:
    lumevor::Connection m_connection;
};
