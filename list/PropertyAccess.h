// Transactions of the rows on the shown collections.
#pragma once

#include "LV_prpPropCollection.h"
#include "frame/Raise.h"
#include "platform/atl/ComPtr.h"

enum class AtEnd { DropEvents, FireEvents };

/// Runs a body in a transaction of its own. A failing body ends the transaction with its events and is raised again;
/// a transaction that could not be started, because the host has one open, is not ended.
template <class Body>
void InTransaction(IqorPropertyCollection& collection, AtEnd atEnd, const Body& body)
{
    constexpr LONG kWithoutLimit = -1;
    Must(collection.StartTransaction(kWithoutLimit));
    try {
        body();
    } catch (...) {
        collection.EndTransaction(VARIANT_TRUE);
        throw;
    }
    Must(collection.EndTransaction(atEnd == AtEnd::FireEvents ? VARIANT_TRUE : VARIANT_FALSE));
}

/// Runs a body on one property, in a transaction. Without such a property, which may have been removed while its
/// event is still to come, the body does not run.
/// @return true when the property was there
template <class Body>
bool WithProperty(IqorPropertyCollection& collection, LONG id, AtEnd atEnd, const Body& body)
{
    bool found = false;
    InTransaction(collection, atEnd, [&] {
        CComPtr<IqorProperty> property;
        EprpPropError error = E_PROP_ERROR_NONE;
        Must(collection.GetProperty(id, &error, &property));
        found = property != nullptr;
        if (found)
            body(*property);
    });
    return found;
}

/// Value of an out text.
template <class Get>
Text TextFrom(const Get& get)
{
    CComBSTR text;
    Must(get(&text));
    return Text(text.View());
}
