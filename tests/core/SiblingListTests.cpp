// The list of siblings: order, ends, membership, and a long random life against std::list.
#include "core/SiblingList.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <list>
#include <memory>
#include <random>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {
struct Sibling : SiblingLinks<Sibling> {
    explicit Sibling(int n) : number(n) {}
    int number;
};

using List = SiblingList<Sibling>;

std::vector<int> NumbersOf(const List& list)
{
    std::vector<int> numbers;
    for (const Sibling& node : list)
        numbers.push_back(node.number);
    return numbers;
}

struct Siblings : testing::Test {
    ~Siblings() override
    {
        while (list.TakeFirst())
            ;
    }
    List list;
    Sibling a{1}, b{2}, c{3};
};
} // namespace

TEST_F(Siblings, StandInTheOrderInWhichTheyCame)
{
    list.Append(b);
    list.Append(a);
    list.Append(c);
    EXPECT_THAT(NumbersOf(list), ElementsAre(2, 1, 3));
    EXPECT_EQ(list.First(), &b);
    EXPECT_EQ(list.Last(), &c);
    EXPECT_EQ(list.Count(), 3u);
    EXPECT_EQ(b.NextSibling(), &a);
    EXPECT_EQ(c.NextSibling(), nullptr);
    EXPECT_EQ(a.PreviousSibling(), &b);
    EXPECT_TRUE(list.IsConsistent());
}

TEST_F(Siblings, LeaveFromTheFrontTheMiddleAndTheEnd)
{
    for (Sibling* node : {&a, &b, &c})
        list.Append(*node);
    list.Unlink(b);
    EXPECT_THAT(NumbersOf(list), ElementsAre(1, 3));
    EXPECT_TRUE(list.IsConsistent());
    list.Unlink(a);
    EXPECT_EQ(list.First(), &c);
    list.Unlink(c);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.Last(), nullptr);
    EXPECT_TRUE(list.IsConsistent());
}

TEST_F(Siblings, KnowWhetherTheyAreOnAList)
{
    list.Append(a);
    list.Append(b);
    EXPECT_TRUE(a.IsOnAList());
    EXPECT_TRUE(b.IsOnAList());
    EXPECT_FALSE(c.IsOnAList());
    list.Unlink(a);
    list.Unlink(b);
    EXPECT_FALSE(a.IsOnAList());
    EXPECT_FALSE(b.IsOnAList());
    EXPECT_EQ(b.PreviousSibling(), nullptr);
    EXPECT_EQ(b.NextSibling(), nullptr);
}

TEST_F(Siblings, MayComeBackToTheEnd)
{
    list.Append(a);
    list.Append(b);
    list.Unlink(a);
    list.Append(a);
    EXPECT_THAT(NumbersOf(list), ElementsAre(2, 1));
}

TEST_F(Siblings, AreTakenFromTheFrontUntilNoneIsLeft)
{
    list.Append(a);
    list.Append(b);
    EXPECT_EQ(list.TakeFirst(), &a);
    EXPECT_EQ(list.TakeFirst(), &b);
    EXPECT_EQ(list.TakeFirst(), nullptr);
    EXPECT_THAT(NumbersOf(list), IsEmpty());
}

TEST_F(Siblings, MayComeFromAnotherListAheadOfThoseThatAreHere)
{
    Sibling d{4};
    List other;
    other.Append(a);
    other.Append(b);
    list.Append(c);
    list.Append(d);
    list.TakeOverAhead(other);
    EXPECT_THAT(NumbersOf(list), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(list.IsConsistent());
    EXPECT_TRUE(other.IsEmpty());
    EXPECT_TRUE(other.IsConsistent());

    list.TakeOverAhead(other); // nothing comes from an empty list
    EXPECT_THAT(NumbersOf(list), ElementsAre(1, 2, 3, 4));
    other.TakeOverAhead(list); // and an empty one takes all
    EXPECT_THAT(NumbersOf(other), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(other.IsConsistent());
    while (other.TakeFirst())
        ;
}

TEST(SiblingList, AgreesWithAPlainListOverALongRandomLife)
{
    std::mt19937 random(11);
    List list;
    std::list<int> plain;
    std::vector<std::unique_ptr<Sibling>> nodes;
    for (int i = 0; i < 64; ++i)
        nodes.push_back(std::make_unique<Sibling>(i));
    for (int step = 0; step < 20000; ++step) {
        Sibling& node = *nodes[random() % nodes.size()];
        if (node.IsOnAList()) {
            list.Unlink(node);
            plain.remove(node.number);
        } else {
            list.Append(node);
            plain.push_back(node.number);
        }
        if (step % 97 == 0) {
            ASSERT_TRUE(list.IsConsistent());
            ASSERT_THAT(NumbersOf(list), testing::ElementsAreArray(plain));
        }
    }
    while (list.TakeFirst())
        ;
}
