#include "list/Selection.h"

#include <gtest/gtest.h>

TEST(SelectionAfterRemoval, GoesToTheItemBehindTheRemovedOne)
{
    EXPECT_EQ(SelectionBeforeRemoval(0, 5), 1);
    EXPECT_EQ(SelectionBeforeRemoval(2, 5), 3);
    EXPECT_EQ(SelectionBeforeRemoval(3, 5), 4);
    EXPECT_EQ(SelectionBeforeRemoval(0, 2), 1);
}

TEST(SelectionAfterRemoval, GoesToTheRowBeforeARemovedLastRow)
{
    EXPECT_EQ(SelectionBeforeRemoval(4, 5), 3);
    EXPECT_EQ(SelectionBeforeRemoval(1, 2), 0);
}

TEST(SelectionAfterRemoval, IsNoneAfterTheOnlyRow)
{
    EXPECT_EQ(SelectionBeforeRemoval(0, 1), -1);
}
