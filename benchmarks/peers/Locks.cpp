// Recursive mutexes of the standard library, one pair of lock and unlock (W6).
#include "benchmarks/Fixtures.h"
#include "benchmarks/PeerCases.h"

#include <mutex>

namespace {

constexpr int kPairs = 1000;

template <class Mutex, class LockIt>
Prepared Pairs(LockIt lock)
{
    auto mutex = std::make_shared<Mutex>();
    return {[mutex, lock] {
                return Timed([&] {
                    for (int i = 0; i < kPairs; ++i) {
                        lock(*mutex);
                        mutex->unlock();
                    }
                });
            },
            kPairs};
}

} // namespace

void AddLockCases(std::vector<Case>& cases)
{
    cases.push_back({"W6", "std_recursive_mutex",
                     [](int64_t) { return Pairs<std::recursive_mutex>([](auto& mutex) { mutex.lock(); }); }, true});
    cases.push_back({"W6", "std_recursive_timed_mutex_for",
                     [](int64_t) {
                         return Pairs<std::recursive_timed_mutex>(
                             [](auto& mutex) { Keep(mutex.try_lock_for(std::chrono::milliseconds(1000))); });
                     },
                     true});
}
