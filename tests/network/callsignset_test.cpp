#include "network/callsignset.h"

#include <gtest/gtest.h>

using sigdb::CallsignEntry;
using sigdb::CallsignSet;
using sigdb::CallsignSetList;

namespace {

CallsignSet set(const char *first, std::initializer_list<const char *> callsigns)
{
    CallsignSet s;
    s.firstValue = std::string(first);
    for (const char *callsign : callsigns) {
        CallsignEntry e;
        e.firstCallsign = std::string(callsign);
        s.entries.appendEntry(e);
    }
    return s;
}

} // namespace

TEST(CallsignSet, EqualityLooksAtTextsAndEntriesRegardlessOfOrder)
{
    EXPECT_TRUE(set("S", {"A", "B"}) == set("S", {"B", "A"}));
    EXPECT_FALSE(set("S", {"A"}) == set("T", {"A"}));
    CallsignSet withSecond = set("S", {"A"});
    withSecond.secondValue = std::string("");
    EXPECT_TRUE(withSecond != set("S", {"A"}));
}

TEST(CallsignSet, ResetKeepsTheEntries)
{
    CallsignSet s = set("S", {"A"});
    s.secondValue = std::string("x");
    s.reset();
    EXPECT_TRUE(s.firstValue.isNull());
    EXPECT_TRUE(s.secondValue.isNull());
    EXPECT_TRUE(s.secondValue.getData().empty());
    EXPECT_EQ(s.entries.count(), 1);
}

TEST(CallsignSet, SetIdsNumbersTextsThenEntries)
{
    CallsignSet s = set("S", {"A", "B"});
    EXPECT_EQ(s.setIDs(10), 21);
    EXPECT_EQ(s.firstValue.getID(), 11);
    EXPECT_EQ(s.secondValue.getID(), 12);
    EXPECT_EQ(s.entries.startID(), 13);
    EXPECT_EQ(s.entries.entryAt(0)->firstCallsign.getID(), 14);
    EXPECT_EQ(s.entries.entryAt(1)->fourthCallsign.getID(), 21);
    CallsignSet empty;
    EXPECT_EQ(empty.setIDs(10), 13);
}

TEST(CallsignSetList, SetIdsOnOneSetWithOneEntry)
{
    CallsignSetList list;
    list.appendEntry(set("S", {"A"}));
    EXPECT_EQ(list.setIDs(0), 7);
    const CallsignSet &s = list.container()[0];
    EXPECT_EQ(s.firstValue.getID(), 1);
    EXPECT_EQ(s.secondValue.getID(), 2);
    EXPECT_EQ(s.entries.startID(), 3);
    EXPECT_EQ(s.entries.container()[0].firstCallsign.getID(), 4);
    EXPECT_EQ(s.entries.container()[0].fourthCallsign.getID(), 7);
}

TEST(CallsignSetList, SetIdsChainsTheSets)
{
    CallsignSetList list;
    EXPECT_EQ(list.setIDs(5), 5);
    list.appendEntry(set("S", {"A"}));
    list.appendEntry(set("T", {}));
    EXPECT_EQ(list.setIDs(0), 10);
    EXPECT_EQ(list.container()[1].firstValue.getID(), 8);
}

TEST(CallsignSetList, CompareListIsInOrder)
{
    CallsignSetList ab;
    ab.appendEntry(set("A", {"1"}));
    ab.appendEntry(set("B", {"2"}));
    CallsignSetList ba;
    ba.appendEntry(set("B", {"2"}));
    ba.appendEntry(set("A", {"1"}));
    EXPECT_FALSE(ab.compareList(ba));
    EXPECT_TRUE(ab.compareList(CallsignSetList(ab)));
    EXPECT_TRUE(ab == CallsignSetList(ab));
}

TEST(CallsignSetList, SetLayerReachesTheEntriesNotTheSets)
{
    CallsignSetList list;
    list.appendEntry(set("A", {"1", "2"}));
    list.setLayer(2);
    const CallsignSet &s = list.container()[0];
    EXPECT_EQ(s.layer(), 0);
    EXPECT_EQ(s.entries.container()[0].layer(), 2);
    EXPECT_EQ(s.entries.container()[1].layer(), 2);
}
