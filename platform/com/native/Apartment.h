// Which threads have entered COM natively. There are no proxies: an interface pointer is called on the thread that
// calls it, so the kind of apartment only decides what CoInitializeEx answers.
#pragma once

/// True when the calling thread has entered COM itself or some thread keeps the multithreaded apartment alive, which
/// then takes in every thread.
bool ThreadIsInApartment() noexcept;
