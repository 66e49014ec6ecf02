#include "core/linkdefinition.h"

#include <gtest/gtest.h>

using sigdb::LinkDefinition;

TEST(LinkDefinition, EndsAndEquality)
{
    LinkDefinition a;
    sigdb::SigdbElement network;
    network.setType(4);
    network.setTID(1);
    sigdb::SigdbElement unit;
    unit.setType(1);
    unit.setTID(2);
    a.setElementA(network);
    a.setElementB(unit);
    LinkDefinition b = a;
    EXPECT_TRUE(a == b);
    b.setElementB(network);
    EXPECT_FALSE(a == b);
    b = a;
    b.setIsRemoved(true, false);
    EXPECT_FALSE(a == b);
}

TEST(LinkDefinition, SetIdsNumbersTheLinkThenBothEnds)
{
    LinkDefinition link;
    EXPECT_EQ(link.setIDs(0), 13);
    EXPECT_EQ(link.name().getID(), 7);
    EXPECT_EQ(link.elementA().tid().getID(), 8);
    EXPECT_EQ(link.elementB().tid().getID(), 11);
}
