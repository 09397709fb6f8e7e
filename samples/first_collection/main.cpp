#include <lumevor/Lumevor.h>

#include <iostream>

using namespace lumevor;

int main()
{
    const Apartment apartment;
    const Collection routine = Collection::Create();
    const Subscription listener(routine, [](const EventRange& events) {
        for (const Event& event : events)
            std::cout << "changed: " << event.PropertyId() << '\n';
    });
    {
        const Transaction transaction(routine);
        routine.Add({.id = 1, .type = E_PROP_DT_CATEGORY, .name = OLESTR("Probing")});
        routine.Add({.id = 2, .parent = 1, .type = E_PROP_DT_LINEAR, .name = OLESTR("Depth")}).SetDouble(12.5);
    } // here the transaction ends, and the listener hears of it
    const Transaction transaction(routine);
    for (const Property& property : routine.Descendants())
        std::cout << ToUtf8(property.Name()) << " = " << ToUtf8(property.Value()) << '\n';
    std::cout << ToUtf8(routine.Save()) << '\n';
}
