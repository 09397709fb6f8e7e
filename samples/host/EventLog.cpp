#include "samples/host/EventLog.h"

using lumevor::Text;

namespace {

Text Digits(LONG number)
{
    const std::string digits = std::to_string(number);
    return Text(digits.begin(), digits.end());
}

Text WordFor(const lumevor::Event& event, const lumevor::Property* property)
{
    switch (event.Type()) {
    case E_PROP_EVENT_PROP_ADDED: return OLESTR("added");
    case E_PROP_EVENT_PROP_DELETED: return OLESTR("removed");
    case E_PROP_EVENT_COLLECTION_LOADED: return OLESTR("loaded");
    case E_PROP_EVENT_PROP_EDITED: break;
    default: return OLESTR("unknown");
    }
    if (event.IsValueChange())
        return OLESTR("value");
    if (event.IsVisibilityChange() && property)
        return property->IsVisible() ? OLESTR("shown") : OLESTR("hidden");
    return OLESTR("state"); // an error, a warning, a flag
}

/// What stands out about a property, the worst first.
Text StateOf(const lumevor::Property& property)
{
    if (Text error = property.ErrorText(); !error.empty())
        return error;
    if (Text warning = property.WarningText(); !warning.empty())
        return warning;
    return property.IsReadOnly() ? OLESTR("read-only") : OLESTR("");
}

} // namespace

EventLine DescribeEvent(const lumevor::Event& event, const lumevor::Collection& collection)
{
    const lumevor::Transaction transaction(collection);
    const auto property = event.PropertyId() > 0 ? collection.Find(event.PropertyId()) : std::nullopt;
    EventLine line;
    line.what = WordFor(event, property ? &*property : nullptr);
    if (event.PropertyId() > 0)
        line.id = Digits(event.PropertyId());
    if (property)
        line.name = property->Name();
    if (event.IsValueChange()) {
        line.before = event.oldText.value_or(Text());
        if (property)
            line.after = property->Value();
    } else if (property && line.what == OLESTR("state")) {
        line.after = StateOf(*property);
    }
    return line;
}

std::size_t EventLog::Add(const lumevor::EventRange& events, const lumevor::Collection& collection)
{
    const lumevor::Transaction transaction(collection);
    std::size_t heard = 0;
    for (const lumevor::Event& event : events) {
        m_lines.push_back(DescribeEvent(event, collection));
        ++heard;
    }
    while (m_lines.size() > m_limit)
        m_lines.pop_front();
    m_total += heard;
    return heard;
}

void EventLog::Clear()
{
    m_lines.clear();
    m_total = 0;
}
