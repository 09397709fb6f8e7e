// The changes of a transaction: reading them from the stream that a sink is handed, and being such a sink.
//
//     lumevor::Subscription subscription(collection, [](const lumevor::EventRange& events) {
//         for (const lumevor::Event& event : events)
//             ...
//     });
//
// A sink is called on the thread that ends the transaction when that is the main thread, else on the thread that made
// the first collection with the same unique number, when it pumps its messages.
#pragma once

#include <lumevor/Sink.h>

#include <functional>
#include <optional>

namespace lumevor {

struct Event {
    SprpEventInfo record{};
    std::optional<Text> oldText; ///< the value's text before the change; there for changes of a value only

    EprpEventType Type() const noexcept { return record.eEventType; }
    /// -1 for an event of the whole collection.
    LONG PropertyId() const noexcept { return record.nPropID; }
    LONG CollectionId() const noexcept { return record.nPropCollectionID; }
    /// Parent of an added property.
    LONG ParentId() const noexcept { return record.nLong1; }
    bool IsVisibilityChange() const noexcept { return record.bVisiblityChanged != VARIANT_FALSE; }
    bool IsValueChange() const noexcept
    {
        return record.eEventType == E_PROP_EVENT_PROP_EDITED && record.bDataChanged != VARIANT_FALSE;
    }
};

/// The events of one stream, in the order of the changes. Each walk reads from the start; one walk at a time.
class EventRange {
public:
    explicit EventRange(Ref<IqorStream> stream) : m_stream(std::move(stream)) {}

    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Event;
        using difference_type = std::ptrdiff_t;
        using pointer = const Event*;
        using reference = const Event&;

        explicit Iterator(Ref<IqorStream> stream) : m_stream(std::move(stream)) { ++*this; }

        const Event& operator*() const noexcept { return m_event; }
        const Event* operator->() const noexcept { return &m_event; }
        Iterator& operator++()
        {
            m_event = Event();
            LONG read = 0;
            EStreamError error = E_STREAM_ERROR_NONE;
            Check(m_stream->Read(&m_event.record, sizeof m_event.record, &read, &error));
            m_atEnd = error == E_STREAM_ERROR_END_OF_FILE;
            if (m_atEnd)
                return *this;
            if (error != E_STREAM_ERROR_NONE || read != static_cast<LONG>(sizeof m_event.record))
                throw std::runtime_error("the event stream is damaged");
            if (m_event.IsValueChange()) {
                String text;
                LONG length = 0;
                Check(m_stream->ReadString(text.Put(), &length, &error));
                m_event.oldText = text.ToText();
            }
            return *this;
        }
        void operator++(int) { ++*this; }
        friend bool operator==(const Iterator& it, std::default_sentinel_t) noexcept { return it.m_atEnd; }

    private:
        Ref<IqorStream> m_stream;
        Event m_event;
        bool m_atEnd = false;
    };

    Iterator begin() const
    {
        EStreamError error = E_STREAM_ERROR_NONE;
        Check(m_stream->Seek(0, E_STREAM_ORIGIN_START, &error));
        return Iterator(m_stream);
    }
    std::default_sentinel_t end() const noexcept { return {}; }

private:
    Ref<IqorStream> m_stream;
};

/// Calls a function with the events of each transaction, for as long as it lives. Exceptions of the function go no
/// further than here: the component would have no use for them.
class Subscription {
public:
    using Handler = std::function<void(const EventRange&)>;

    Subscription(IqorPropertyCollection* collection, Handler handler)
        : m_connection(collection, __uuidof(_IqorPropertyCollectionEvents),
                       Ref<Sink>::Adopt(new Sink(std::move(handler))).Get())
    {
    }

private:
    class Sink final : public EventSink<_IqorPropertyCollectionEvents> {
    public:
        explicit Sink(Handler handler) : m_handler(std::move(handler)) {}

    private:
        HRESULT OnEvent(DISPID id, const DISPPARAMS& arguments) override
        {
            constexpr DISPID kPropertyEventStream = 1;
            if (id != kPropertyEventStream)
                return DISP_E_MEMBERNOTFOUND;
            if (arguments.cArgs != 1 || V_VT(&arguments.rgvarg[0]) != VT_UNKNOWN)
                return DISP_E_TYPEMISMATCH;
            const auto stream = Ref<IUnknown>(V_UNKNOWN(&arguments.rgvarg[0])).As<IqorStream>();
            if (!stream)
                return DISP_E_TYPEMISMATCH;
            m_handler(EventRange(stream));
            return S_OK;
        }

        Handler m_handler;
    };

    Connection m_connection; ///< keeps the collection alive
};

} // namespace lumevor
