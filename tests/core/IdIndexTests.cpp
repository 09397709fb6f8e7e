// The id index: ids of every kind are found, and the order of the 17 buckets is kept exactly.
#include "core/IdIndex.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <random>
#include <vector>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {
struct Entry : IdIndexEntry {
    explicit Entry(LONG id) { m_nPropID = id; }
};

using Index = IdIndex<Entry>;

/// The order told the slow way: 17 lists, each new id at the head of its own.
class PlainOrder {
public:
    void Add(LONG id) { m_lists[(static_cast<uint32_t>(id) >> 4) % 17].push_front(id); }
    void Remove(LONG id) { m_lists[(static_cast<uint32_t>(id) >> 4) % 17].remove(id); }
    std::vector<LONG> All() const
    {
        std::vector<LONG> all;
        for (const auto& list : m_lists)
            all.insert(all.end(), list.begin(), list.end());
        return all;
    }

private:
    std::array<std::list<LONG>, 17> m_lists;
};

std::vector<LONG> OrderOf(const Index& index)
{
    std::vector<LONG> ids;
    index.ForEach([&](Entry& entry) { ids.push_back(entry.Id()); });
    return ids;
}

constexpr LONG kLowest = std::numeric_limits<LONG>::min();
constexpr LONG kHighest = std::numeric_limits<LONG>::max();
} // namespace

TEST(IdIndex, FindsNothingWhileEmpty)
{
    const Index index;
    for (LONG id : {LONG{0}, LONG{1}, LONG{-1}, LONG{1 << 20}, kLowest, kHighest})
        EXPECT_EQ(index.Find(id), nullptr) << id;
    EXPECT_TRUE(index.IsEmpty());
    EXPECT_THAT(index.Snapshot(), IsEmpty());
}

TEST(IdIndex, FindsIdsAtBothSidesOfEveryBorder)
{
    Index index;
    std::vector<std::unique_ptr<Entry>> entries;
    for (LONG id : {kLowest, LONG{-2}, LONG{-1}, LONG{0}, LONG{1}, LONG{255}, LONG{256}, LONG{1023}, LONG{1024},
                    LONG{(1 << 20) - 1}, LONG{1 << 20}, LONG{(1 << 20) + 1}, kHighest}) {
        EXPECT_EQ(index.Find(id), nullptr) << id;
        entries.push_back(std::make_unique<Entry>(id));
        index.Insert(*entries.back());
    }
    for (const auto& entry : entries)
        EXPECT_EQ(index.Find(entry->Id()), entry.get()) << entry->Id();
    EXPECT_EQ(index.Find(2), nullptr);
    EXPECT_EQ(index.Find(-3), nullptr);
    EXPECT_EQ(index.Size(), entries.size());
}

TEST(IdIndex, GivesNewestFirstWithinARunOfSixteen)
{
    Index index;
    Entry a{16}, b{17}, c{31};
    for (Entry* entry : {&a, &b, &c})
        index.Insert(*entry);
    EXPECT_THAT(OrderOf(index), ElementsAre(31, 17, 16));
}

TEST(IdIndex, GivesBucketsAscendingWhateverTheOrderOfComing)
{
    Index index;
    Entry last{16 * 16}, first{15}, next{16}, wrapped{17 * 16};
    for (Entry* entry : {&last, &first, &next, &wrapped})
        index.Insert(*entry);
    EXPECT_THAT(OrderOf(index), ElementsAre(17 * 16, 15, 16, 16 * 16));
}

TEST(IdIndex, PutsAnIdThatComesBackAtTheHeadOfItsBucket)
{
    Index index;
    Entry a{1}, b{2}, c{3};
    for (Entry* entry : {&a, &b, &c})
        index.Insert(*entry);
    index.Erase(a);
    Entry again{1};
    index.Insert(again);
    EXPECT_THAT(OrderOf(index), ElementsAre(1, 3, 2));
    EXPECT_EQ(index.Find(1), &again);
}

TEST(IdIndex, ForgetsWhatIsErasedAndKeepsTheRestInOrder)
{
    Index index;
    std::vector<std::unique_ptr<Entry>> entries;
    for (LONG id = 0; id < 16; ++id) {
        entries.push_back(std::make_unique<Entry>(id));
        index.Insert(*entries.back());
    }
    for (std::size_t gone : {15u, 3u, 4u, 5u, 14u, 0u, 1u, 2u, 6u, 7u})
        index.Erase(*entries[gone]);
    EXPECT_THAT(OrderOf(index), ElementsAre(13, 12, 11, 10, 9, 8));
    EXPECT_EQ(index.Find(3), nullptr);
    EXPECT_EQ(index.Find(13), entries[13].get());
}

TEST(IdIndex, IsEmptyAndUsableAfterClear)
{
    Index index;
    Entry low{7}, high{kHighest};
    index.Insert(low);
    index.Insert(high);
    index.Clear();
    EXPECT_TRUE(index.IsEmpty());
    EXPECT_EQ(index.Find(7), nullptr);
    EXPECT_EQ(index.Find(kHighest), nullptr);
    index.Insert(high);
    EXPECT_THAT(index.Snapshot(), ElementsAre(kHighest));
}

TEST(IdIndex, FindsEveryIdOfLongArithmeticRunsAboveThePages)
{
    for (LONG stride : {1, 2, 16, 4096, 65536, 1 << 20}) {
        Index index;
        std::vector<std::unique_ptr<Entry>> entries;
        for (LONG i = 1; i <= 2000; ++i) {
            entries.push_back(std::make_unique<Entry>(
                static_cast<LONG>(static_cast<uint32_t>(i) * static_cast<uint32_t>(stride)) | (1 << 30)));
            if (index.Find(entries.back()->Id()))
                entries.pop_back();
            else
                index.Insert(*entries.back());
        }
        for (const auto& entry : entries)
            ASSERT_EQ(index.Find(entry->Id()), entry.get()) << stride;
    }
}

// Few ids, so that each comes and goes many times; drawn from the pages, from above them and from below zero.
TEST(IdIndex, AgreesWithPlainContainersOverALongRandomLife)
{
    std::mt19937 random(23);
    std::vector<LONG> ids;
    for (int i = 0; i < 300; ++i) {
        ids.push_back(static_cast<LONG>(random() % 600));
        ids.push_back(static_cast<LONG>(random()));
        ids.push_back((1 << 20) - 150 + i);
    }
    Index index;
    PlainOrder order;
    std::map<LONG, std::unique_ptr<Entry>> living;
    for (int step = 0; step < 60000; ++step) {
        const LONG id = ids[random() % ids.size()];
        if (const auto found = living.find(id); found != living.end()) {
            ASSERT_EQ(index.Find(id), found->second.get());
            index.Erase(*found->second);
            order.Remove(id);
            living.erase(found);
        } else {
            ASSERT_EQ(index.Find(id), nullptr);
            Entry& entry = *(living[id] = std::make_unique<Entry>(id));
            index.Insert(entry);
            order.Add(id);
        }
        ASSERT_EQ(index.Size(), living.size());
        if (step % 503 == 0) {
            ASSERT_THAT(OrderOf(index), ElementsAreArray(order.All()));
            ASSERT_THAT(index.Snapshot(), ElementsAreArray(order.All()));
        }
    }
}
