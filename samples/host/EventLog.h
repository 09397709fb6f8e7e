// The events of a collection as lines for people, newest last. Knows no window.
#pragma once

#include <lumevor/Lumevor.h>

#include <cstddef>
#include <deque>

/// One event record, with what stood behind it when it was heard.
struct EventLine {
    lumevor::Text what;   ///< "value", "shown", "added" ...
    lumevor::Text id;     ///< of the property; empty for an event of the whole collection
    lumevor::Text name;   ///< of the property; empty when it is gone
    lumevor::Text before; ///< of a value
    lumevor::Text after;
};

class EventLog {
public:
    /// @param limit  lines that are kept; older ones go.
    explicit EventLog(std::size_t limit = 10000) : m_limit(limit) {}

    /// To be called from a subscription of the collection: reads the stream to its end, and in a transaction of its own
    /// the names and values behind the records. @return the number of records.
    std::size_t Add(const lumevor::EventRange& events, const lumevor::Collection& collection);
    void Clear();

    std::size_t Size() const { return m_lines.size(); }
    const EventLine& operator[](std::size_t line) const { return m_lines[line]; }
    /// Records ever heard, also those whose lines have gone.
    std::size_t Total() const { return m_total; }

private:
    std::size_t m_limit;
    std::size_t m_total = 0;
    std::deque<EventLine> m_lines;
};

/// One record in words.
EventLine DescribeEvent(const lumevor::Event& event, const lumevor::Collection& collection);
